#pragma once

#include <QString>
#include <sys/types.h>

/// An X server of the test's own, with a window manager, for as long as the object lives.
///
/// It puts DISPLAY into the environment of the process, so make it before the application object.
/// It ends the two processes that it started and no others.
class TestDesktop
{
public:
    TestDesktop();
    ~TestDesktop();
    TestDesktop(const TestDesktop &) = delete;
    TestDesktop &operator=(const TestDesktop &) = delete;

    /// Whether both programs run.
    bool isReady() const { return m_ready; }
    /// Ends the X server, as a crash of it would.
    void killServer();

private:
    bool waitForWindowManager() const;

    QString m_home;
    pid_t m_server = -1;
    pid_t m_windowManager = -1;
    bool m_ready = false;
};
