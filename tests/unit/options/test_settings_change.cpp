#include "OptionsLogic.h"
#include "platform/errors.h"

using namespace norvane;
using namespace norvane::test;
using Outcome = DatabaseChange::Outcome;

namespace {

class ApplyingSettings : public testing::Test, protected OptionsLogic
{
protected:
    ApplyingSettings()
    {
        choice.startsWithSession = true;
        choice.exactWindowName = true;
        choice.hotKeys[HotKeyId::Attach] = {6, 'N'};
        choice.databaseFolder = store.DatabaseFolder;
        choice.showsCategoryBar = false;
    }
    QString value(const QString &section, const QString &key) { return settings.get(section, key, u"-"_s); }

    SettingsChoice choice;
};

TEST_F(ApplyingSettings, PutsEverythingIntoEffect)
{
    EXPECT_EQ(ApplySettings(parts, choice), Outcome::Same);
    EXPECT_TRUE(shell.startsItself);
    EXPECT_TRUE(watch.ExactWindowName);
    EXPECT_EQ(value(u"DB"_s, u"ExactWindowName"_s), u"1");
    EXPECT_EQ(hotKeys.text(HotKeyId::Attach), u"Ctrl+Shift+N");
    EXPECT_EQ(value(u"HotKeys"_s, u"Attach.0"_s) + value(u"HotKeys"_s, u"Attach.1"_s), u"678");
    EXPECT_TRUE(keyboard.calls.isEmpty()) << "they are registered when the window goes";
    EXPECT_EQ(value(u"NoteBrowser"_s, u"ShowCategoryBar"_s), u"0");
    EXPECT_EQ(log, QStringList({u"categories"_s, u"no bar"_s}));
    EXPECT_EQ(value(u"DB"_s, u"Database"_s), u"-");
}

TEST_F(ApplyingSettings, StopsAtTheDatabaseWithTheStepsBeforeDone)
{
    choice.databaseFolder = otherFolder;
    EXPECT_EQ(ApplySettings(parts, choice), Outcome::Stopped);
    EXPECT_EQ(value(u"HotKeys"_s, u"Delete.1"_s), u"88");
    EXPECT_EQ(value(u"NoteBrowser"_s, u"ShowCategoryBar"_s), u"-");
    EXPECT_TRUE(log.isEmpty());

    // No to "proceed" leaves only the database out.
    fakes::script(prompts.answers, {Prompts::kYes, Prompts::kNo});
    EXPECT_EQ(ApplySettings(parts, choice), Outcome::Declined);
    EXPECT_EQ(log, QStringList({u"categories"_s, u"no bar"_s}));

    log.clear();
    fakes::script(prompts.answers, {Prompts::kYes});
    EXPECT_EQ(ApplySettings(parts, choice), Outcome::Changed);
    EXPECT_EQ(log, QStringList({u"editors"_s, u"database"_s, u"categories"_s, u"no bar"_s}));
}

TEST_F(ApplyingSettings, TellsAnErrorAndLeavesTheRest)
{
    shell.sessionError = kErrorFileAccess;
    EXPECT_EQ(ApplySettings(parts, choice), Outcome::Stopped);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes[0].text.contains(u"75"));
    EXPECT_EQ(hotKeys.text(HotKeyId::Attach), u"Ctrl+Alt+A");
}

} // namespace
