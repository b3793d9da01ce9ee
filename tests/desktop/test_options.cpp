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
            if (!waitFor(
                    [&] {
                        const xcb_window_t menu = x().menuOfProcess(m_norvane.process()->processId());
                        return menu != 0 && x().isViewable(menu);
                    },
                    4000))
                continue;
            x().press(u"o"_s);
            if (waitFor([&] { return titled(u"Norvane Options"_s) != 0; }, 4000))
                return true;
            x().press(u"Escape"_s);
        }
        return false;
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

} // namespace
