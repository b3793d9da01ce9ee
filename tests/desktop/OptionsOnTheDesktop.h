#pragma once

#include "NotesOnWindows.h"

namespace norvane::test {

using namespace Qt::StringLiterals;

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

} // namespace norvane::test
