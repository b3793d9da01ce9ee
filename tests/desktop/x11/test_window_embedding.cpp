#include "harness/ForeignWindows.h"
#include "harness/XClient.h"
#include "platform/x11/X11WindowEmbedding.h"
#include "platform/x11/X11WindowSystem.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QLineEdit>
#include <QSignalSpy>
#include <QThread>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <gmock/gmock.h>
#include <memory>

using namespace norvane;
using namespace norvane::test;
using testing::Contains;

namespace {

constexpr QRect kPlace(20, 30, 160, 90);

/// A note as its owner builds it: hidden, its native window made.
class NoteWindow : public QWidget
{
public:
    NoteWindow() : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint)
    {
        setAttribute(Qt::WA_ShowWithoutActivating);
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(&edit);
        winId();
    }
    WindowHandle handle() { return winId(); }
    xcb_window_t id() { return static_cast<xcb_window_t>(winId()); }

    QLineEdit edit;
};

class WindowEmbeddingTest : public testing::Test
{
protected:
    WindowEmbeddingTest()
    {
        target = open(u"target"_qs, QRect(200, 150, 500, 400));
        note.edit.setFixedHeight(30);
    }
    ~WindowEmbeddingTest() override
    {
        x.goToDesktop(0);
        for (const xcb_window_t window : foreign.opened())
            foreign.destroy(window);
        // Ids are given out again: the window manager must have done with these first.
        EXPECT_TRUE(waitFor([&] {
            const QVector<xcb_window_t> stacking = x.stacking();
            return std::none_of(foreign.opened().begin(), foreign.opened().end(),
                                [&](xcb_window_t window) { return stacking.contains(window); });
        }));
    }

    xcb_window_t open(const QString &title, const QRect &rect)
    {
        const xcb_window_t window = foreign.open({.title = title, .rect = rect});
        EXPECT_TRUE(waitFor([&] { return windows.foregroundWindow() == window && x.isViewable(window); }));
        return window;
    }
    void embed()
    {
        embedding.setParent(note.handle(), target);
        embedding.moveWindow(note.handle(), kPlace);
        note.show();
        EXPECT_TRUE(waitFor([&] { return x.isViewable(note.id()) && stands(kPlace); }));
        EXPECT_TRUE(waitFor([&] { return windows.isVisible(note.handle()); }));
    }
    /// Clicks the note and waits until it has the keyboard for the window manager and for the
    /// toolkit, which asks for it too.
    void clickNote()
    {
        x.click(x.geometry(note.id()).center());
        EXPECT_TRUE(waitFor([&] { return x.activeWindow() == note.id() && note.edit.hasFocus(); }));
    }
    /// Whether the note is at a place inside its target, as the server has it.
    bool stands(const QRect &place)
    {
        return x.geometry(note.id()) == device(place).translated(x.geometry(target).topLeft());
    }
    bool isSeen(const QRect &clip)
    {
        const QRect whole = device(QRect(QPoint(0, 0), kPlace.size()));
        const QVector<QRect> shape = x.shape(note.id());
        const QRect seen = shape.size() == 1 ? shape.first().intersected(whole) : QRect();
        return seen == device(clip) || (seen.isEmpty() && clip.isEmpty());
    }
    QRect device(const QRect &logical) const
    {
        const auto scale = static_cast<int>(note.devicePixelRatio());
        return QRect(logical.topLeft() * scale, logical.size() * scale);
    }
    bool standsDirectlyAbove()
    {
        const QVector<quint32> stacking = x.stacking();
        return stacking.indexOf(note.id()) == stacking.indexOf(target) + 1;
    }

    XClient x{qEnvironmentVariable("DISPLAY")};
    ForeignWindows foreign{qEnvironmentVariable("DISPLAY")};
    X11WindowSystem windows;
    X11WindowEmbedding embedding{windows};
    NoteWindow note;
    xcb_window_t target = XCB_NONE;
};

} // namespace

TEST_F(WindowEmbeddingTest, AppearsOnceInItsPlaceWithoutTheKeyboard)
{
    note.setGeometry(0, 0, 10, 10);
    QCoreApplication::processEvents();
    const WindowHandle handle = note.handle();
    QSignalSpy moved(&embedding, &WindowEmbedding::moved);
    const quint64 count = windows.changeCount();
    embed();
    EXPECT_TRUE(waitFor([&] { return standsDirectlyAbove(); }));
    EXPECT_EQ(note.handle(), handle);
    EXPECT_EQ(x.activeWindow(), target);
    EXPECT_EQ(embedding.parentOf(handle), target);
    EXPECT_EQ(windows.parentOf(handle), target);
    EXPECT_EQ(embedding.windowRect(handle), kPlace);
    EXPECT_TRUE(isSeen(QRect(QPoint(0, 0), kPlace.size())));

    const QVector<quint32> states = foreign.numbers(note.id(), "_NET_WM_STATE");
    EXPECT_THAT(states, Contains(foreign.atom("_NET_WM_STATE_SKIP_TASKBAR")));
    EXPECT_THAT(states, Contains(foreign.atom("_NET_WM_STATE_SKIP_PAGER")));
    EXPECT_TRUE(windows.isToolWindow(handle));
    EXPECT_EQ(x.transientFor(note.id()), target);
    EXPECT_EQ(foreign.numbers(note.id(), "_NET_WM_WINDOW_TYPE").value(0),
              foreign.atom("_NET_WM_WINDOW_TYPE_UTILITY"));

    // A note that comes is no news of the desktop, and it has not been moved by anybody.
    EXPECT_FALSE(waitFor([&] { return moved.count() > 0; }, 600));
    EXPECT_EQ(windows.changeCount(), count);
    EXPECT_THAT(windows.topLevelWindows(), testing::Not(Contains(handle)));
}

TEST_F(WindowEmbeddingTest, FollowsItsTarget)
{
    embed();
    QSignalSpy moved(&embedding, &WindowEmbedding::moved);
    foreign.configure(target, QRect(350, 250, 450, 350));
    EXPECT_TRUE(waitFor([&] { return x.geometry(target).width() == 450 && stands(kPlace); }));

    // Dragged by its title bar: the note is there at every halt on the way.
    const QPoint title(x.geometry(target).left() + 200, x.geometry(target).top() - 8);
    x.moveMouse(title);
    x.button(1, true);
    for (const QPoint step : {QPoint(40, 20), QPoint(120, 60), QPoint(-60, 90)}) {
        const QPoint before = x.geometry(target).topLeft();
        x.moveMouse(title + step);
        EXPECT_TRUE(waitFor([&] {
            // The motion that starts a drag moves nothing yet.
            x.moveMouse(title + step + QPoint(1, 0));
            x.moveMouse(title + step);
            return x.geometry(target).topLeft() != before;
        }));
        EXPECT_TRUE(waitFor([&] { return stands(kPlace); }));
    }
    x.button(1, false);

    x.setMaximised(target, true);
    EXPECT_TRUE(waitFor([&] { return x.geometry(target).width() > 1000 && stands(kPlace); }));
    foreign.request(target, "_NET_WM_STATE", {1, foreign.atom("_NET_WM_STATE_FULLSCREEN"), 0});
    EXPECT_TRUE(waitFor([&] { return x.geometry(target).topLeft() == QPoint(0, 0) && stands(kPlace); }));
    EXPECT_TRUE(waitFor([&] { return standsDirectlyAbove(); }));
    EXPECT_EQ(embedding.windowRect(note.handle()), kPlace);
    EXPECT_FALSE(waitFor([&] { return moved.count() > 0; }, 600)) << "following is no move";
}

TEST_F(WindowEmbeddingTest, IsMovedByTheWindowManagerInADrag)
{
    embed();
    QSignalSpy moved(&embedding, &WindowEmbedding::moved);
    // Whatever our own requests had to be answered with has come.
    EXPECT_FALSE(waitFor([&] { return moved.count() > 0; }, 600));
    const QPoint start = x.geometry(note.id()).center();
    x.moveMouse(start);
    x.key(u"alt"_qs, true);
    x.button(1, true);
    const QRect place = kPlace.translated(QPoint(60, 50) / static_cast<int>(note.devicePixelRatio()));
    EXPECT_TRUE(waitFor([&] {
        x.moveMouse(start + QPoint(50, 40));
        x.moveMouse(start + QPoint(60, 50));
        return embedding.windowRect(note.handle()) == place;
    }));
    x.button(1, false);
    x.key(u"alt"_qs, false);
    ASSERT_GE(moved.count(), 1);
    EXPECT_EQ(moved.first().first().value<WindowHandle>(), note.handle());
    // From now on that is its place.
    foreign.configure(target, QRect(300, 200, 500, 400));
    EXPECT_TRUE(waitFor([&] { return x.geometry(target).left() == 301 && stands(place); }))
        << x.geometry(target).left();
}

TEST_F(WindowEmbeddingTest, IsMovedRightBeforeItsTarget)
{
    embed();
    QSignalSpy moved(&embedding, &WindowEmbedding::moved);
    EXPECT_FALSE(waitFor([&] { return moved.count() > 0; }, 600));
    const QRect place = kPlace.translated(60, 50);
    // Both are told at once, by two connections: the first has to be through.
    x.moveResize(note.id(), device(place).translated(x.geometry(target).topLeft()));
    ASSERT_TRUE(x.exists(note.id()));
    foreign.configure(target, QRect(300, 200, 500, 400));
    ASSERT_TRUE(waitFor([&] { return x.geometry(target).left() == 301; }));
    EXPECT_TRUE(waitFor([&] { return stands(place); }));
    EXPECT_EQ(embedding.windowRect(note.handle()), place);
    EXPECT_EQ(moved.count(), 1);
}

TEST_F(WindowEmbeddingTest, IsClippedToItsTarget)
{
    embed();
    const QSize size = kPlace.size();
    const QSize inside = x.geometry(target).size() / note.devicePixelRatio();
    embedding.moveWindow(note.handle(), QRect(QPoint(-40, -10), size));
    EXPECT_TRUE(waitFor([&] { return isSeen(QRect(40, 10, size.width() - 40, size.height() - 10)); }));
    EXPECT_EQ(embedding.windowRect(note.handle()), QRect(QPoint(-40, -10), size));
    embedding.moveWindow(note.handle(), QRect(QPoint(inside.width() - 50, 0), size));
    EXPECT_TRUE(waitFor([&] { return isSeen(QRect(0, 0, 50, size.height())); }));
    embedding.moveWindow(note.handle(), QRect(QPoint(inside.width() + 5, 0), size));
    EXPECT_TRUE(waitFor([&] { return isSeen(QRect()); }));
    embedding.moveWindow(note.handle(), kPlace);
    EXPECT_TRUE(waitFor([&] { return isSeen(QRect(QPoint(0, 0), size)); }));

    foreign.configure(target, QRect(200, 150, 100, 60));
    EXPECT_TRUE(waitFor([&] {
        const QSize small = x.geometry(target).size() / note.devicePixelRatio();
        return small.height() < 70 &&
               isSeen(QRect(0, 0, small.width() - kPlace.left(), small.height() - kPlace.top()));
    }));
}

TEST_F(WindowEmbeddingTest, GoesAndComesWithItsTarget)
{
    embed();
    x.minimise(target);
    EXPECT_TRUE(waitFor([&] { return !x.isViewable(note.id()); }));
    windows.restoreWindow(target);
    EXPECT_TRUE(waitFor([&] { return x.isViewable(note.id()) && stands(kPlace); }));
    EXPECT_TRUE(waitFor([&] { return isSeen(QRect(QPoint(0, 0), kPlace.size())) && standsDirectlyAbove(); }));

    x.goToDesktop(1);
    EXPECT_TRUE(waitFor([&] { return !x.isViewable(note.id()); }));
    x.goToDesktop(0);
    EXPECT_TRUE(waitFor([&] { return x.isViewable(note.id()) && stands(kPlace); }));

    x.moveToDesktop(target, 1);
    EXPECT_TRUE(waitFor([&] { return x.desktopOf(note.id()) == 1; }));
    EXPECT_TRUE(waitFor([&] { return !x.isViewable(note.id()); }));

    // A program that takes its window from the screen takes the note along.
    x.goToDesktop(1);
    EXPECT_TRUE(waitFor([&] { return x.isViewable(target); }));
    foreign.unmap(target);
    EXPECT_TRUE(waitFor([&] { return isSeen(QRect()); }));
    foreign.map(target);
    EXPECT_TRUE(waitFor([&] {
        return isSeen(QRect(QPoint(0, 0), kPlace.size())) && stands(kPlace) && standsDirectlyAbove();
    }));
    x.minimise(target);
    EXPECT_TRUE(waitFor([&] { return !x.isViewable(note.id()); }))
        << "the window manager knows again whose it is";
}

TEST_F(WindowEmbeddingTest, TakesTheKeyboardOnAClickAndGivesItBack)
{
    embed();
    clickNote();
    x.press(u"a"_qs);
    EXPECT_TRUE(waitFor([&] { return note.edit.text() == u"a"_qs; }));
    EXPECT_EQ(windows.foregroundWindow(), target) << "the user still works in the target";

    windows.setFocus(target);
    EXPECT_TRUE(waitFor([&] { return x.activeWindow() == target; }));
    EXPECT_TRUE(waitFor([&] { return !note.edit.hasFocus(); }));

    clickNote();
    x.click(x.geometry(target).bottomRight() - QPoint(10, 10));
    EXPECT_TRUE(waitFor([&] { return x.activeWindow() == target; }));

    // Closing the note gives the keyboard to its target, not to another window.
    open(u"bystander"_qs, QRect(900, 500, 100, 100));
    clickNote();
    embedding.setParent(note.handle(), kNoWindow);
    EXPECT_TRUE(waitFor([&] { return x.activeWindow() == target; }));
    EXPECT_TRUE(note.isHidden());
    EXPECT_EQ(embedding.parentOf(note.handle()), kNoWindow);
}

TEST_F(WindowEmbeddingTest, KeepsItsPlaceInTheStack)
{
    embed();
    const xcb_window_t other = open(u"other"_qs, QRect(250, 200, 300, 300));
    EXPECT_TRUE(waitFor([&] { return x.stacking().last() == other && standsDirectlyAbove(); }))
        << "nothing of a note is above the window before its target";
    x.activate(target);
    EXPECT_TRUE(waitFor([&] {
        return x.stacking().last() == note.id() && standsDirectlyAbove() &&
               windows.topLevelWindows().first() == target;
    }));

    EXPECT_TRUE(waitFor([&] {
        const quint64 trips = windows.roundTrips();
        windows.bringWindowToTop(note.handle());
        return windows.roundTrips() == trips;
    })) << "where it belongs, it costs nothing";

    // A second note of the same target comes above the first one; that is no disorder.
    NoteWindow second;
    embedding.setParent(second.handle(), target);
    embedding.moveWindow(second.handle(), kPlace.translated(200, 0));
    second.show();
    EXPECT_TRUE(waitFor([&] { return windows.isVisible(second.handle()); }));
    const QVector<quint32> before = x.stacking();
    windows.bringWindowToTop(note.handle());
    windows.bringWindowToTop(second.handle());
    EXPECT_FALSE(waitFor([&] { return x.stacking() != before; }, 300));
}

TEST_F(WindowEmbeddingTest, ComesUpBehindTheWindowsBeforeItsTarget)
{
    const xcb_window_t middle = open(u"middle"_qs, QRect(220, 180, 300, 300));
    const xcb_window_t front = open(u"front"_qs, QRect(250, 200, 300, 300));
    const auto isInOrder = [&] {
        return standsDirectlyAbove() && x.stacking().last(2) == QVector<quint32>{middle, front};
    };
    embed();
    EXPECT_TRUE(waitFor([&] { return isInOrder() && isSeen(QRect(QPoint(0, 0), kPlace.size())); }));
    EXPECT_EQ(x.activeWindow(), front);

    // Shown again before it was told that it had gone: its place in the list of windows looks the same.
    const auto busyWaitFor = [](const std::function<bool()> &condition) {
        for (QDeadlineTimer deadline(20000); !condition() && !deadline.hasExpired();)
            QThread::yieldCurrentThread();
        return condition();
    };
    note.hide();
    EXPECT_TRUE(busyWaitFor([&] { return !windows.isVisible(note.handle()); }));
    note.show();
    EXPECT_TRUE(busyWaitFor([&] { return x.isViewable(note.id()) && x.stacking().contains(note.id()); }));
    EXPECT_TRUE(waitFor([&] { return isInOrder() && isSeen(QRect(QPoint(0, 0), kPlace.size())); }));
    EXPECT_EQ(x.activeWindow(), front);

    note.hide();
    EXPECT_TRUE(waitFor([&] { return !windows.isVisible(note.handle()); }));
    embed();
    EXPECT_TRUE(waitFor([&] { return isInOrder() && x.activeWindow() == front; }));
}

TEST_F(WindowEmbeddingTest, SurvivesItsTarget)
{
    embed();
    const WindowHandle handle = note.handle();
    QSignalSpy destroyed(&embedding, &WindowEmbedding::targetDestroyed);
    foreign.destroy(target);
    EXPECT_TRUE(waitFor([&] { return destroyed.count() == 1; }));
    EXPECT_EQ(destroyed.first().first().value<WindowHandle>(), handle);
    EXPECT_TRUE(note.isHidden());
    EXPECT_EQ(note.handle(), handle);
    EXPECT_EQ(embedding.parentOf(handle), kNoWindow);
    EXPECT_EQ(note.windowHandle()->transientParent(), nullptr);

    // It can go into another window.
    target = open(u"next"_qs, QRect(100, 100, 500, 400));
    embed();
    EXPECT_TRUE(waitFor([&] { return standsDirectlyAbove(); }));

    // A target that is gone before the note is put into it ends the same way.
    const xcb_window_t dead = target;
    embedding.setParent(handle, kNoWindow);
    foreign.destroy(dead);
    EXPECT_TRUE(waitFor([&] { return !windows.isWindow(dead); }));
    destroyed.clear();
    embedding.setParent(handle, dead);
    EXPECT_EQ(destroyed.count(), 0);
    EXPECT_TRUE(waitFor([&] { return destroyed.count() == 1; }));
}

TEST_F(WindowEmbeddingTest, ForgetsANoteThatIsDeleted)
{
    auto doomed = std::make_unique<NoteWindow>();
    const WindowHandle handle = doomed->handle();
    embedding.setParent(handle, target);
    embedding.moveWindow(handle, kPlace);
    doomed->show();
    EXPECT_TRUE(waitFor([&] { return windows.isVisible(handle); }));
    doomed.reset();
    EXPECT_EQ(embedding.parentOf(handle), kNoWindow);
    foreign.configure(target, QRect(300, 200, 450, 350));
    EXPECT_TRUE(
        waitFor([&] { return windows.clientRect(target).width() == 450 / qApp->devicePixelRatio(); }));
    EXPECT_TRUE(windows.isWindow(target)) << "the note's end is not the target's";
}
