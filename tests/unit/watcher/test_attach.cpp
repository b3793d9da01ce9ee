#include "Desk.h"
#include "fakes/FakeNoteGridView.h"
#include "fakes/FakeNotices.h"
#include "fakes/FakePrompts.h"
#include "watcher/AttachWindow.h"
#include "watcher/NoteHotKeys.h"

#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::fakes;
using namespace norvane::tests;

namespace {

class Attach : public testing::Test, protected Desk
{
protected:
    Attach()
    {
        attach.setGrid(&grid);
        keys.setGrid(&grid);
    }
    FakeNotices notices;
    FakeNoteGridView grid;
    FakePrompts prompts;
    AttachWindow attach{parts, cycle, notices};
    NoteHotKeys keys{store, windows, location, forms, attach, notices, prompts};
};

} // namespace

TEST_F(Attach, AddsANoteOnceThatTheNextTickOpens)
{
    windows.programSuffixes = {u" — Mozilla Firefox"_qs};
    const WindowHandle window = openPage(u"Hello: you — Mozilla Firefox"_qs, u"http://a/b"_qs);
    EXPECT_TRUE(attach(QString(), window));
    const QMap<QString, QVariant> row = {
        {u"WindowName"_qs, u"Hello: you — Mozilla Firefox"_qs},
        {u"LocationName"_qs, u"Hello: you"_qs},
        {u"FriendlyName"_qs, u"Hello: you"_qs},
        {u"URL"_qs, u"http://a/b"_qs},
        {u"ClassName"_qs, u"IEFrame"_qs},
        {u"Active"_qs, true},
        {u"AutoSave"_qs, true},
        {u"AutoURLDetect"_qs, true},
        {u"DateCreated"_qs, clock.time},
        {u"LastUpdate"_qs, clock.time},
        {u"BackColor"_qs, 0xC0FFFF},
    };
    for (auto column = row.begin(); column != row.end(); ++column)
        EXPECT_EQ(noteField(1, column.key()), column.value()) << column.key().toStdString();
    EXPECT_FALSE(noteField(1, u"LastVisit"_qs).isValid());
    EXPECT_EQ(timer.interval(), 400);
    EXPECT_TRUE(timer.fireIfRequested());
    EXPECT_EQ(openNotes(), std::vector<int>{1});

    EXPECT_TRUE(attach(QString(), window));
    tick();
    EXPECT_EQ(noteCount(), 1);
    EXPECT_EQ(grid.refreshes, 1) << "the second time changes nothing";
    EXPECT_EQ(stickies.made.size(), 1u);
    EXPECT_TRUE(notices.shown.isEmpty());
}

TEST_F(Attach, MakesAClosedNoteActiveAgain)
{
    const int id = addNote(u"Page"_qs, u"http://a/"_qs, {{u"Active"_qs, false}});
    const WindowHandle window = openPage(u"Page"_qs, u"http://a/"_qs);
    tick();
    EXPECT_EQ(openNotes(), std::vector<int>());
    EXPECT_TRUE(attach(QString(), window));
    tick();
    EXPECT_EQ(openNotes(), std::vector<int>{id});
    EXPECT_EQ(noteCount(), 1);
    EXPECT_EQ(grid.refreshes, 1);
}

TEST_F(Attach, WhatCannotBeAttachedIsTold)
{
    EXPECT_FALSE(attach(QString(), openPage(u"Start page"_qs, QString())));
    EXPECT_EQ(notices.shown, QStringList{u"standing text"_qs});
    EXPECT_TRUE(timer.intervals.isEmpty()) << "the clock was not touched";
    EXPECT_FALSE(attach(QString(), openPage(QString(), u"http://a/"_qs))) << "no title, no record";
    EXPECT_EQ(notices.shown.last(), u"Can not attach to active window. (Code 91)"_qs);
    EXPECT_FALSE(attach(QString(), openPage(u"Page"_qs, u"http://a/\" and"_qs)));
    EXPECT_EQ(notices.shown.last(), u"Can not attach to active window. (Code 3075)"_qs);
    EXPECT_EQ(noteCount(), 0);
    EXPECT_EQ(timer.interval(), 400);
}

TEST_F(Attach, RightAfterAPageChangeItIsTheNewPageThatGetsTheNote)
{
    const WindowHandle window = openPage(u"First"_qs, u"http://first/"_qs);
    tick();
    shellWindows.setUnknown(window);
    windows.setCaption(window, u"Second"_qs);
    shellWindows.fresh[window] = u"http://second/"_qs;
    EXPECT_TRUE(attach(u"First"_qs, window));
    EXPECT_EQ(noteField(1, u"WindowName"_qs), u"Second"_qs);
    EXPECT_EQ(noteField(1, u"URL"_qs), u"http://second/"_qs);
}

TEST_F(Attach, WorksWithoutARunningClock)
{
    settings.WatchInterval = 0;
    timer.setInterval(0);
    const WindowHandle window = openDocument(u"a.txt - Editor"_qs, u"/usr/bin/editor"_qs);
    EXPECT_TRUE(attach(QString(), window));
    EXPECT_EQ(noteField(1, u"URL"_qs), u"/usr/bin/editor"_qs);
    EXPECT_EQ(timer.interval(), 0);
    EXPECT_FALSE(timer.tickRequested);
}

TEST_F(Attach, OnlyACategoryThatIsShownGoesIntoTheNote)
{
    const auto attached = [&](const QString &url) {
        EXPECT_TRUE(attach(QString(), openPage(u"Page"_qs + url, url)));
        return noteField(noteCount(), u"CAT_ID"_qs).toInt();
    };
    EXPECT_EQ(attached(u"http://all/"_qs), 0);
    grid.shownCategory = -1; // those that are in none
    EXPECT_EQ(attached(u"http://without/"_qs), 0);
    grid.shownCategory = 7;
    EXPECT_EQ(attached(u"http://seven/"_qs), 7);
    attach.setGrid(nullptr);
    EXPECT_EQ(attached(u"http://no-grid/"_qs), 0);
}

TEST_F(Attach, OddTitlesFindTheirNotesAgain)
{
    const QStringList titles = {
        u"He said \"yes\" and it's done"_qs,
        u"a|b|c"_qs,
        QString::fromUtf16(u"cut\0here", 8),
        QString(4000, u'x'),
        u"עברית – مرحبا"_qs,
        u"😀 note 👩‍👩‍👧"_qs,
        u"100% [a-z] * ? # _"_qs,
        u"') or 1=1; --"_qs,
        QString(253, u'y') + u"😀"_qs,
    };
    for (const bool exact : {false, true}) {
        settings.ExactWindowName = exact;
        for (int i = 0; i < titles.size(); ++i) {
            const WindowHandle window = openPage(titles[i], u"http://%1/%2/it's%20|x"_qs.arg(exact).arg(i));
            EXPECT_TRUE(attach(QString(), window)) << titles[i].left(40).toStdString();
            tick(2);
            ASSERT_EQ(openNotes().size(), 1) << titles[i].left(40).toStdString();
            EXPECT_EQ(stickies.open().first()->fields.ParentHwnd, window);
            windows.destroy(window);
            tick(2);
            ASSERT_EQ(openNotes().size(), 0);
        }
    }
    EXPECT_TRUE(notices.shown.isEmpty());
}

TEST_F(Attach, HotKeyAttachesTheFrontWindowOnly)
{
    const WindowHandle page = openPage(u"Page"_qs, u"http://a/"_qs);
    const WindowHandle other = windows.open(u"Untracked"_qs, u"Page"_qs);
    windows.foreground = other;
    keys.attachFrontWindow();
    EXPECT_EQ(notices.shown, QStringList{u"standing text"_qs});
    EXPECT_EQ(noteCount(), 0);

    windows.foreground = page;
    windows.actions.clear();
    keys.attachFrontWindow();
    EXPECT_EQ(noteCount(), 1);
    EXPECT_EQ(windows.actions.last(), u"setForegroundWindow %1"_qs.arg(page));
}

TEST_F(Attach, HotKeyClosesTheFirstNoteOfTheFrontWindow)
{
    const int first = addNote(u"Page"_qs, u"http://a/"_qs);
    const WindowHandle page = openPage(u"Page"_qs, u"http://a/"_qs);
    tick();
    FakeStickyNote second(forms, Clips, 777);
    second.fields.ParentHwnd = page;
    FakeStickyNote *closing = note(first);
    ASSERT_NE(closing, nullptr);

    windows.foreground = openPage(u"Other"_qs, u"http://b/"_qs);
    keys.closeFrontNote();
    EXPECT_FALSE(closing->unloaded);

    windows.foreground = page;
    keys.closeFrontNote();
    EXPECT_TRUE(closing->calls.contains(u"mnuFile_Close_Click"_qs));
    EXPECT_TRUE(second.calls.isEmpty());
    EXPECT_EQ(windows.actions.last(), u"setForegroundWindow %1"_qs.arg(page));
}

TEST_F(Attach, HotKeyDeletesOnlyWhenToldYes)
{
    const int id = addNote(u"Page"_qs, u"http://a/"_qs);
    files.files.insert(store.bodyFile(id), "{\\rtf1 text}");
    const WindowHandle page = openPage(u"Page"_qs, u"http://a/"_qs);
    tick();
    windows.foreground = page;
    keys.deleteFrontNote();
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes[0].text, u"Are you sure you want to delete 'Page'?"_qs);
    EXPECT_EQ(prompts.boxes[0].style, 4132);
    EXPECT_EQ(prompts.boxes[0].title, u"Norvane"_qs);
    EXPECT_EQ(noteCount(), 1);
    EXPECT_EQ(openNotes(), std::vector<int>{id});

    // The window closes while the question stands.
    prompts.answers.enqueue(Prompts::kYes);
    prompts.duringBox = [&](const FakePrompts::Box &) {
        windows.destroy(page);
        note(id)->unload();
    };
    keys.deleteFrontNote();
    EXPECT_EQ(noteCount(), 0);
    EXPECT_TRUE(files.files.isEmpty());
    EXPECT_EQ(grid.refreshes, 1);
    store.NoteIndex()->findFirst(u"ID=%1"_qs.arg(id));
    EXPECT_TRUE(store.NoteIndex()->noMatch());

    keys.deleteFrontNote();
    EXPECT_EQ(prompts.boxes.size(), 2) << "no note, no question";
}
