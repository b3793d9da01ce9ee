#pragma once

#include "file_bytes.h"
#include "harness/RunningNorvane.h"
#include "harness/WindowLog.h"

#include <QDir>
#include <gtest/gtest.h>

namespace norvane::test {

/// Long enough for several looks at the desktop: what has not come by then does not come.
inline constexpr int kSeveralTicksMs = 1500;

/// A browser is wider than any other window of the program, its splash among them.
inline constexpr int kLeastBrowserWidth = 800;

inline const QRect kLeft(20, 40, 620, 560);
inline const QRect kRight(650, 40, 620, 560);

/// The whole program, with real windows on a desktop of its own.
class NotesOnWindows : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_desktop.start(desktopOptions())) << qPrintable(m_desktop.error());
        m_log = std::make_unique<WindowLog>(m_desktop.display());
    }

    void TearDown() override
    {
        if (HasFailure())
            std::fprintf(stderr, "%s%s\n%s", qPrintable(x().whatIsThere()), texts().c_str(),
                         qPrintable(m_norvane.errorOutput()));
        if (m_norvane.process() == nullptr)
            return;
        EXPECT_TRUE(m_norvane.isRunning() ? m_norvane.end() : m_norvane.hasEndedWell())
            << qPrintable(m_norvane.errorOutput());
    }

    /// What kind of desktop the tests of a class run on.
    virtual VirtualDesktop::Options desktopOptions() const { return {}; }

    XClient &x() { return m_desktop.x(); }

    bool startNorvane()
    {
        return m_norvane.start() && waitFor([this] { return m_norvane.isArmed(); });
    }

    /// Waits for a program's window and gives it a place. @return 0 if it did not come
    xcb_window_t window(const QString &title, const QString &wmClass, const QRect &rect)
    {
        xcb_window_t found = 0;
        if (!waitFor(
                [&] {
                    found = x().findClient(title, wmClass);
                    return found != 0 && x().isViewable(found);
                },
                60000))
            return 0;
        x().setMaximised(found, false);
        x().moveResize(found, rect);
        return waitFor([&] { return x().geometry(found).size() == rect.size(); }) ? found : 0;
    }

    xcb_window_t openFolder(const QString &name, const QRect &rect)
    {
        const QString path = m_desktop.home() + QLatin1Char('/') + name;
        QDir().mkpath(path);
        m_desktop.run(QStringLiteral("thunar"), {path});
        return window(name, QStringLiteral("thunar"), rect);
    }

    xcb_window_t openEditor(const QRect &rect)
    {
        const QString file = m_desktop.home() + QStringLiteral("/draft.txt");
        if (!putBytes(file, "A text file.\n"))
            return 0;
        m_desktop.run(QStringLiteral("mousepad"), {QStringLiteral("--disable-server"), file});
        return window(QStringLiteral("draft.txt"), QStringLiteral("mousepad"), rect);
    }

    /// A new note on a window, with a text that is saved.
    xcb_window_t writeNote(xcb_window_t target, const QString &text)
    {
        const xcb_window_t note = m_norvane.attach(target);
        if (note == 0 || !m_norvane.typeInto(note, text))
            return 0;
        // A save that overtakes the last keys is tried again.
        const auto isSaved = [&] { return texts().find(text.toStdString()) != std::string::npos; };
        for (int attempt = 0; attempt < 5; ++attempt) {
            x().press(QStringLiteral("ctrl+s"));
            if (waitFor(isSaved, 4000))
                return note;
        }
        return 0;
    }

    /// The rows as "ID|text", one a line.
    std::string texts() const
    {
        return m_norvane.query(QStringLiteral("select ID, NoteText from Memos order by ID")).toStdString();
    }

    /// Opens the browser by its hot key; its list has the keyboard then. @return 0 if it did not come
    xcb_window_t openBrowser()
    {
        x().press(QStringLiteral("ctrl+alt+w"));
        xcb_window_t browser = 0;
        waitFor([&] {
            browser = active(QStringLiteral("Norvane"));
            return browser != 0 && x().geometry(browser).width() > kLeastBrowserWidth; // and no splash
        });
        return browser;
    }

    /// The window of the program that has the keyboard, if its title contains that.
    xcb_window_t active(const QString &title)
    {
        const xcb_window_t window = x().activeWindow();
        return m_norvane.shownWindows().contains(window) && x().title(window).contains(title) ? window : 0;
    }

    bool isInside(xcb_window_t note, xcb_window_t target)
    {
        return x().geometryInShadow(target).contains(x().geometry(note));
    }

    /// Several looks at the desktop later the note is still the one on its window.
    bool stays(xcb_window_t note, xcb_window_t target)
    {
        return !waitFor([&] { return m_norvane.noteOn(target) != note; }, kSeveralTicksMs);
    }

    static std::string text(const QRect &rect) { return test::text(rect).toStdString(); }

    VirtualDesktop m_desktop;
    RunningNorvane m_norvane{m_desktop, QStringLiteral(NORVANE_PROGRAM)};
    std::unique_ptr<WindowLog> m_log;
};

} // namespace norvane::test
