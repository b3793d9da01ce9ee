#include "TwoDatabases.h"
#include "exchange/import/start_import.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakePrompts.h"
#include "store/PasswordDialogModel.h"

using namespace norvane;
using namespace norvane::test;

namespace {

class StartingAnImport : public testing::Test, protected TwoDatabases
{
protected:
    StartingAnImport() { other.store.close(); }

    /// The folder and the password that an import would take, or the box that says why there is none.
    QString start(const QString &sourceFolder)
    {
        prompts.boxes.clear();
        const StartImportParts parts{.store = store,
                                     .prompts = prompts,
                                     .events = events,
                                     .askPassword = [this](PasswordDialogModel &model) {
                                         explanation = model.explanation();
                                         if (typed.isEmpty())
                                             model.Command2_Click();
                                         else
                                             model.Command1_Click(typed);
                                     }};
        const auto place = startImport(parts, sourceFolder, u"/the/box/"_s);
        if (place)
            return place->folder + u'|' + place->password;
        if (prompts.boxes.isEmpty())
            return {};
        return u"%1 %2"_s.arg(prompts.boxes.last().style).arg(prompts.boxes.last().text);
    }

    fakes::FakePrompts prompts;
    fakes::FakeEventLoop events;
    QString typed;
    QString explanation; ///< what the password dialog has shown
    const QString otherFolder = other.store.DatabaseFolder;
};

TEST_F(StartingAnImport, NeedsADatabaseThatNobodyHas)
{
    EXPECT_EQ(start({}), u"48 Database path is invalid.");
    EXPECT_EQ(start(u"/nowhere/"_s), u"48 Norvane database not found.");
    EXPECT_EQ(start(otherFolder.chopped(1)), u"48 Norvane database not found.") << "joined as it is";
    const QString locked = u"16 Can not start Norvane database.\r\nDatabase located in '/the/box/' is "
                           "currently locked by another user."_s;
    EXPECT_EQ(start(store.DatabaseFolder), locked) << "the open database itself";
    other.store.open();
    EXPECT_EQ(start(otherFolder), locked);
    other.store.close();
    EXPECT_EQ(start(otherFolder), otherFolder + u'|');
    EXPECT_TRUE(explanation.isEmpty());
}

TEST_F(StartingAnImport, AsksForThePasswordAndKeepsItToItself)
{
    store.DatabasePassword = u"mine"_s;
    other.setPassword(other.store.DatabaseFile, u"sesame"_s);
    EXPECT_EQ(start(otherFolder), QString());
    EXPECT_EQ(explanation, u"The database is protected by a password.");
    typed = u"open"_s;
    EXPECT_EQ(start(otherFolder), u"16 Invalid Password!");
    typed = u"sesame"_s;
    EXPECT_EQ(start(otherFolder), otherFolder + u"|sesame"_s);
    EXPECT_EQ(store.DatabasePassword, u"mine");
    EXPECT_EQ(store.DatabaseFolder, folder.path() + u'/');

    otherPassword = typed;
    EXPECT_EQ(import({}).failure, std::nullopt);
}

TEST_F(StartingAnImport, AFileOfAnotherKindStaysOutAndAsItIs)
{
    typed = u"guess"_s;
    for (const QByteArray &bytes :
         {QByteArray(), QByteArray("shopping list"), QByteArray("PK\x03\x04\xff").repeated(1000)}) {
        ASSERT_TRUE(putBytes(other.store.DatabaseFile, bytes));
        const auto before = everythingIn(otherFolder);
        EXPECT_EQ(start(otherFolder), u"16 Invalid Password!");
        EXPECT_TRUE(explanation.contains(u"not a database of this program"));
        EXPECT_EQ(everythingIn(otherFolder), before);
    }
}

} // namespace
