#include "OptionsOnTheDesktop.h"
#include "harness/PageServer.h"
#include "harness/Programs.h"

#include <csignal>

using namespace norvane;
using namespace norvane::test;

namespace {

TEST_F(OptionsOnTheDesktop, AnotherKeyAttachesAndAnotherProgramIsTracked)
{
    PageServer pages;
    startFirefox(m_desktop, u"options"_s, {pages.addPage(u"/garden"_s, u"Garden plan"_s, u"Beans."_s)});
    m_desktop.run(u"xterm"_s,
                  {u"-title"_s, u"Old terminal"_s, u"-geometry"_s, u"80x24+20+40"_s, u"-e"_s, u"cat"_s});
    const xcb_window_t page = window(u"Garden plan"_s, u"firefox"_s, kRight);
    xcb_window_t terminal = 0;
    ASSERT_TRUE(waitFor([&] {
        terminal = x().findClient(u"Old terminal"_s, u"xterm"_s);
        return terminal != 0 && x().isViewable(terminal);
    }));
    ASSERT_TRUE(page != 0 && startNorvane());

    ASSERT_TRUE(openOptions());
    EXPECT_FALSE(x().isTaken(u"ctrl+alt+a"_s)) << "withdrawn while the window is open";
    goTo(-1, 3);
    x().press(u"ctrl+alt+n"_s);
    x().press(u"Return"_s);
    ASSERT_TRUE(isClosed(u"Norvane Options"_s));
    EXPECT_TRUE(waitFor([&] { return x().isTaken(u"ctrl+alt+n"_s); }));
    EXPECT_FALSE(x().isTaken(u"ctrl+alt+a"_s));
    EXPECT_TRUE(waitFor([&] { return settings().contains(u"Attach.1=78"_s); }));

    const auto attachByNewKey = [&](xcb_window_t target) {
        if (!m_norvane.bringToFront(target))
            return false;
        for (int attempt = 0; attempt < 5 && m_norvane.noteOn(target) == 0; ++attempt) {
            x().press(u"ctrl+alt+n"_s);
            waitFor([&] { return m_norvane.noteOn(target) != 0; }, 4000);
        }
        return m_norvane.noteOn(target) != 0;
    };
    EXPECT_TRUE(attachByNewKey(page));
    ASSERT_TRUE(m_norvane.bringToFront(terminal));
    x().press(u"ctrl+alt+n"_s);
    EXPECT_FALSE(waitFor([&] { return m_norvane.noteOn(terminal) != 0; }, kSeveralTicksMs));

    ASSERT_TRUE(openOptions());
    goTo(1, 3);
    x().type(u"xterm"_s);
    x().press(u"Return"_s);
    EXPECT_TRUE(waitFor([&] { return settings().contains(u"01=xterm"_s); }));
    x().press(u"Escape"_s);
    ASSERT_TRUE(isClosed(u"Norvane Options"_s));
    EXPECT_TRUE(attachByNewKey(terminal));
}

TEST_F(OptionsOnTheDesktop, APasswordLocksTheDatabase)
{
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(editor != 0 && startNorvane());
    ASSERT_NE(writeNote(editor, u"Secret recipe of aunt Ada."_s), 0u);
    EXPECT_TRUE(bytesOf(m_norvane.databaseFile()).contains("Secret recipe"));

    ASSERT_TRUE(openOptions());
    goTo(-3, 11);
    x().type(u"sesame"_s);
    x().press(u"Tab"_s);
    x().type(u"sesame"_s);
    x().press(u"Return"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane"_s)) << "told";
    x().press(u"Return"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane Options"_s));
    x().press(u"Escape"_s);
    ASSERT_TRUE(isClosed(u"Norvane Options"_s));
    ASSERT_TRUE(m_norvane.end());
    const QByteArray locked = bytesOf(m_norvane.databaseFile());
    EXPECT_FALSE(locked.startsWith("SQLite format") || locked.contains("Secret recipe") ||
                 locked.contains("FriendlyName") || locked.contains("draft.txt"));
    EXPECT_TRUE(m_norvane.query(u"select count(*) from Memos"_s).contains(u"not a database"_s));

    // Not without it.
    ASSERT_TRUE(m_norvane.start());
    ASSERT_TRUE(becomesTitled(u"Norvane Password"_s));
    x().type(u"open"_s);
    x().press(u"Return"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane Security"_s));
    x().press(u"Return"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane Password"_s));
    x().press(u"Escape"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane Internal Error"_s));
    x().press(u"Return"_s);
    EXPECT_TRUE(waitFor([&] { return !m_norvane.isRunning(); }));
    EXPECT_EQ(bytesOf(m_norvane.databaseFile()), locked);

    ASSERT_TRUE(m_norvane.start());
    ASSERT_TRUE(becomesTitled(u"Norvane Password"_s));
    x().type(u"sesame"_s);
    x().press(u"Return"_s);
    ASSERT_TRUE(waitFor([&] { return m_norvane.isArmed(); }));
    EXPECT_TRUE(waitFor([&] { return m_norvane.noteOn(editor) != 0; })) << "its note is back";
}

TEST_F(OptionsOnTheDesktop, AnotherDatabaseTakesTheNotesAwayAndGivesThemBack)
{
    const QString other = m_desktop.home() + u"/Other"_s;
    QDir().mkpath(other);
    QDir().mkpath(m_desktop.home() + u"/.config/norvane"_s);
    ASSERT_TRUE(
        putBytes(m_desktop.home() + u"/.config/norvane/norvane.conf"_s,
                 "[DB]\nMRU1=" + other.toUtf8() + "/\nMRU2=" + m_norvane.notesFolder().toUtf8() + "/\n"));
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(editor != 0 && startNorvane());
    const xcb_window_t first = writeNote(editor, u"In the first database."_s);
    ASSERT_NE(first, 0u);

    ASSERT_TRUE(changeDatabase(u"Home"_s, 2)) << "it is made first";
    EXPECT_TRUE(waitFor([&] { return !x().exists(first) || !x().isViewable(first); }));
    EXPECT_FALSE(waitFor([&] { return m_norvane.noteOn(editor) != 0; }, kSeveralTicksMs));
    EXPECT_TRUE(QFile::exists(other + u"/Norvane.DAT"_s));
    const xcb_window_t second = m_norvane.attach(editor);
    ASSERT_TRUE(second != 0 && m_norvane.typeInto(second, u"In the second."_s));
    x().press(u"ctrl+s"_s);
    const QString secondBody = other + u"/Norvane_00000001"_s;
    ASSERT_TRUE(waitFor([&] { return bytesOf(secondBody).contains("In the second."); }));

    ASSERT_TRUE(changeDatabase(u"End"_s, 1));
    ASSERT_TRUE(waitFor([&] {
        const xcb_window_t note = m_norvane.noteOn(editor);
        return note != 0 && note != second;
    })) << "its note is back";
    x().activate(editor); // which is behind the frame, and so is its note
    ASSERT_TRUE(waitFor([&] { return x().activeWindow() == editor; }));
    ASSERT_TRUE(m_norvane.typeInto(m_norvane.noteOn(editor), u" Again."_s));
    x().press(u"ctrl+s"_s);
    EXPECT_TRUE(waitFor([&] { return texts() == "1|In the first database. Again."; }));
    EXPECT_FALSE(bytesOf(secondBody).contains("Again."));
}

TEST_F(OptionsOnTheDesktop, TheSessionsEntryStartsIt)
{
    ASSERT_TRUE(startNorvane());
    ASSERT_TRUE(openOptions());
    goTo(-3, 1);
    x().type(u" "_s);
    x().press(u"alt+o"_s);
    ASSERT_TRUE(isClosed(u"Norvane Options"_s));
    ASSERT_TRUE(m_norvane.end());
    ASSERT_FALSE(x().isTaken(u"ctrl+alt+a"_s));

    // By another program's reading of the entry.
    m_desktop.run(u"gio"_s, {u"launch"_s, m_desktop.home() + u"/.config/autostart/norvane.desktop"_s});
    ASSERT_TRUE(waitFor([&] { return x().isTaken(u"ctrl+alt+a"_s); }));
    ASSERT_TRUE(waitFor([&] { return x().isTaken(u"ctrl+alt+w"_s); }));
    x().press(u"ctrl+alt+w"_s);
    xcb_window_t frame = 0;
    ASSERT_TRUE(waitFor([&] { return (frame = x().findClient(u"Norvane"_s, u"norvane"_s)) != 0; }));
    const auto process = static_cast<pid_t>(x().processId(frame));
    ASSERT_GT(process, 0);
    EXPECT_EQ(::kill(process, SIGTERM), 0);
    EXPECT_TRUE(waitFor([&] { return !x().isTaken(u"ctrl+alt+a"_s); }));
}

} // namespace
