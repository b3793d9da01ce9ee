#include "NotesOnWindows.h"

using namespace norvane;
using namespace norvane::test;
using namespace Qt::StringLiterals;

namespace {

/// The Window List and the Run window of the whole program, driven by their keys.
class WindowListOnTheDesktop : public NotesOnWindows
{
protected:
    /// Locations are those of programs here, and with the bus the toolkit loses keys on a busy machine.
    VirtualDesktop::Options desktopOptions() const override { return {.accessibility = false}; }

    /// A window of the program by its title; 0 if none is on the screen.
    xcb_window_t ours(const QString &title)
    {
        for (const xcb_window_t window : m_norvane.shownWindows()) {
            if (x().title(window) == title)
                return window;
        }
        return 0;
    }
    bool isActive(const QString &title)
    {
        return waitFor([&] { return active(title) != 0; });
    }
    bool isGone(const QString &title)
    {
        return waitFor([&] { return ours(title) == 0; });
    }
    /// By its hot key. The program has seen the windows when the list lists them.
    bool openList()
    {
        x().press(u"ctrl+alt+l"_s);
        return isActive(kList);
    }
    bool backToList() { return m_norvane.bringToFront(ours(kList)); }
    bool becomesActive(xcb_window_t window)
    {
        return waitFor([&] { return x().activeWindow() == window && x().isViewable(window); });
    }

    const QString kList = u"Window List"_s;
};

TEST_F(WindowListOnTheDesktop, AttachesANoteAndDetachesIt)
{
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(editor != 0 && startNorvane());
    ASSERT_TRUE(openList());
    x().press(u"alt+a"_s);
    ASSERT_TRUE(waitFor([&] { return m_norvane.noteOn(editor) != 0; }));
    EXPECT_EQ(m_norvane.query(u"select URL, Active from Memos"_s).toStdString(), "/usr/bin/mousepad|-1");

    ASSERT_TRUE(backToList());
    x().press(u"alt+d"_s);
    EXPECT_TRUE(waitFor([&] { return m_norvane.noteOn(editor) == 0; }));
    EXPECT_TRUE(becomesActive(editor));
    EXPECT_FALSE(waitFor([&] { return m_norvane.noteOn(editor) != 0; }, kSeveralTicksMs)) << "it stays away";

    x().press(u"ctrl+alt+l"_s);
    EXPECT_TRUE(isGone(kList)) << "the key that opened it";
}

TEST_F(WindowListOnTheDesktop, SwitchesToAMinimisedWindowAndStaysOnTop)
{
    const xcb_window_t folder = openFolder(u"papers"_s, kLeft);
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(folder != 0 && editor != 0 && startNorvane());
    x().minimise(editor);
    ASSERT_TRUE(waitFor([&] { return !x().isViewable(editor); }));
    ASSERT_TRUE(openList());
    x().type(u"draft"_s); // finds the row
    x().press(u"alt+s"_s);
    EXPECT_TRUE(becomesActive(editor));

    ASSERT_TRUE(backToList());
    x().press(u"shift+Tab"_s); // to the button of the views, and the last entry of its menu
    x().press(u"Down"_s);
    ASSERT_TRUE(waitFor([&] {
        const xcb_window_t menu = x().menuOfProcess(m_norvane.process()->processId());
        return menu != 0 && x().isViewable(menu);
    }));
    x().press(u"Up"_s);
    x().press(u"Return"_s);
    ASSERT_TRUE(waitFor([&] { return x().menuOfProcess(m_norvane.process()->processId()) == 0; }));
    x().moveResize(editor, kLeft);
    ASSERT_TRUE(m_norvane.bringToFront(editor));
    EXPECT_TRUE(waitFor([&] { return x().stacking().last() == ours(kList); }))
        << "above what was brought to the front";

    ASSERT_TRUE(backToList());
    x().press(u"Tab"_s); // back to the rows: the chosen one is chosen still
    x().press(u"Return"_s);
    EXPECT_TRUE(isGone(kList));
    EXPECT_TRUE(becomesActive(editor));
}

TEST_F(WindowListOnTheDesktop, RunsAProgramAndTellsOfOneThatIsNotThere)
{
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(editor != 0 && startNorvane());
    ASSERT_TRUE(putBytes(m_desktop.home() + u"/second letter.txt"_s, "Dear Ada\n"));
    ASSERT_TRUE(openList());
    x().press(u"alt+r"_s);
    ASSERT_TRUE(isActive(u"New Task"_s));
    x().type(u"no-such-program"_s);
    x().press(u"Return"_s);
    ASSERT_TRUE(isActive(u"Norvane"_s)) << "a box that tells it";
    x().press(u"Return"_s);
    ASSERT_TRUE(isActive(u"New Task"_s));
    x().type(u"mousepad --disable-server ~/second\\ letter.txt"_s);
    x().press(u"Return"_s);
    EXPECT_TRUE(isGone(u"New Task"_s));
    EXPECT_NE(window(u"second letter.txt"_s, u"mousepad"_s, kLeft), 0u);
    EXPECT_TRUE(waitFor([&] {
        return bytesOf(m_desktop.home() + u"/.config/norvane/norvane.conf"_s).contains("Command1=");
    }));
}

} // namespace
