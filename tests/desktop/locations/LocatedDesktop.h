#pragma once

#include "harness/VirtualDesktop.h"
#include "platform/linux/LinuxShellWindows.h"
#include "platform/x11/X11WindowSystem.h"

#include <gtest/gtest.h>

namespace norvane::test {

/// A virtual desktop whose windows' locations are asked for by the program's own backends.
class LocatedDesktop
{
protected:
    void startDesktop(bool accessibility = true)
    {
        ASSERT_TRUE(m_desktop.start({.accessibility = accessibility})) << m_desktop.error().toStdString();
        qputenv("DISPLAY", m_desktop.display().toLatin1());
        m_windows = std::make_unique<X11WindowSystem>();
        const QString bus = m_desktop.sessionBus();
        m_shell = std::make_unique<LinuxShellWindows>(
            *m_windows, DesktopSession{bus, m_desktop.display(), m_desktop.home(), 1});
    }

    WindowHandle windowTitled(const QString &part)
    {
        WindowHandle window = kNoWindow;
        EXPECT_TRUE(waitFor(
            [&] {
                window = m_desktop.x().findClient(part);
                return window != kNoWindow && m_windows->isVisible(window);
            },
            120000))
            << part.toStdString();
        return window;
    }

    bool isKnown(WindowHandle window, const QString &location)
    {
        const ShellWindows::Answer answer = m_shell->location(window);
        return answer.state == ShellWindows::State::Known && answer.location == location;
    }
    bool becomes(WindowHandle window, const QString &location, int timeoutMs = 20000)
    {
        return waitFor([&] { return isKnown(window, location); }, timeoutMs);
    }
    /// Whether the window comes to a location under a caption that holds @p part, and is at no other
    /// one from that caption on.
    bool goesStraightTo(WindowHandle window, const QString &part, const QString &location)
    {
        if (!m_windows->caption(window).contains(part))
            return false;
        const ShellWindows::Answer answer = m_shell->location(window);
        if (answer.state != ShellWindows::State::Known)
            return false;
        EXPECT_EQ(answer.location, location) << "a new title came with the old location";
        return true;
    }

    bool activate(WindowHandle window)
    {
        const auto id = static_cast<xcb_window_t>(window);
        m_desktop.x().activate(id);
        return waitFor([&] { return m_desktop.x().activeWindow() == id; });
    }

    std::string told(WindowHandle window)
    {
        const ShellWindows::Answer answer = m_shell->location(window);
        const bool known = answer.state == ShellWindows::State::Known;
        return (known ? "known: " : "unknown: ") + answer.location.toStdString();
    }

    VirtualDesktop m_desktop;
    std::unique_ptr<X11WindowSystem> m_windows;
    std::unique_ptr<LinuxShellWindows> m_shell;
};

} // namespace norvane::test
