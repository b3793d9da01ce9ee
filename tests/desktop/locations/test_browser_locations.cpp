#include "ClientListWindows.h"
#include "harness/PageServer.h"
#include "harness/Programs.h"
#include "platform/linux/LinuxShellWindows.h"

#include <QElapsedTimer>
#include <csignal>
#include <gtest/gtest.h>

using namespace norvane;
using namespace norvane::test;

namespace {

using Starter = QProcess *(*)(VirtualDesktop &, const QString &, const QStringList &);
using State = ShellWindows::State;

struct Browser
{
    const char *name;
    Starter start;
};

void PrintTo(const Browser &browser, std::ostream *out)
{
    *out << browser.name;
}

/// Sends a signal to a browser's main process, and one to go on when it goes out of scope.
class Stopped
{
public:
    explicit Stopped(qint64 processId) : m_processId(static_cast<pid_t>(processId))
    {
        ::kill(m_processId, SIGSTOP);
    }
    ~Stopped() { ::kill(m_processId, SIGCONT); }
    Stopped(const Stopped &) = delete;
    Stopped &operator=(const Stopped &) = delete;

private:
    pid_t m_processId;
};

class BrowserLocations : public testing::TestWithParam<Browser>
{
protected:
    void startDesktop(bool accessibility = true)
    {
        VirtualDesktop::Options options;
        options.accessibility = accessibility;
        ASSERT_TRUE(m_desktop.start(options)) << m_desktop.error().toStdString();
        // Pages that go on by a key: a busy browser may lose pieces of an address that is typed.
        const QString keys = QStringLiteral("onkeydown = e => { switch (e.key) {"
                                            "case 'a': location = '/first'; break;"
                                            "case 'b': location = '/second'; break;"
                                            "case 'j': history.pushState(null, '', '/part two'); break;"
                                            "case 'w': if (!window.another) window.another = "
                                            "open('/first', '_blank', 'width=700,height=600'); } }");
        m_first = m_server.addPage(QStringLiteral("/first"), QStringLiteral("Reading list"),
                                   QStringLiteral("Three books"), keys);
        m_second = m_server.addPage(QStringLiteral("/second"), QStringLiteral("Garden plan"),
                                    QStringLiteral("Two beds"), keys);
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

    WindowHandle windowTitled(const QString &part)
    {
        WindowHandle window = kNoWindow;
        EXPECT_TRUE(waitFor(
            [&] {
                window = m_desktop.x().findClient(part);
                return window != kNoWindow && m_windows->isWindow(window);
            },
            40000))
            << part.toStdString();
        return window;
    }

    bool becomes(WindowHandle window, const QString &location, int timeoutMs = 20000)
    {
        return waitFor(
            [&] {
                const ShellWindows::Answer answer = m_shell->location(window);
                return answer.state == State::Known && answer.location == location;
            },
            timeoutMs);
    }

    /// Presses a key in a window's page until what it does has happened.
    bool pressUntil(WindowHandle window, const QString &key, const std::function<bool()> &happened)
    {
        const auto id = static_cast<xcb_window_t>(window);
        for (int attempt = 0; attempt < 8; ++attempt) {
            m_desktop.x().activate(id);
            if (!waitFor([&] { return m_desktop.x().activeWindow() == id; }))
                return false;
            m_desktop.x().click(m_desktop.x().geometry(id).center());
            m_desktop.x().press(key);
            if (waitFor(happened, 3000))
                return true;
        }
        return false;
    }

    std::string told(WindowHandle window)
    {
        const ShellWindows::Answer answer = m_shell->location(window);
        return (answer.state == State::Known ? "known: " : "unknown: ") + answer.location.toStdString();
    }

    VirtualDesktop m_desktop;
    PageServer m_server;
    QString m_first;
    QString m_second;
    std::unique_ptr<ClientListWindows> m_windows;
    std::unique_ptr<LinuxShellWindows> m_shell;
};

} // namespace

TEST_P(BrowserLocations, FollowThePagesOfEachWindow)
{
    ASSERT_NO_FATAL_FAILURE(startDesktop());
    QProcess *browser = GetParam().start(m_desktop, QStringLiteral("main"), {m_first});
    const WindowHandle window = windowTitled(QStringLiteral("Reading list"));
    ASSERT_NE(window, kNoWindow);
    EXPECT_TRUE(becomes(window, m_first)) << told(window);

    // A new title never comes with the old address.
    QString wrong;
    QElapsedTimer sinceTitle;
    EXPECT_TRUE(pressUntil(window, QStringLiteral("b"), [&] {
        if (!m_windows->caption(window).contains(u"Garden plan"))
            return false;
        if (!sinceTitle.isValid())
            sinceTitle.start();
        const ShellWindows::Answer answer = m_shell->location(window);
        if (answer.state == State::Known && answer.location != m_second)
            wrong = answer.location;
        return answer.state == State::Known && answer.location == m_second;
    })) << told(window);
    EXPECT_EQ(wrong, QString());
    RecordProperty("titleToAddressMs", static_cast<int>(sinceTitle.elapsed()));

    // A second window of the same process.
    WindowHandle other = kNoWindow;
    ASSERT_TRUE(pressUntil(window, QStringLiteral("w"), [&] {
        for (const xcb_window_t client : m_desktop.x().clients()) {
            if (client != window && m_windows->className(client) == u"IEFrame")
                other = client;
        }
        return other != kNoWindow;
    }));
    EXPECT_TRUE(becomes(other, m_first)) << told(other);
    EXPECT_TRUE(becomes(window, m_second)) << told(window);
    EXPECT_EQ(m_windows->processId(other), m_windows->processId(window));

    // An address that a script changes, with the title as it was.
    const QString caption = m_windows->caption(window);
    QString scripted = m_second;
    scripted.replace(QStringLiteral("/second"), QStringLiteral("/part%20two"));
    EXPECT_TRUE(pressUntil(window, QStringLiteral("j"), [&] { return becomes(window, scripted, 3000); }))
        << told(window);
    EXPECT_EQ(m_windows->caption(window), caption);
    EXPECT_TRUE(pressUntil(window, QStringLiteral("b"), [&] { return becomes(window, m_second, 3000); }))
        << told(window);

    {
        const Stopped stopped(m_windows->processId(window));
        QElapsedTimer timer;
        timer.start();
        EXPECT_EQ(m_shell->location(window).location, m_second);
        EXPECT_LT(timer.elapsed(), 100);
        timer.restart();
        EXPECT_EQ(m_shell->freshLocation(window, 300), m_second);
        EXPECT_GE(timer.elapsed(), 250);
        EXPECT_LT(timer.elapsed(), 600);
    }
    EXPECT_TRUE(waitFor([&] { return m_shell->freshLocation(window, 300) == m_second; }));
    m_desktop.end(browser);
}

INSTANTIATE_TEST_SUITE_P(Programs, BrowserLocations,
                         testing::Values(Browser{"Firefox", startFirefox},
                                         Browser{"Chromium", startChromium}),
                         [](const auto &program) { return std::string(program.param.name); });

class TwoBrowsers : public BrowserLocations
{
};

TEST_F(TwoBrowsers, HangEachForItself)
{
    ASSERT_NO_FATAL_FAILURE(startDesktop());
    startFirefox(m_desktop, QStringLiteral("main"), {m_first});
    startChromium(m_desktop, QStringLiteral("main"), {m_second});
    const WindowHandle firefox = windowTitled(QStringLiteral("Reading list"));
    const WindowHandle chromium = windowTitled(QStringLiteral("Garden plan"));
    ASSERT_NE(firefox, kNoWindow);
    ASSERT_NE(chromium, kNoWindow);
    // Stopped before anything is known of it: the answer is "nothing", within a bounded time.
    const Stopped stopped(m_windows->processId(firefox));
    EXPECT_EQ(m_shell->location(firefox).state, State::Unknown);
    // It tells nothing of a page before it has painted it.
    m_desktop.x().activate(static_cast<xcb_window_t>(chromium));
    EXPECT_TRUE(becomes(chromium, m_second)) << told(chromium);
    EXPECT_TRUE(waitFor([&] { return m_shell->location(firefox).state == State::Known; }, 4000));
    EXPECT_EQ(m_shell->location(firefox).location, QString());
    EXPECT_EQ(m_shell->freshLocation(chromium, 300), m_second);
}

TEST_F(TwoBrowsers, NeedTheAccessibilitySwitch)
{
    ASSERT_NO_FATAL_FAILURE(startDesktop(false));
    startFirefox(m_desktop, QStringLiteral("main"), {m_first});
    const WindowHandle window = windowTitled(QStringLiteral("Reading list"));
    ASSERT_NE(window, kNoWindow);
    EXPECT_TRUE(waitFor([&] { return m_shell->location(window).state == State::Known; }, 4000));
    EXPECT_EQ(m_shell->location(window).location, QString());
    EXPECT_TRUE(waitFor([&] { return m_shell->needsAccessibility(); }));
    m_shell->enableAccessibility();
    EXPECT_TRUE(becomes(window, m_first)) << told(window);
    EXPECT_FALSE(m_shell->needsAccessibility());
}
