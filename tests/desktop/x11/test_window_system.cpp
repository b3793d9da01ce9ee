#include "TestClient.h"
#include "platform/x11/X11WindowSystem.h"
#include "wait.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <algorithm>
#include <csignal>
#include <gmock/gmock.h>

using namespace norvane;
using testing::Contains;
using testing::Not;

namespace {

const QString kPingClient = QString::fromUtf8(NORVANE_PING_CLIENT);

class WindowSystemTest : public testing::Test
{
protected:
    ~WindowSystemTest() override
    {
        client.setWorkspace(0);
        for (const xcb_window_t window : std::as_const(m_opened)) {
            client.destroy(window);
        }
        // Ids are given out again: the window manager must have done with these first.
        EXPECT_TRUE(eventually([&] {
            const QVector<quint32> stacking = client.stacking();
            return std::none_of(m_opened.begin(), m_opened.end(),
                                [&](xcb_window_t window) { return stacking.contains(window); });
        }));
    }

    xcb_window_t open(const TestClient::Looks &looks)
    {
        const xcb_window_t window = client.open(looks);
        m_opened.append(window);
        EXPECT_TRUE(eventually([&] { return windows.isVisible(window) && client.isViewable(window); }));
        return window;
    }
    xcb_window_t open(const QString &title)
    {
        TestClient::Looks looks;
        looks.title = title;
        return open(looks);
    }
    /// Waits until all that windows did has been told.
    void settle()
    {
        QSignalSpy spy(&windows, &WindowSystem::changed);
        const auto quiet = [&] {
            const auto before = spy.count();
            const quint64 count = windows.changeCount();
            return !QTest::qWaitFor([&] { return spy.count() > before; }, 400) &&
                   windows.changeCount() == count;
        };
        for (int i = 0; i < 20 && !quiet(); ++i) {
        }
    }
    void askAll(const QVector<WindowHandle> &handles)
    {
        for (const WindowHandle window : handles) {
            windows.isWindow(window);
            windows.isVisible(window);
            windows.isMinimized(window);
            windows.isToolWindow(window);
            windows.ownerOf(window);
            windows.className(window);
            windows.caption(window);
            windows.requestCaption(window, 500);
            windows.icon(window, WindowSystem::IconSize::Large, 500);
            windows.processId(window);
            windows.windowRect(window);
            windows.clientRect(window);
        }
        windows.topLevelWindows();
        windows.changeCount();
        windows.foregroundWindow();
        windows.findWindowByTitle(QStringLiteral("no window is called this"));
    }

    TestClient client;
    X11WindowSystem windows;

private:
    QVector<xcb_window_t> m_opened;
};

} // namespace

TEST_F(WindowSystemTest, ListsWindowsFromTheFront)
{
    const WindowHandle one = open(u"one"_qs);
    const WindowHandle two = open(u"two"_qs);
    EXPECT_TRUE(eventually([&] { return windows.topLevelWindows() == QVector<WindowHandle>({two, one}); }));
    client.raise(static_cast<xcb_window_t>(one));
    EXPECT_TRUE(eventually([&] { return windows.topLevelWindows() == QVector<WindowHandle>({one, two}); }));
}

TEST_F(WindowSystemTest, KnowsCaptionClassOwnerAndKind)
{
    TestClient::Looks browser;
    browser.title = QString(253, u'a') + u"\U0001F600 and more"_qs;
    browser.wmClass = QByteArrayLiteral("chromium (/tmp/profile)\0Chromium\0");
    const xcb_window_t page = open(browser);
    EXPECT_EQ(windows.className(page), u"IEFrame"_qs);
    EXPECT_EQ(windows.caption(page), QString(253, u'a'));
    EXPECT_EQ(windows.requestCaption(page, 500), windows.caption(page));
    EXPECT_EQ(windows.processId(page), QCoreApplication::applicationPid());
    EXPECT_FALSE(windows.isToolWindow(page));

    TestClient::Looks dialog;
    dialog.title = u"dialog"_qs;
    dialog.transientFor = page;
    EXPECT_EQ(windows.ownerOf(open(dialog)), page);
    dialog.transientFor = client.root();
    EXPECT_EQ(windows.ownerOf(open(dialog)), kNoWindow);

    TestClient::Looks utility;
    utility.title = u"tool"_qs;
    utility.type = "_NET_WM_WINDOW_TYPE_UTILITY";
    EXPECT_TRUE(windows.isToolWindow(open(utility)));

    TestClient::Looks background;
    background.title = u"pcmanfm"_qs;
    background.wmClass = QByteArrayLiteral("pcmanfm\0Pcmanfm\0");
    const xcb_window_t folder = open(background);
    EXPECT_EQ(windows.className(folder), u"CabinetWClass"_qs);
    background.type = "_NET_WM_WINDOW_TYPE_DESKTOP";
    const xcb_window_t desktop = open(background);
    EXPECT_EQ(windows.className(desktop), u"Progman"_qs);
    EXPECT_TRUE(windows.isToolWindow(desktop));
}

TEST_F(WindowSystemTest, CaptionFallsBackToTheOldNameAndFollowsBoth)
{
    const xcb_window_t window = open(u"new name"_qs);
    client.setText(window, "WM_NAME", "STRING", "caf\xe9");
    client.setText(window, "_NET_WM_NAME", "UTF8_STRING", {});
    EXPECT_TRUE(eventually([&] { return windows.caption(window) == u"caf\u00e9"_qs; }));
    client.setText(window, "_NET_WM_NAME", "UTF8_STRING", QByteArrayLiteral("before\0after"));
    EXPECT_TRUE(eventually([&] { return windows.caption(window) == u"before"_qs; }));
}

TEST_F(WindowSystemTest, TellsIcons)
{
    // The window manager gives an icon to a window that has none; one that it does not manage keeps
    // what its program gave it.
    const xcb_window_t window = open(u"icon"_qs);
    client.unmap(window);
    EXPECT_TRUE(eventually([&] { return !windows.isVisible(window); }));
    client.setNumbers(window, "_NET_WM_ICON", "CARDINAL", {});
    EXPECT_TRUE(eventually([&] { return windows.icon(window, WindowSystem::IconSize::Small, 500) == 0; }));
    client.setNumbers(window, "_NET_WM_ICON", "CARDINAL", {1, 1, 0xff00ff00});
    EXPECT_TRUE(
        eventually([&] { return windows.icon(window, WindowSystem::IconSize::Small, 500) == window; }));
}

TEST_F(WindowSystemTest, MinimizedAndOtherWorkspacesStayVisible)
{
    const xcb_window_t window = open(u"sleeper"_qs);
    client.minimize(window);
    EXPECT_TRUE(eventually([&] { return windows.isMinimized(window); }));
    EXPECT_TRUE(windows.isVisible(window));
    EXPECT_EQ(windows.findWindowByTitle(u" SLEEPER "_qs), window);
    windows.restoreWindow(window);
    EXPECT_TRUE(eventually([&] { return !windows.isMinimized(window) && client.isViewable(window); }));

    client.setWorkspace(1);
    EXPECT_TRUE(eventually([&] { return !client.isViewable(window); }));
    EXPECT_TRUE(windows.isVisible(window));
    EXPECT_FALSE(windows.isMinimized(window)) << "it is only elsewhere";
    EXPECT_EQ(windows.findWindowByTitle(u"sleeper"_qs), window);

    // Coming to the front brings the user to its workspace.
    windows.setForegroundWindow(window);
    EXPECT_EQ(windows.foregroundWindow(), window);
    EXPECT_TRUE(eventually([&] { return client.isViewable(window); }));
}

TEST_F(WindowSystemTest, FindsByWholeCleanedCaption)
{
    const xcb_window_t window = open(u" Say \"yes\"|no \u00c4 "_qs);
    EXPECT_EQ(windows.findWindowByTitle(u"say 'YES' NO \u00e4"_qs), window);
    EXPECT_EQ(windows.findWindowByTitle(u"Say \"yes\""_qs), kNoWindow);
    EXPECT_EQ(windows.findWindowByTitle(QString()), kNoWindow);
}

TEST_F(WindowSystemTest, ForegroundIsTheActiveWindow)
{
    const xcb_window_t one = open(u"one"_qs);
    const xcb_window_t two = open(u"two"_qs);
    EXPECT_TRUE(eventually([&] { return windows.foregroundWindow() == two; }));
    windows.setForegroundWindow(one);
    EXPECT_EQ(windows.foregroundWindow(), one) << "known without another turn of the event loop";
    EXPECT_EQ(windows.topLevelWindows().first(), one);
    // No note has the keyboard: nothing to hand over.
    windows.setFocus(two);
    EXPECT_EQ(windows.foregroundWindow(), one);
}

TEST_F(WindowSystemTest, DestroyedWindowIsGoneAtOnceAndTold)
{
    const xcb_window_t window = open(u"short life"_qs);
    QSignalSpy destroyed(&windows, &WindowSystem::windowDestroyed);
    const quint64 count = windows.changeCount();
    client.destroy(window);
    EXPECT_FALSE(windows.isWindow(window));
    EXPECT_EQ(destroyed.count(), 0) << "no signal from inside a question";
    EXPECT_FALSE(windows.isVisible(window));
    EXPECT_TRUE(windows.caption(window).isEmpty());
    EXPECT_TRUE(windows.windowRect(window).isNull());
    EXPECT_EQ(windows.processId(window), 0);
    EXPECT_FALSE(windows.requestCaption(window, 500).has_value());
    EXPECT_THAT(windows.topLevelWindows(), Not(Contains(window)));
    EXPECT_GT(windows.changeCount(), count);
    EXPECT_TRUE(eventually([&] { return destroyed.count() == 1; }));
    EXPECT_EQ(destroyed.first().first().value<WindowHandle>(), window);

    settle();
    const quint64 trips = windows.roundTrips();
    EXPECT_FALSE(windows.isWindow(window));
    EXPECT_EQ(windows.roundTrips(), trips) << "a window that is known to be gone is not asked for again";
}

TEST_F(WindowSystemTest, UnlistedAndForeignHandlesDoNoHarm)
{
    const xcb_window_t window = open(u"withdrawn"_qs);
    client.unmap(window);
    EXPECT_TRUE(eventually([&] { return !windows.isVisible(window); }));
    EXPECT_TRUE(windows.isWindow(window));
    EXPECT_FALSE(windows.isWindow(0));
    EXPECT_FALSE(windows.isWindow(0x7ffffff));
    EXPECT_TRUE(windows.className(0x7ffffff).isEmpty());
    client.map(window);
    EXPECT_TRUE(eventually([&] { return windows.isVisible(window); }));
}

TEST_F(WindowSystemTest, NothingChangedCostsNoRoundTrip)
{
    TestClient::Looks looks;
    for (int i = 0; i < 5; ++i) {
        looks.title = QString::number(i);
        open(looks);
    }
    const QVector<WindowHandle> handles = windows.topLevelWindows();
    ASSERT_EQ(handles.size(), 5);
    askAll(handles);
    settle();
    const quint64 trips = windows.roundTrips();
    const quint64 count = windows.changeCount();
    QSignalSpy changed(&windows, &WindowSystem::changed);
    for (int i = 0; i < 10; ++i) {
        askAll(handles);
    }
    EXPECT_EQ(windows.roundTrips(), trips);
    EXPECT_EQ(windows.changeCount(), count);

    // What no question tells of counts as no change.
    client.setNumbers(static_cast<xcb_window_t>(handles.first()), "_NET_WM_USER_TIME", "CARDINAL", {1});
    client.setTitle(static_cast<xcb_window_t>(handles.first()), windows.caption(handles.first()));
    settle();
    EXPECT_EQ(windows.changeCount(), count);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(WindowSystemTest, RectanglesFollowTheWindow)
{
    const xcb_window_t window = open(u"mover"_qs);
    const QRect client1 = windows.clientRect(window);
    EXPECT_EQ(client1, client.geometry(window));
    const QRect outer = windows.windowRect(window);
    EXPECT_TRUE(outer.contains(client1));
    EXPECT_GT(client1.top(), outer.top()) << "the title bar belongs to it";

    client.configure(window, QRect(300, 200, 250, 180));
    EXPECT_TRUE(eventually([&] { return windows.clientRect(window).size() == QSize(250, 180); }));
    EXPECT_TRUE(eventually([&] { return windows.clientRect(window) == client.geometry(window); }));

    // A window that draws its own frame and shadow.
    client.setNumbers(window, "_GTK_FRAME_EXTENTS", "CARDINAL", {10, 20, 30, 40});
    EXPECT_TRUE(eventually([&] { return windows.clientRect(window).size() == QSize(220, 110); }));
    EXPECT_EQ(windows.clientRect(window).topLeft(), client.geometry(window).topLeft() + QPoint(10, 30));
}

TEST_F(WindowSystemTest, TitleStormIsToldAFewTimesAndEndsRight)
{
    const xcb_window_t window = open(u"storm"_qs);
    settle();
    QSignalSpy changed(&windows, &WindowSystem::changed);
    const quint64 trips = windows.roundTrips();
    QElapsedTimer clock;
    clock.start();
    for (int i = 1; i <= 200; ++i) {
        client.setTitle(window, QString::number(i));
        client.sync();
        QCoreApplication::processEvents();
    }
    const auto seconds = static_cast<double>(clock.elapsed()) / 1000.0;
    EXPECT_TRUE(eventually([&] { return windows.caption(window) == u"200"_qs; }));
    settle();
    // Ten times a second and once at either end, with a reading each.
    EXPECT_LE(changed.count(), static_cast<int>(seconds * 10) + 4);
    EXPECT_GE(changed.count(), 1);
    EXPECT_LE(windows.roundTrips() - trips, static_cast<quint64>(seconds * 10) + 8);
}

TEST_F(WindowSystemTest, ManyWindowsAreReadTogether)
{
    for (int i = 0; i < 100; ++i) {
        TestClient::Looks looks;
        looks.title = u"window %1"_qs.arg(i);
        looks.rect = QRect(10 * (i % 20), 10 * (i / 20), 50, 40);
        open(looks);
    }
    // A second program that starts now: its windows are all there after a few round trips.
    const X11WindowSystem late;
    EXPECT_EQ(late.topLevelWindows().size(), 100);
    EXPECT_NE(late.findWindowByTitle(u"window 57"_qs), kNoWindow);
    EXPECT_LE(late.roundTrips(), 6U);
}

TEST_F(WindowSystemTest, StoppedProgramIsToldAndHoldsNothingUp)
{
    QProcess program;
    program.start(kPingClient, {u"victim"_qs});
    ASSERT_TRUE(eventually([&] { return program.canReadLine(); }));
    const WindowHandle window = program.readLine().trimmed().toULongLong();
    ASSERT_TRUE(eventually([&] { return windows.isVisible(window); }));
    EXPECT_EQ(windows.processId(window), program.processId());
    EXPECT_TRUE(windows.responds(window, kPatienceMs));

    ASSERT_EQ(kill(static_cast<pid_t>(program.processId()), SIGSTOP), 0);
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(windows.responds(window, 200));
    EXPECT_GE(clock.elapsed(), 190);
    EXPECT_EQ(windows.requestCaption(window, 200), u"victim"_qs);
    EXPECT_EQ(windows.caption(window), u"victim"_qs);
    EXPECT_TRUE(windows.windowRect(window).isValid());
    // It still owes an answer, so it is not waited for a second time.
    clock.start();
    EXPECT_FALSE(windows.responds(window, kPatienceMs));
    EXPECT_LT(clock.elapsed(), kPatienceMs / 2);

    ASSERT_EQ(kill(static_cast<pid_t>(program.processId()), SIGCONT), 0);
    EXPECT_TRUE(eventually([&] { return windows.responds(window, 1000); }));
    program.kill();
    EXPECT_TRUE(eventually([&] { return !windows.isWindow(window); }));
    EXPECT_FALSE(windows.responds(window, kPatienceMs));
    program.waitForFinished();
}
