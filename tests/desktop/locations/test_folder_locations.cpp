#include "ClientListWindows.h"
#include "harness/VirtualDesktop.h"
#include "platform/linux/LinuxShellWindows.h"

#include <QDir>
#include <QElapsedTimer>
#include <csignal>
#include <gtest/gtest.h>

using namespace norvane;
using namespace norvane::test;

namespace {

using State = ShellWindows::State;

class FolderLocations : public testing::TestWithParam<const char *>
{
protected:
    void SetUp() override
    {
        VirtualDesktop::Options options;
        ASSERT_TRUE(m_desktop.start(options)) << m_desktop.error().toStdString();
        for (const QString &folder :
             {m_odd, QStringLiteral("/letters"), QStringLiteral("/a/same"), QStringLiteral("/b/same")})
            ASSERT_TRUE(QDir().mkpath(m_desktop.home() + folder));
        m_windows = std::make_unique<ClientListWindows>(m_desktop.x());
        m_shell = std::make_unique<LinuxShellWindows>(
            *m_windows,
            DesktopSession{m_desktop.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")),
                           m_desktop.display(), m_desktop.home(), 1});
    }

    void TearDown() override
    {
        m_shell.reset();
        m_windows.reset();
    }

    QProcess *startProgram(const QString &program, const QString &folder)
    {
        QStringList arguments{folder};
        if (program == u"caja")
            arguments.prepend(QStringLiteral("--no-desktop"));
        QProcessEnvironment extra;
        // What the session of a desktop with accessibility sets for programs of the older toolkit.
        extra.insert(QStringLiteral("GTK_MODULES"), QStringLiteral("gail:atk-bridge"));
        return m_desktop.run(program, arguments, extra);
    }

    WindowHandle windowTitled(const QString &part)
    {
        WindowHandle window = kNoWindow;
        EXPECT_TRUE(waitFor(
            [&] {
                window = m_desktop.x().findClient(part);
                return window != kNoWindow && m_windows->className(window) == u"CabinetWClass";
            },
            40000))
            << part.toStdString();
        return window;
    }

    bool becomes(WindowHandle window, const QString &location)
    {
        return waitFor([&] {
            const ShellWindows::Answer answer = m_shell->location(window);
            return answer.state == State::Known && answer.location == location;
        });
    }

    /// Goes to the folder above; a program that has just started loses keys.
    bool goesUp(WindowHandle window)
    {
        const auto id = static_cast<xcb_window_t>(window);
        const QString caption = m_windows->caption(window);
        for (int attempt = 0; attempt < 8; ++attempt) {
            m_desktop.x().activate(id);
            if (!waitFor([&] { return m_desktop.x().activeWindow() == id; }))
                return false;
            m_desktop.x().press(QStringLiteral("alt+Up"));
            if (waitFor([&] { return m_windows->caption(window) != caption; }, 3000))
                return true;
        }
        return false;
    }

    std::string told(WindowHandle window)
    {
        const ShellWindows::Answer answer = m_shell->location(window);
        return (answer.state == State::Known ? "known: " : "unknown: ") + answer.location.toStdString();
    }

    const QString m_odd = QStringLiteral("/letters/100%20 für Öl #1");
    VirtualDesktop m_desktop;
    std::unique_ptr<ClientListWindows> m_windows;
    std::unique_ptr<LinuxShellWindows> m_shell;
};

class AnyFileManager : public FolderLocations
{
};

} // namespace

TEST_P(FolderLocations, FollowTheFolder)
{
    const QString home = m_desktop.home();
    ASSERT_NE(startProgram(QString::fromLatin1(GetParam()), home + m_odd), nullptr);
    const WindowHandle window = windowTitled(QStringLiteral("100%20 für"));
    ASSERT_NE(window, kNoWindow);
    EXPECT_TRUE(becomes(window, home + m_odd)) << told(window);

    ASSERT_TRUE(goesUp(window));
    QString wrong;
    QElapsedTimer sinceTitle;
    EXPECT_TRUE(waitFor([&] {
        if (!m_windows->caption(window).contains(u"letters"))
            return false;
        if (!sinceTitle.isValid())
            sinceTitle.start();
        const ShellWindows::Answer answer = m_shell->location(window);
        if (answer.state == State::Known && answer.location != home + QStringLiteral("/letters"))
            wrong = answer.location;
        return answer.state == State::Known && answer.location == home + QStringLiteral("/letters");
    })) << told(window);
    EXPECT_EQ(wrong, QString());
    RecordProperty("titleToFolderMs", static_cast<int>(sinceTitle.elapsed()));

    EXPECT_TRUE(goesUp(window));
    EXPECT_TRUE(becomes(window, home)) << told(window) << m_windows->caption(window).toStdString();
}

INSTANTIATE_TEST_SUITE_P(Programs, FolderLocations,
                         testing::Values("thunar", "pcmanfm", "caja", "nautilus", "dolphin"),
                         [](const auto &program) { return std::string(program.param); });

TEST_F(AnyFileManager, IsFoundAgainWhenTheAccessibilityBusComesBack)
{
    QProcess *program = startProgram(QStringLiteral("thunar"), m_desktop.home() + QStringLiteral("/letters"));
    const WindowHandle window = windowTitled(QStringLiteral("letters"));
    ASSERT_TRUE(becomes(window, m_desktop.home() + QStringLiteral("/letters"))) << told(window);

    ASSERT_TRUE(m_desktop.stopAccessibility());
    // What was known stays, and nothing waits.
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(m_shell->location(window).location, m_desktop.home() + QStringLiteral("/letters"));
    EXPECT_LT(timer.elapsed(), 100);
    m_desktop.end(program);

    ASSERT_TRUE(m_desktop.startAccessibility());
    startProgram(QStringLiteral("thunar"), m_desktop.home() + QStringLiteral("/a"));
    const WindowHandle other = windowTitled(QStringLiteral("a - Thunar"));
    EXPECT_TRUE(becomes(other, m_desktop.home() + QStringLiteral("/a"))) << told(other);
}
