#include "LocatedDesktop.h"
#include "harness/PageServer.h"
#include "harness/Programs.h"

#include <QElapsedTimer>
#include <csignal>

using namespace norvane;
using namespace norvane::test;

namespace {

using State = ShellWindows::State;

struct Browser
{
    const char *name;
    QProcess *(*start)(VirtualDesktop &, const QString &, const QStringList &);
};

void PrintTo(const Browser &browser, std::ostream *out)
{
    *out << browser.name;
}

/// Stops a browser's main process; it goes on when the object goes out of scope.
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

class BrowserLocations : public testing::TestWithParam<Browser>, protected LocatedDesktop
{
protected:
    BrowserLocations()
    {
        // Pages that go on by a key: a busy browser may lose pieces of an address that is typed.
        const QString keys = QStringLiteral("onkeydown = e => { switch (e.key) {"
                                            "case 'b': location = '/second'; break;"
                                            "case 'j': history.pushState(null, '', '/part two'); } }");
        m_first = m_server.addPage(QStringLiteral("/first"), QStringLiteral("Reading list"),
                                   QStringLiteral("Three books"), keys);
        m_second = m_server.addPage(QStringLiteral("/second"), QStringLiteral("Garden plan"),
                                    QStringLiteral("Two beds"), keys);
    }

    /// Presses a key in a window's page until what it does has happened.
    bool pressUntil(WindowHandle window, const QString &key, const std::function<bool()> &happened)
    {
        for (int attempt = 0; attempt < 8 && activate(window); ++attempt) {
            m_desktop.x().click(m_desktop.x().geometry(static_cast<xcb_window_t>(window)).center());
            m_desktop.x().press(key);
            if (waitFor(happened, 3000))
                return true;
        }
        return false;
    }

    PageServer m_server;
    QString m_first;
    QString m_second;
};

class TwoBrowsers : public BrowserLocations
{
};

} // namespace

TEST_P(BrowserLocations, FollowThePages)
{
    ASSERT_NO_FATAL_FAILURE(startDesktop());
    QProcess *browser = GetParam().start(m_desktop, QStringLiteral("main"), {m_first});
    const WindowHandle window = windowTitled(QStringLiteral("Reading list"));
    ASSERT_NE(window, kNoWindow);
    EXPECT_TRUE(becomes(window, m_first)) << told(window);
    EXPECT_TRUE(pressUntil(window, QStringLiteral("b"), [&] {
        return goesStraightTo(window, QStringLiteral("Garden plan"), m_second);
    })) << told(window);

    // An address that a script changes, with the title as it was.
    const QString caption = m_windows->caption(window);
    QString scripted = m_second;
    scripted.replace(QStringLiteral("/second"), QStringLiteral("/part%20two"));
    EXPECT_TRUE(pressUntil(window, QStringLiteral("j"), [&] { return isKnown(window, scripted); }))
        << told(window);
    EXPECT_EQ(m_windows->caption(window), caption);
    EXPECT_TRUE(pressUntil(window, QStringLiteral("b"), [&] { return isKnown(window, m_second); }))
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
    EXPECT_TRUE(becomes(firefox, {}, 4000)) << told(firefox);
    EXPECT_EQ(m_shell->freshLocation(chromium, 300), m_second);
}

TEST_F(TwoBrowsers, NeedTheAccessibilitySwitch)
{
    ASSERT_NO_FATAL_FAILURE(startDesktop(false));
    startFirefox(m_desktop, QStringLiteral("main"), {m_first});
    const WindowHandle window = windowTitled(QStringLiteral("Reading list"));
    ASSERT_NE(window, kNoWindow);
    EXPECT_TRUE(becomes(window, {}, 4000)) << told(window);
    EXPECT_TRUE(waitFor([&] { return m_shell->needsAccessibility(); }));
    m_shell->enableAccessibility();
    EXPECT_TRUE(becomes(window, m_first)) << told(window);
    EXPECT_FALSE(m_shell->needsAccessibility());
}
