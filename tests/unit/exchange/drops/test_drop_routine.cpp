#include "exchange/drops/DropRoutine.h"
#include "exchange/drops/NewNoteForms.h"
#include "exchange/drops/dropped_texts.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeNoteGridView.h"
#include "platform/errors.h"
#include "shell/Forms.h"

#include <functional>
#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

/// Keeps what the dialogs would have shown; a line each, "name|location", with a "+" for the box.
class Dialogs : public NewNoteForms
{
public:
    QStringList shown;
    QStringList pressed; ///< with the category
    bool isBusy = false;
    bool wasBusyBehindDialog = false;
    bool wasIdleBehindPress = false;
    int error = 0; ///< what a press raises
    std::function<void(NewNoteDrop &)> duringDialog;

    void setBusy(bool busy) override { isBusy = busy; }
    void show(const Contents &contents, NewNoteDrop &drop) override
    {
        wasBusyBehindDialog = wasBusyBehindDialog || isBusy;
        shown.append(line(contents));
        if (duringDialog)
            duringDialog(drop);
    }
    void pressOk(const Contents &contents, NewNoteDrop &drop) override
    {
        wasIdleBehindPress = wasIdleBehindPress || !isBusy;
        if (error)
            throw RuntimeError(error, u"No room."_s);
        pressed.append(line(contents) + u' ' + QString::number(drop.appliedCategory));
    }

private:
    static QString line(const Contents &contents)
    {
        return contents.name + u'|' + contents.location + (contents.hasApply ? u"+"_s : QString());
    }
};

/// A form that is loaded.
class LoadedForm : public Form
{
public:
    QString formName() const override { return u"frmNewNote"_s; }
    WindowHandle hWnd() const override { return 1; }
    void unload() override {}
};

class Drops : public testing::Test
{
protected:
    Drops()
    {
        files.addFolder(u"/in/Letters"_s);
        for (const QString &name : {u"one.v2.txt"_s, u"two.rtf"_s, u".profile"_s, u"three"_s})
            files.files.insert(u"/in/"_s + name, "x");
    }

    FormList forms;
    fakes::FakeFileSystem files;
    fakes::FakeEventLoop events;
    fakes::FakeNoteGridView browser;
    Dialogs dialogs;
    DropRoutine routine{
        {.forms = forms, .files = files, .events = events, .dialogs = dialogs, .browser = browser}};
};

TEST_F(Drops, LocationsAreToldFromOtherTexts)
{
    const std::pair<QString, bool> rows[] = {
        {u"/in/two.rtf"_s, true},
        {u"  /in/Letters \n"_s, true},
        {u"/in/none"_s, false},
        {u"https://example.org/?q=a b"_s, true},
        {u"see https://example.org"_s, true},
        {u"\\\\server\\share"_s, true},
        {u"C:\\notes"_s, false},
        {u"www.example.org"_s, false},
    };
    for (const auto &[text, isLocation] : rows) {
        QString s = text;
        EXPECT_EQ(IsLocationText(s, files), isLocation) << text.toStdString();
        EXPECT_EQ(s, text.trimmed());
    }
}

TEST_F(Drops, FilesHaveNames)
{
    const std::tuple<QString, QString, QString> rows[] = {
        {u"/in/report.v2.txt"_s, u"report.v2.txt"_s, u"report"_s},
        {u"/in.d/report"_s, u"report"_s, u"report"_s},
        {u"report.txt"_s, u"report.txt"_s, u"report"_s},
        {u"/in/"_s, QString(), QString()},
        {u"/in/.profile"_s, u".profile"_s, QString()},
    };
    for (const auto &[path, name, plain] : rows) {
        EXPECT_EQ(FileNameOf(path, false), name) << path.toStdString();
        EXPECT_EQ(FileNameOf(path, true), plain) << path.toStdString();
    }
    EXPECT_EQ(noteNameOf(u"/in/.profile"_s), u".profile"_s);
    EXPECT_EQ(noteNameOf(u"/"_s), u"/"_s);
    EXPECT_EQ(noteNameOf(u"file:///in/a%20b%E9.txt"_s), u"a b\uFFFD"_s);
}

TEST_F(Drops, EachFileHasItsDialog)
{
    dialogs.duringDialog = [this](NewNoteDrop &drop) {
        drop.newNoteCancelled = dialogs.shown.size() == 1; // without the box it is only this one
    };
    routine.run({u"/in/one.v2.txt"_s, u"/in/none.txt"_s, u"/in/Letters"_s}, u"https://example.org"_s);
    EXPECT_EQ(dialogs.shown, (QStringList{u"one|/in/one.v2.txt+"_s, u"Letters|/in/Letters+"_s}));
    EXPECT_EQ(browser.refreshes, 1);
    EXPECT_EQ(browser.aroundRefreshes, 1);

    routine.run({u"/in/.profile"_s}, {});
    EXPECT_EQ(dialogs.shown.last(), u".profile|/in/.profile"_s) << "one file, no box";
    EXPECT_FALSE(dialogs.isBusy || dialogs.wasBusyBehindDialog);
}

TEST_F(Drops, AppliesTheFirstDialogToTheRest)
{
    dialogs.duringDialog = [](NewNoteDrop &drop) {
        drop.applyToAll = true;
        drop.appliedCategory = 7;
    };
    const QStringList three{u"/in/one.v2.txt"_s, u"/in/two.rtf"_s, u"/in/three"_s};
    routine.run(three, {});
    EXPECT_EQ(dialogs.shown, QStringList{u"one|/in/one.v2.txt+"_s});
    EXPECT_EQ(dialogs.pressed, (QStringList{u"two|/in/two.rtf+ 7"_s, u"three|/in/three+ 7"_s}));
    EXPECT_FALSE(dialogs.isBusy || dialogs.wasIdleBehindPress);
    EXPECT_EQ(browser.refreshes, 1);

    // What one drop was told is not the next one's; Cancel with the box ends all of it.
    dialogs.pressed.clear();
    dialogs.duringDialog = [](NewNoteDrop &drop) {
        EXPECT_FALSE(drop.applyToAll);
        drop.applyToAll = drop.newNoteCancelled = true;
    };
    routine.run(three, {});
    EXPECT_EQ(dialogs.shown.size(), 2);
    EXPECT_TRUE(dialogs.pressed.isEmpty());
    EXPECT_EQ(browser.refreshes, 2);

    dialogs.duringDialog = [](NewNoteDrop &drop) { drop.applyToAll = true; };
    dialogs.error = kErrorDiskFull;
    routine.run(three, {});
    EXPECT_TRUE(dialogs.pressed.isEmpty());
    EXPECT_FALSE(dialogs.isBusy);
    EXPECT_EQ(browser.refreshes, 3);
}

TEST_F(Drops, ATextIsNameAndLocation)
{
    routine.run({}, u" https://example.org/a "_s);
    EXPECT_EQ(dialogs.shown, QStringList{u"https://example.org/a|https://example.org/a"_s});
    routine.run({}, u"Only some words"_s);
    EXPECT_EQ(dialogs.shown.size(), 1);
    EXPECT_EQ(browser.refreshes, 2);
}

TEST_F(Drops, ASecondDropOnTheWayOnlyRefreshes)
{
    dialogs.duringDialog = [this](NewNoteDrop &drop) {
        drop.applyToAll = true;
        routine.run({u"/in/three"_s}, {});
    };
    events.duringYield = [this] { routine.run({u"/in/three"_s}, {}); };
    routine.run({u"/in/one.v2.txt"_s, u"/in/two.rtf"_s}, {});
    EXPECT_EQ(dialogs.shown.size() + dialogs.pressed.size(), 2);
    EXPECT_EQ(browser.refreshes, 3);

    LoadedForm open; // by the command for a new note
    forms.add(&open);
    routine.run({u"/in/three"_s}, {});
    EXPECT_EQ(dialogs.shown.size() + dialogs.pressed.size(), 2);
    EXPECT_EQ(browser.refreshes, 4);
}

} // namespace
