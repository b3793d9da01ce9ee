#include "NotesOnWindows.h"

using namespace norvane;
using namespace norvane::test;
using namespace Qt::StringLiterals;

namespace {

/// The Options window of the whole program, driven by its keys.
class OptionsOnTheDesktop : public NotesOnWindows
{
protected:
    /// The window opens on the fourth of its pages, with the keyboard on their row.
    bool openOptions()
    {
        for (int attempt = 0; attempt < 5; ++attempt) {
            if (titled(u"Norvane"_s) == 0)
                x().press(u"ctrl+alt+w"_s);
            if (!waitFor([&] { return titled(u"Norvane"_s) != 0; }, 5000))
                continue;
            x().press(u"alt+n"_s);
            // A key that comes before the menu would be the list's.
            if (!waitFor([&] { return isMenuOpen(); }, 4000))
                continue;
            x().press(u"o"_s);
            if (waitFor([&] { return titled(u"Norvane Options"_s) != 0; }, 4000))
                return true;
            x().press(u"Escape"_s);
        }
        return false;
    }
    /// Whether a menu or the list of a box is open.
    bool isMenuOpen()
    {
        const xcb_window_t menu = x().menuOfProcess(m_norvane.process()->processId());
        return menu != 0 && x().isViewable(menu);
    }
    /// Goes to another page, and to the control that so many Tabs lead to.
    void goTo(int pages, int tabs)
    {
        for (int i = 0; i < std::abs(pages); ++i)
            x().press(pages < 0 ? u"Left"_s : u"Right"_s);
        for (int i = 0; i < tabs; ++i)
            x().press(u"Tab"_s);
    }
    /// The window of the program that has the keyboard, if that is its title; no menu is open.
    xcb_window_t titled(const QString &title)
    {
        const xcb_window_t window = x().activeWindow();
        const bool isOurs = m_norvane.shownWindows().contains(window);
        return isOurs && x().title(window) == title ? window : 0;
    }
    bool becomesTitled(const QString &title)
    {
        return waitFor([&] { return titled(title) != 0; });
    }
    bool isClosed(const QString &title)
    {
        return waitFor([&] {
            for (const xcb_window_t window : m_norvane.shownWindows()) {
                if (x().title(window) == title)
                    return false;
            }
            return true;
        });
    }
    /// Answers the questions of a change of the database with Yes, until the window is closed.
    bool answerYes(int questions)
    {
        constexpr int kFrameWidth = 800; // less than that of the frame, more than that of a box
        for (int i = 0; i < questions; ++i) {
            const auto box = [&] {
                const xcb_window_t window = titled(u"Norvane"_s);
                return window != 0 && x().geometry(window).width() < kFrameWidth ? window : 0;
            };
            if (!waitFor([&] { return box() != 0; }))
                return false;
            const xcb_window_t asked = box();
            x().press(u"alt+y"_s);
            if (!waitFor([&] { return !x().exists(asked) || !x().isViewable(asked); }))
                return false;
        }
        return isClosed(u"Norvane Options"_s);
    }
    /// Changes to a database of the list of recent ones.
    /// @param key leads to it in the list
    bool changeDatabase(const QString &key, int questions)
    {
        if (!openOptions())
            return false;
        goTo(-3, 3);
        x().press(u"Down"_s);
        if (!waitFor([&] { return isMenuOpen(); }))
            return false;
        x().press(key);
        x().press(u"Return"_s);
        // A key that comes while it closes would be the list's.
        if (!waitFor([&] { return !isMenuOpen(); }))
            return false;
        x().press(u"Return"_s);
        return answerYes(questions);
    }
    QString settings() const
    {
        return QString::fromUtf8(bytesOf(m_desktop.home() + u"/.config/norvane/norvane.conf"_s));
    }
};

TEST_F(OptionsOnTheDesktop, AnotherKeyAttachesAndAnotherProgramIsTracked)
{
    m_desktop.run(u"xmessage"_s, {u"-title"_s, u"Reminder"_s, u"An old program."_s});
    const xcb_window_t message = window(u"Reminder"_s, u"xmessage"_s, kLeft);
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(message != 0 && editor != 0 && startNorvane());

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
    EXPECT_TRUE(attachByNewKey(editor));
    ASSERT_TRUE(m_norvane.bringToFront(message));
    x().press(u"ctrl+alt+n"_s);
    EXPECT_FALSE(waitFor([&] { return m_norvane.noteOn(message) != 0; }, kSeveralTicksMs));

    ASSERT_TRUE(openOptions());
    goTo(1, 3);
    x().type(u"xmessage"_s);
    x().press(u"Return"_s);
    EXPECT_TRUE(waitFor([&] { return settings().contains(u"01=xmessage"_s); }));
    x().press(u"Escape"_s);
    ASSERT_TRUE(isClosed(u"Norvane Options"_s));
    EXPECT_TRUE(attachByNewKey(message));
}

TEST_F(OptionsOnTheDesktop, APasswordLocksTheDatabase)
{
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(editor != 0 && startNorvane());
    ASSERT_NE(writeNote(editor, u"Secret recipe of aunt Ada."_s), 0u);
    EXPECT_TRUE(bytesOf(m_norvane.databaseFile()).contains("Secret recipe"));

    ASSERT_TRUE(openOptions());
    goTo(-3, 10);
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
    ASSERT_TRUE(m_norvane.typeInto(m_norvane.noteOn(editor), u" Again."_s));
    x().press(u"ctrl+s"_s);
    EXPECT_TRUE(waitFor([&] { return texts() == "1|In the first database. Again."; }));
    EXPECT_FALSE(bytesOf(secondBody).contains("Again."));
}

} // namespace
