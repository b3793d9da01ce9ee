#pragma once

#include "XClient.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <vector>

namespace norvane::test {

/// A desktop of its own: X server, window manager, session bus, accessibility bus, home folder, and
/// a tray where wanted. Everything that was started ends with the object; nothing else is touched.
class VirtualDesktop
{
public:
    struct Options
    {
        QSize size{1280, 900};
        bool tray = false;
        bool accessibility = true;
        bool windowManager = true;
    };

    VirtualDesktop();
    ~VirtualDesktop();
    VirtualDesktop(const VirtualDesktop &) = delete;
    VirtualDesktop &operator=(const VirtualDesktop &) = delete;

    /// False when a piece of the desktop did not come up; error() says which.
    bool start(const Options &options);
    QString error() const { return m_error; }

    XClient &x() { return *m_x; }
    QString display() const { return m_display; }
    /// The home folder of everything that runs here; no separator at the end.
    QString home() const { return m_home.path(); }
    QProcessEnvironment environment() const { return m_environment; }
    /// The address of the session bus.
    QString sessionBus() const { return m_environment.value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")); }

    /// Starts a program on the desktop. The object owns it; nullptr when it did not start.
    QProcess *run(const QString &program, const QStringList &arguments = {},
                  const QProcessEnvironment &extra = {});
    /// Ends a program by SIGTERM, by SIGKILL if it does not listen; true when it ended by itself.
    bool end(QProcess *process, int timeoutMs = 10000);
    /// What a program has written on its standard error so far.
    QString errorOutput(const QProcess *process) const;
    /// Starts the accessibility bus, switched on. start() does so where it is wanted.
    bool startAccessibility();
    /// Ends the accessibility bus under the programs that use it.
    bool stopAccessibility();
    /// Ends the X server under everything.
    void killDisplay();

private:
    bool fail(const QString &what);
    bool startServer(const QSize &size);
    bool startSessionBus();
    bool startWindowManager();

    QTemporaryDir m_home;
    QString m_error;
    QString m_display;
    QProcessEnvironment m_environment;
    std::unique_ptr<XClient> m_x;
    QProcess *m_server = nullptr;
    QProcess *m_accessibility = nullptr;
    std::vector<std::unique_ptr<QProcess>> m_processes; ///< in the order of their start
};

} // namespace norvane::test
