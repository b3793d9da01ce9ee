#include "harness/ForeignWindows.h"
#include "harness/VirtualDesktop.h"
#include "platform/x11/X11WindowSystem.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <algorithm>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace norvane;
using namespace norvane::test;
using testing::Contains;
using testing::Not;

namespace {

constexpr int kLongMs = 15000;

/// What the window manager is asked for.
class Messages
{
public:
    explicit Messages(const QString &display)
        : m_connection(xcb_connect(display.toLatin1().constData(), nullptr))
    {
        const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        xcb_change_window_attributes(m_connection, root, XCB_CW_EVENT_MASK, &mask);
        sync();
    }
    ~Messages() { xcb_disconnect(m_connection); }
    Q_DISABLE_COPY_MOVE(Messages)

    /// Source and time of the first message about a window.
    std::pair<quint32, xcb_timestamp_t> activationOf(xcb_window_t window) const
    {
        sync();
        std::pair<quint32, xcb_timestamp_t> told;
        while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
            const auto &message = *reinterpret_cast<xcb_client_message_event_t *>(event);
            if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE && message.window == window &&
                told.first == 0)
                told = {message.data.data32[0], message.data.data32[1]};
            std::free(event);
        }
        return told;
    }

private:
    /// What happened before is in the queue.
    void sync() const
    {
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    xcb_connection_t *m_connection;
};

class WindowSystemTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        desktop = new VirtualDesktop;
        ASSERT_TRUE(desktop->start({.accessibility = false})) << desktop->error().toStdString();
        qputenv("DISPLAY", desktop->display().toLatin1());
    }
    static void TearDownTestSuite() { delete std::exchange(desktop, nullptr); }

    ~WindowSystemTest() override
    {
        x.goToDesktop(0);
        for (const xcb_window_t window : foreign.opened())
            foreign.destroy(window);
        // Ids are given out again: the window manager must have done with these first.
        EXPECT_TRUE(waitFor([&] { return x.stacking().isEmpty(); }));
    }

    xcb_window_t open(const ForeignWindows::Looks &looks)
    {
        const xcb_window_t window = foreign.open(looks);
        EXPECT_TRUE(waitFor([&] { return windows.isVisible(window) && x.isViewable(window); }));
        return window;
    }
    /// Waits until all that windows did has been told.
    void settle()
    {
        QSignalSpy spy(&windows, &WindowSystem::changed);
        const auto quiet = [&] {
            const auto before = spy.count();
            const quint64 count = windows.changeCount();
            return !waitFor([&] { return spy.count() > before; }, 400) && windows.changeCount() == count;
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
        windows.findWindowByTitle(u"no window is called this"_qs);
    }

    static VirtualDesktop *desktop;
    XClient &x = desktop->x();
    ForeignWindows foreign{desktop->display()};
    X11WindowSystem windows;
};

VirtualDesktop *WindowSystemTest::desktop = nullptr;

} // namespace

TEST_F(WindowSystemTest, ReadsTheIconsOfNewAndOldPrograms)
{
    // The window manager would give them an icon of its own.
    const auto openWithdrawn = [&](const QString &title) {
        const xcb_window_t window = open({.title = title});
        foreign.unmap(window);
        EXPECT_TRUE(waitFor([&] { return !windows.isVisible(window); }));
        foreign.setNumbers(window, "_NET_WM_ICON", "CARDINAL", {});
        EXPECT_TRUE(waitFor([&] { return windows.icon(window, WindowSystem::IconSize::Large, 500) == 0; }));
        return window;
    };
    const xcb_window_t page = openWithdrawn(u"page"_qs);
    foreign.setNumbers(page, "_NET_WM_ICON", "CARDINAL", {2, 1, 0xff112233, 0x80445566, 1, 1, 0xff778899});
    ASSERT_TRUE(waitFor([&] { return windows.icon(page, WindowSystem::IconSize::Large, 500) != 0; }));
    const IconHandle icon = windows.icon(page, WindowSystem::IconSize::Large, 500);
    EXPECT_EQ(windows.iconImage(icon, 2), (IconImage{2, 1, {0xff112233, 0x80445566}}));
    EXPECT_EQ(windows.iconImage(icon, 1), (IconImage{1, 1, {0xff778899}}));
    foreign.destroy(page);
    EXPECT_TRUE(windows.iconImage(icon, 16).isNull());

    // A pixmap of two points, the second of which is masked away.
    xcb_connection_t *other = xcb_connect(desktop->display().toLatin1().constData(), nullptr);
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(other)).data;
    const auto drawn = [&](uint8_t depth, uint32_t first, uint32_t second) {
        const xcb_pixmap_t pixmap = xcb_generate_id(other);
        xcb_create_pixmap(other, depth, pixmap, screen->root, 2, 1);
        const xcb_gcontext_t pen = xcb_generate_id(other);
        xcb_create_gc(other, pen, pixmap, 0, nullptr);
        for (const int16_t place : {int16_t(0), int16_t(1)}) {
            xcb_change_gc(other, pen, XCB_GC_FOREGROUND, place == 0 ? &first : &second);
            const xcb_rectangle_t point = {place, 0, 1, 1};
            xcb_poly_fill_rectangle(other, pixmap, pen, 1, &point);
        }
        return pixmap;
    };
    const quint32 pixmap = drawn(screen->root_depth, 0x123456, 0x654321);
    const quint32 mask = drawn(1, 1, 0);
    std::free(xcb_get_input_focus_reply(other, xcb_get_input_focus(other), nullptr)); // it has all of that
    const xcb_window_t old = openWithdrawn(u"old"_qs);
    foreign.setNumbers(old, "WM_HINTS", "WM_HINTS", {(1U << 2) | (1U << 5), 0, 0, pixmap, 0, 0, 0, mask, 0});
    ASSERT_TRUE(waitFor([&] { return windows.icon(old, WindowSystem::IconSize::Small, 500) != 0; }));
    EXPECT_EQ(windows.iconImage(old, 16), (IconImage{2, 1, {0xff123456, 0}}));
    xcb_disconnect(other); // takes them along
    EXPECT_TRUE(windows.iconImage(old, 16).isNull());
}

TEST_F(WindowSystemTest, KeepsAWindowOnTop)
{
    const xcb_window_t list = open({.title = u"list"_qs});
    const xcb_window_t page = open({.title = u"page"_qs});
    windows.setTopMost(list, true);
    EXPECT_TRUE(waitFor([&] { return x.stacking().last() == list; }));
    x.activate(page);
    EXPECT_TRUE(waitFor([&] { return x.activeWindow() == page; }));
    EXPECT_EQ(x.stacking().last(), list);
    windows.setTopMost(list, false);
    x.activate(list);
    EXPECT_TRUE(waitFor([&] { return x.activeWindow() == list; }));
    x.activate(page);
    EXPECT_TRUE(waitFor([&] { return x.stacking().last() == page; }));
}

TEST_F(WindowSystemTest, KnowsCaptionClassOwnerAndKind)
{
    const xcb_window_t page = open({.title = QString(253, u'a') + u"\U0001F600 and more"_qs,
                                    .wmClass = QByteArrayLiteral("chromium (/tmp/profile)\0Chromium\0")});
    EXPECT_EQ(windows.className(page), u"IEFrame"_qs);
    EXPECT_EQ(windows.caption(page), QString(253, u'a'));
    EXPECT_EQ(windows.requestCaption(page, 500), windows.caption(page));
    EXPECT_EQ(windows.processId(page), QCoreApplication::applicationPid());
    EXPECT_FALSE(windows.isToolWindow(page));

    EXPECT_EQ(windows.ownerOf(open({.title = u"dialog"_qs, .transientFor = page})), page);
    EXPECT_EQ(windows.ownerOf(open({.title = u"dialog"_qs, .transientFor = foreign.root()})), kNoWindow);
    EXPECT_TRUE(windows.isToolWindow(open({.title = u"tool"_qs, .type = "_NET_WM_WINDOW_TYPE_UTILITY"})));

    const QByteArray manager = QByteArrayLiteral("pcmanfm\0Pcmanfm\0");
    EXPECT_EQ(windows.className(open({.title = u"home"_qs, .wmClass = manager})), u"CabinetWClass"_qs);
    const xcb_window_t background =
        open({.title = u"pcmanfm"_qs, .wmClass = manager, .type = "_NET_WM_WINDOW_TYPE_DESKTOP"});
    EXPECT_EQ(windows.className(background), u"Progman"_qs);
    EXPECT_TRUE(windows.isToolWindow(background));
}

TEST_F(WindowSystemTest, CaptionFallsBackToTheOldNameAndFollowsBoth)
{
    const xcb_window_t window = open({.title = u"new name"_qs});
    foreign.setText(window, "WM_NAME", "STRING", "caf\xe9");
    foreign.setText(window, "_NET_WM_NAME", "UTF8_STRING", {});
    EXPECT_TRUE(waitFor([&] { return windows.caption(window) == u"caf\u00e9"_qs; }));
    foreign.setText(window, "_NET_WM_NAME", "UTF8_STRING", QByteArrayLiteral("before\0after"));
    EXPECT_TRUE(waitFor([&] { return windows.caption(window) == u"before"_qs; }));
}

TEST_F(WindowSystemTest, AWithdrawnWindowLivesOnUnseenAndTellsItsIcon)
{
    // The window manager gives an icon to a window that has none; one that it does not manage keeps
    // what its program gave it.
    const xcb_window_t window = open({.title = u"icon"_qs});
    foreign.unmap(window);
    EXPECT_TRUE(waitFor([&] { return !windows.isVisible(window); }));
    EXPECT_TRUE(windows.isWindow(window));
    const auto icon = [&] { return windows.icon(window, WindowSystem::IconSize::Small, 500); };
    foreign.setNumbers(window, "_NET_WM_ICON", "CARDINAL", {});
    EXPECT_TRUE(waitFor([&] { return icon() == 0; }));
    foreign.setNumbers(window, "_NET_WM_ICON", "CARDINAL", {1, 1, 0xff00ff00});
    EXPECT_TRUE(waitFor([&] { return icon() == window; }));
    foreign.map(window);
    EXPECT_TRUE(waitFor([&] { return windows.isVisible(window); }));

    EXPECT_FALSE(windows.isWindow(0));
    EXPECT_FALSE(windows.isWindow(0x7ffffff));
    EXPECT_TRUE(windows.className(0x7ffffff).isEmpty());
}

TEST_F(WindowSystemTest, MinimizedAndOtherWorkspacesStayVisible)
{
    const xcb_window_t window = open({.title = u"sleeper"_qs});
    x.minimise(window);
    EXPECT_TRUE(waitFor([&] { return windows.isMinimized(window); }));
    EXPECT_TRUE(windows.isVisible(window));
    EXPECT_EQ(windows.findWindowByTitle(u" SLEEPER "_qs), window);
    windows.restoreWindow(window);
    EXPECT_TRUE(waitFor([&] { return !windows.isMinimized(window) && x.isViewable(window); }));

    x.goToDesktop(1);
    EXPECT_TRUE(waitFor([&] { return !x.isViewable(window); }));
    EXPECT_TRUE(windows.isVisible(window));
    EXPECT_FALSE(windows.isMinimized(window)) << "it is only elsewhere";
    EXPECT_EQ(windows.findWindowByTitle(u"sleeper"_qs), window);

    // Coming to the front brings the user to its workspace.
    windows.setForegroundWindow(window);
    EXPECT_EQ(windows.foregroundWindow(), window);
    EXPECT_TRUE(waitFor([&] { return x.isViewable(window); }));
}

TEST_F(WindowSystemTest, FindsByWholeCleanedCaption)
{
    const xcb_window_t window = open({.title = u" Say \"yes\"|no \u00c4 "_qs});
    EXPECT_EQ(windows.findWindowByTitle(u"say 'YES' NO \u00e4"_qs), window);
    EXPECT_EQ(windows.findWindowByTitle(u"Say \"yes\""_qs), kNoWindow);
    EXPECT_EQ(windows.findWindowByTitle(QString()), kNoWindow);
}

TEST_F(WindowSystemTest, TheFrontWindowComesFirst)
{
    const xcb_window_t one = open({.title = u"one"_qs});
    const xcb_window_t two = open({.title = u"two"_qs});
    EXPECT_TRUE(waitFor([&] { return windows.foregroundWindow() == two; }));
    EXPECT_EQ(windows.topLevelWindows(), (QVector<WindowHandle>{two, one}));
    const Messages messages(desktop->display());
    windows.setForegroundWindow(one);
    EXPECT_EQ(windows.foregroundWindow(), one) << "known without another turn of the event loop";
    const auto [source, time] = messages.activationOf(one);
    EXPECT_EQ(source, 2u) << "as the user's own wish";
    EXPECT_NE(time, xcb_timestamp_t(XCB_CURRENT_TIME));
    EXPECT_EQ(windows.topLevelWindows(), (QVector<WindowHandle>{one, two}));
    // No note has the keyboard: nothing to hand over.
    windows.setFocus(two);
    EXPECT_EQ(windows.foregroundWindow(), one);
}

TEST_F(WindowSystemTest, DestroyedWindowIsGoneAtOnceAndTold)
{
    const xcb_window_t window = open({.title = u"short life"_qs});
    QSignalSpy destroyed(&windows, &WindowSystem::windowDestroyed);
    const quint64 count = windows.changeCount();
    foreign.destroy(window);
    EXPECT_FALSE(windows.isWindow(window));
    EXPECT_EQ(destroyed.count(), 0) << "no signal from inside a question";
    EXPECT_FALSE(windows.isVisible(window));
    EXPECT_TRUE(windows.caption(window).isEmpty());
    EXPECT_TRUE(windows.windowRect(window).isNull());
    EXPECT_FALSE(windows.requestCaption(window, 500).has_value());
    EXPECT_THAT(windows.topLevelWindows(), Not(Contains(window)));
    EXPECT_GT(windows.changeCount(), count);
    EXPECT_TRUE(waitFor([&] { return destroyed.count() == 1; }));
    EXPECT_EQ(destroyed.first().first().value<WindowHandle>(), window);

    settle();
    const quint64 trips = windows.roundTrips();
    EXPECT_FALSE(windows.isWindow(window));
    EXPECT_EQ(windows.roundTrips(), trips) << "a window that is known to be gone is not asked for again";
}

TEST_F(WindowSystemTest, NothingChangedCostsNoRoundTrip)
{
    for (int i = 0; i < 5; ++i)
        open({.title = QString::number(i)});
    const QVector<WindowHandle> handles = windows.topLevelWindows();
    ASSERT_EQ(handles.size(), 5);
    askAll(handles);
    settle();
    const quint64 trips = windows.roundTrips();
    const quint64 count = windows.changeCount();
    QSignalSpy changed(&windows, &WindowSystem::changed);
    for (int i = 0; i < 10; ++i)
        askAll(handles);
    EXPECT_EQ(windows.roundTrips(), trips);

    // What no question tells of counts as no change.
    const auto first = static_cast<xcb_window_t>(handles.first());
    foreign.setNumbers(first, "_NET_WM_USER_TIME", "CARDINAL", {1});
    foreign.setTitle(first, windows.caption(first));
    settle();
    EXPECT_EQ(windows.changeCount(), count);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(WindowSystemTest, RectanglesFollowTheWindow)
{
    const xcb_window_t window = open({.title = u"mover"_qs});
    const QRect inner = windows.clientRect(window);
    EXPECT_EQ(inner, x.geometry(window));
    const QRect outer = windows.windowRect(window);
    EXPECT_TRUE(outer.contains(inner));
    EXPECT_GT(inner.top(), outer.top()) << "the title bar belongs to it";

    foreign.configure(window, QRect(300, 200, 250, 180));
    EXPECT_TRUE(waitFor([&] { return windows.clientRect(window).size() == QSize(250, 180); }));
    EXPECT_TRUE(waitFor([&] { return windows.clientRect(window) == x.geometry(window); }));

    // A window that draws its own frame and shadow.
    foreign.setNumbers(window, "_GTK_FRAME_EXTENTS", "CARDINAL", {10, 20, 30, 40});
    EXPECT_TRUE(waitFor([&] { return windows.clientRect(window).size() == QSize(220, 110); }));
    EXPECT_EQ(windows.clientRect(window).topLeft(), x.geometry(window).topLeft() + QPoint(10, 30));
}

TEST_F(WindowSystemTest, TitleStormIsToldAFewTimesAndEndsRight)
{
    const xcb_window_t window = open({.title = u"storm"_qs});
    settle();
    QSignalSpy changed(&windows, &WindowSystem::changed);
    const quint64 trips = windows.roundTrips();
    QElapsedTimer clock;
    clock.start();
    for (int i = 1; i <= 200; ++i) {
        foreign.setTitle(window, QString::number(i));
        QCoreApplication::processEvents();
    }
    const auto seconds = static_cast<double>(clock.elapsed()) / 1000.0;
    EXPECT_TRUE(waitFor([&] { return windows.caption(window) == u"200"_qs; }));
    settle();
    // Ten times a second and once at either end, with a reading each.
    EXPECT_LE(changed.count(), static_cast<int>(seconds * 10) + 4);
    EXPECT_GE(changed.count(), 1);
    EXPECT_LE(windows.roundTrips() - trips, static_cast<quint64>(seconds * 10) + 8);
}

TEST_F(WindowSystemTest, AChangeThatCameAlongWithAReplyIsTold)
{
    const xcb_window_t window = open({.title = u"before"_qs});
    settle();
    QSignalSpy changed(&windows, &WindowSystem::changed);
    foreign.setTitle(window, u"after"_qs);
    // The reply comes behind the event and is read with it, so that nothing is left to wake the program.
    EXPECT_TRUE(windows.children(window).isEmpty());
    EXPECT_TRUE(changed.wait(kLongMs));
    EXPECT_EQ(windows.caption(window), u"after"_qs);
}

TEST_F(WindowSystemTest, ManyWindowsAreReadTogether)
{
    for (int i = 0; i < 100; ++i)
        open({.title = u"window %1"_qs.arg(i), .rect = QRect(10 * (i % 20), 10 * (i / 20), 50, 40)});
    // A second program that starts now: its windows are all there after a few round trips.
    const X11WindowSystem late;
    EXPECT_EQ(late.topLevelWindows().size(), 100);
    EXPECT_NE(late.findWindowByTitle(u"window 57"_qs), kNoWindow);
    EXPECT_LE(late.roundTrips(), 6U);
}

TEST_F(WindowSystemTest, StoppedProgramIsToldAndHoldsNothingUp)
{
    const pid_t program = fork();
    if (program == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        ForeignWindows own(desktop->display());
        own.answerPings(own.open({.title = u"victim"_qs}));
    }
    xcb_window_t window = XCB_NONE;
    ASSERT_TRUE(waitFor([&] { return (window = x.findClient(u"victim"_qs)) != XCB_NONE; }));
    EXPECT_EQ(windows.processId(window), program);
    ASSERT_TRUE(waitFor([&] { return !foreign.numbers(window, "WM_PROTOCOLS").isEmpty(); }));
    EXPECT_TRUE(windows.responds(window, kLongMs));

    ASSERT_EQ(kill(program, SIGSTOP), 0);
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(windows.responds(window, 200));
    EXPECT_GE(clock.elapsed(), 190);
    EXPECT_EQ(windows.requestCaption(window, 200), u"victim"_qs);
    EXPECT_TRUE(windows.windowRect(window).isValid());
    // It still owes an answer, so it is not waited for a second time.
    clock.start();
    EXPECT_FALSE(windows.responds(window, kLongMs));
    EXPECT_LT(clock.elapsed(), kLongMs / 2);

    ASSERT_EQ(kill(program, SIGCONT), 0);
    EXPECT_TRUE(waitFor([&] { return windows.responds(window, 1000); }));
    kill(program, SIGKILL);
    waitpid(program, nullptr, 0);
    EXPECT_TRUE(waitFor([&] { return !windows.isWindow(window); }));
    EXPECT_FALSE(windows.responds(window, kLongMs));
}
