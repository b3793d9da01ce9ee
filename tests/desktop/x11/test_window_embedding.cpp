#include "TestClient.h"
#include "platform/x11/X11WindowEmbedding.h"
#include "platform/x11/X11WindowSystem.h"
#include "wait.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <gmock/gmock.h>
#include <memory>

using namespace norvane;
using testing::Contains;

namespace {

constexpr quint32 kPagerSource = 2;
constexpr quint32 kAltKey = 0xffe9;
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

    xcb_window_t open(const QString &title, const QRect &rect)
    {
        TestClient::Looks looks;
        looks.title = title;
        looks.rect = rect;
        const xcb_window_t window = client.open(looks);
        m_opened.append(window);
        EXPECT_TRUE(eventually([&] { return windows.isVisible(window) && client.isViewable(window); }));
        EXPECT_TRUE(eventually([&] { return windows.foregroundWindow() == window; }));
        return window;
    }
    void embed()
    {
        embedding.setParent(note.handle(), target);
        embedding.moveWindow(note.handle(), kPlace);
        note.show();
        EXPECT_TRUE(eventually([&] { return client.isViewable(note.id()) && stands(kPlace); }));
        EXPECT_TRUE(eventually([&] { return windows.isVisible(note.handle()); }));
    }
    /// Clicks the note and waits until it has the keyboard for the window manager and for the
    /// toolkit, which asks for it too.
    void clickNote()
    {
        client.click(client.geometry(note.id()).center());
        EXPECT_TRUE(eventually([&] { return client.activeWindow() == note.id() && note.edit.hasFocus(); }));
    }
    /// Whether the note is at a place inside its target, as the server has it.
    bool stands(const QRect &place)
    {
        return client.geometry(note.id()) == device(place).translated(client.geometry(target).topLeft());
    }
    bool isSeen(const QRect &clip)
    {
        const QRect whole = device(QRect(QPoint(0, 0), kPlace.size()));
        const QVector<QRect> shape = client.shape(note.id());
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
        const QVector<quint32> stacking = client.stacking();
        return stacking.indexOf(note.id()) == stacking.indexOf(target) + 1;
    }

    TestClient client;
    X11WindowSystem windows;
    X11WindowEmbedding embedding{windows};
    NoteWindow note;
    xcb_window_t target = XCB_NONE;

private:
    QVector<xcb_window_t> m_opened;
};

} // namespace

TEST_F(WindowEmbeddingTest, AppearsOnceInItsPlaceWithoutTheKeyboard)
{
    note.setGeometry(0, 0, 10, 10);
    QCoreApplication::processEvents();
    client.watch(note.id());
    const WindowHandle handle = note.handle();
    QSignalSpy moved(&embedding, &WindowEmbedding::moved);
    const quint64 count = windows.changeCount();
    embed();
    EXPECT_TRUE(eventually([&] { return standsDirectlyAbove(); }));
    EXPECT_EQ(client.countOf(XCB_MAP_NOTIFY), 1);
    EXPECT_EQ(client.countOf(XCB_UNMAP_NOTIFY), 0);
    EXPECT_EQ(note.handle(), handle);
    EXPECT_EQ(client.activeWindow(), target);
    EXPECT_EQ(embedding.parentOf(handle), target);
    EXPECT_EQ(windows.parentOf(handle), target);
    EXPECT_EQ(embedding.windowRect(handle), kPlace);
    EXPECT_TRUE(isSeen(QRect(QPoint(0, 0), kPlace.size())));

    const QVector<quint32> states = client.numbers(note.id(), "_NET_WM_STATE");
    EXPECT_THAT(states, Contains(client.atom("_NET_WM_STATE_SKIP_TASKBAR")));
    EXPECT_THAT(states, Contains(client.atom("_NET_WM_STATE_SKIP_PAGER")));
    EXPECT_TRUE(windows.isToolWindow(handle));
    EXPECT_EQ(client.numbers(note.id(), "WM_TRANSIENT_FOR"), QVector<quint32>{target});
    EXPECT_EQ(client.numbers(note.id(), "_NET_WM_WINDOW_TYPE").value(0),
              client.atom("_NET_WM_WINDOW_TYPE_UTILITY"));

    // A note that comes is no news of the desktop, and it has not been moved by anybody.
    EXPECT_FALSE(QTest::qWaitFor([&] { return moved.count() > 0; }, 600));
    EXPECT_EQ(windows.changeCount(), count);
    EXPECT_THAT(windows.topLevelWindows(), testing::Not(Contains(handle)));
}

TEST_F(WindowEmbeddingTest, FollowsItsTarget)
{
    embed();
    QSignalSpy moved(&embedding, &WindowEmbedding::moved);
    client.configure(target, QRect(350, 250, 450, 350));
    EXPECT_TRUE(eventually([&] { return client.geometry(target).width() == 450 && stands(kPlace); }));

    // Dragged by its title bar: the note is there at every halt on the way.
    const QPoint title(client.geometry(target).left() + 200, client.geometry(target).top() - 8);
    client.movePointer(title);
    client.press(XCB_BUTTON_INDEX_1);
    for (const QPoint step : {QPoint(40, 20), QPoint(120, 60), QPoint(-60, 90)}) {
        const QPoint before = client.geometry(target).topLeft();
        client.movePointer(title + step);
        EXPECT_TRUE(eventually([&] {
            // The motion that starts a drag moves nothing yet.
            client.movePointer(title + step + QPoint(1, 0));
            client.movePointer(title + step);
            return client.geometry(target).topLeft() != before;
        }));
        EXPECT_TRUE(eventually([&] { return stands(kPlace); }));
    }
    client.release(XCB_BUTTON_INDEX_1);

    client.request(
        target, "_NET_WM_STATE",
        {1, client.atom("_NET_WM_STATE_MAXIMIZED_VERT"), client.atom("_NET_WM_STATE_MAXIMIZED_HORZ")});
    EXPECT_TRUE(eventually([&] { return client.geometry(target).width() > 1000 && stands(kPlace); }));
    client.request(target, "_NET_WM_STATE", {1, client.atom("_NET_WM_STATE_FULLSCREEN"), 0});
    EXPECT_TRUE(
        eventually([&] { return client.geometry(target).topLeft() == QPoint(0, 0) && stands(kPlace); }));
    EXPECT_TRUE(eventually([&] { return standsDirectlyAbove(); }));
    EXPECT_EQ(embedding.windowRect(note.handle()), kPlace);
    EXPECT_FALSE(QTest::qWaitFor([&] { return moved.count() > 0; }, 600)) << "following is no move";
}

TEST_F(WindowEmbeddingTest, IsMovedByTheWindowManagerInADrag)
{
    embed();
    QSignalSpy moved(&embedding, &WindowEmbedding::moved);
    // Whatever our own requests had to be answered with has come.
    EXPECT_FALSE(QTest::qWaitFor([&] { return moved.count() > 0; }, 600));
    const QPoint start = client.geometry(note.id()).center();
    client.movePointer(start);
    client.pressKey(kAltKey);
    client.press(XCB_BUTTON_INDEX_1);
    const QRect place = kPlace.translated(QPoint(60, 50) / static_cast<int>(note.devicePixelRatio()));
    EXPECT_TRUE(eventually([&] {
        client.movePointer(start + QPoint(50, 40));
        client.movePointer(start + QPoint(60, 50));
        return embedding.windowRect(note.handle()) == place;
    }));
    client.release(XCB_BUTTON_INDEX_1);
    client.releaseKey(kAltKey);
    ASSERT_GE(moved.count(), 1);
    EXPECT_EQ(moved.first().first().value<WindowHandle>(), note.handle());
    // From now on that is its place.
    client.configure(target, QRect(300, 200, 500, 400));
    EXPECT_TRUE(eventually([&] { return client.geometry(target).left() == 301 && stands(place); }))
        << client.geometry(target).left();
}

TEST_F(WindowEmbeddingTest, IsClippedToItsTarget)
{
    embed();
    const QSize size = kPlace.size();
    const QSize inside = client.geometry(target).size() / note.devicePixelRatio();
    embedding.moveWindow(note.handle(), QRect(QPoint(-40, -10), size));
    EXPECT_TRUE(eventually([&] { return isSeen(QRect(40, 10, size.width() - 40, size.height() - 10)); }));
    EXPECT_EQ(embedding.windowRect(note.handle()), QRect(QPoint(-40, -10), size));
    embedding.moveWindow(note.handle(), QRect(QPoint(inside.width() - 50, 0), size));
    EXPECT_TRUE(eventually([&] { return isSeen(QRect(0, 0, 50, size.height())); }));
    embedding.moveWindow(note.handle(), QRect(QPoint(inside.width() + 5, 0), size));
    EXPECT_TRUE(eventually([&] { return isSeen(QRect()); }));
    embedding.moveWindow(note.handle(), kPlace);
    EXPECT_TRUE(eventually([&] { return isSeen(QRect(QPoint(0, 0), size)); }));

    client.configure(target, QRect(200, 150, 100, 60));
    EXPECT_TRUE(eventually([&] {
        const QSize small = client.geometry(target).size() / note.devicePixelRatio();
        return small.height() < 70 &&
               isSeen(QRect(0, 0, small.width() - kPlace.left(), small.height() - kPlace.top()));
    }));
}

TEST_F(WindowEmbeddingTest, GoesAndComesWithItsTarget)
{
    embed();
    client.minimize(target);
    EXPECT_TRUE(eventually([&] { return !client.isViewable(note.id()); }));
    windows.restoreWindow(target);
    EXPECT_TRUE(eventually([&] { return client.isViewable(note.id()) && stands(kPlace); }));
    EXPECT_TRUE(
        eventually([&] { return isSeen(QRect(QPoint(0, 0), kPlace.size())) && standsDirectlyAbove(); }));

    client.setWorkspace(1);
    EXPECT_TRUE(eventually([&] { return !client.isViewable(note.id()); }));
    client.setWorkspace(0);
    EXPECT_TRUE(eventually([&] { return client.isViewable(note.id()) && stands(kPlace); }));

    client.request(target, "_NET_WM_DESKTOP", {1, kPagerSource});
    EXPECT_TRUE(eventually([&] { return client.numbers(note.id(), "_NET_WM_DESKTOP").value(0) == 1; }));
    EXPECT_TRUE(eventually([&] { return !client.isViewable(note.id()); }));

    // A program that takes its window from the screen takes the note along.
    client.setWorkspace(1);
    EXPECT_TRUE(eventually([&] { return client.isViewable(target); }));
    client.unmap(target);
    EXPECT_TRUE(eventually([&] { return isSeen(QRect()); }));
    client.map(target);
    EXPECT_TRUE(eventually([&] {
        return isSeen(QRect(QPoint(0, 0), kPlace.size())) && stands(kPlace) && standsDirectlyAbove();
    }));
    client.minimize(target);
    EXPECT_TRUE(eventually([&] { return !client.isViewable(note.id()); }))
        << "the window manager knows again whose it is";
}

TEST_F(WindowEmbeddingTest, OpensOnTheWorkspaceOfItsTarget)
{
    client.setWorkspace(1);
    EXPECT_TRUE(eventually([&] { return !client.isViewable(target); }));
    embedding.setParent(note.handle(), target);
    embedding.moveWindow(note.handle(), kPlace);
    note.show();
    EXPECT_TRUE(eventually([&] { return windows.isVisible(note.handle()); }));
    EXPECT_FALSE(client.isViewable(note.id()));
    EXPECT_EQ(client.numbers(client.root(), "_NET_CURRENT_DESKTOP"), QVector<quint32>{1});
    client.setWorkspace(0);
    EXPECT_TRUE(eventually([&] { return client.isViewable(note.id()) && stands(kPlace); }));
}

TEST_F(WindowEmbeddingTest, TakesTheKeyboardOnAClickAndGivesItBack)
{
    embed();
    clickNote();
    client.pressKey('a');
    client.releaseKey('a');
    EXPECT_TRUE(eventually([&] { return note.edit.text() == u"a"_qs; }));
    EXPECT_EQ(windows.foregroundWindow(), target) << "the user still works in the target";

    windows.setFocus(target);
    EXPECT_TRUE(eventually([&] { return client.activeWindow() == target; }));
    EXPECT_TRUE(eventually([&] { return !note.edit.hasFocus(); }));

    clickNote();
    client.click(client.geometry(target).bottomRight() - QPoint(10, 10));
    EXPECT_TRUE(eventually([&] { return client.activeWindow() == target; }));

    // Closing the note gives the keyboard to its target, not to another window.
    open(u"bystander"_qs, QRect(900, 500, 100, 100));
    clickNote();
    embedding.setParent(note.handle(), kNoWindow);
    EXPECT_TRUE(eventually([&] { return client.activeWindow() == target; }));
    EXPECT_TRUE(note.isHidden());
    EXPECT_EQ(embedding.parentOf(note.handle()), kNoWindow);
}

TEST_F(WindowEmbeddingTest, KeepsItsPlaceInTheStack)
{
    embed();
    const xcb_window_t other = open(u"other"_qs, QRect(250, 200, 300, 300));
    EXPECT_TRUE(eventually([&] { return client.stacking().last() == other && standsDirectlyAbove(); }))
        << "nothing of a note is above the window before its target";
    client.raise(target);
    EXPECT_TRUE(eventually([&] {
        return client.stacking().last() == note.id() && standsDirectlyAbove() &&
               windows.topLevelWindows().first() == target;
    }));

    const quint64 trips = windows.roundTrips();
    windows.bringWindowToTop(note.handle());
    EXPECT_EQ(windows.roundTrips(), trips) << "it is where it belongs";

    // A second note of the same target comes above the first one; that is no disorder.
    NoteWindow second;
    embedding.setParent(second.handle(), target);
    embedding.moveWindow(second.handle(), kPlace.translated(200, 0));
    second.show();
    EXPECT_TRUE(eventually([&] { return windows.isVisible(second.handle()); }));
    const QVector<quint32> before = client.stacking();
    windows.bringWindowToTop(note.handle());
    windows.bringWindowToTop(second.handle());
    EXPECT_FALSE(QTest::qWaitFor([&] { return client.stacking() != before; }, 300));
}

TEST_F(WindowEmbeddingTest, SurvivesItsTarget)
{
    embed();
    const WindowHandle handle = note.handle();
    QSignalSpy destroyed(&embedding, &WindowEmbedding::targetDestroyed);
    client.destroy(target);
    EXPECT_TRUE(eventually([&] { return destroyed.count() == 1; }));
    EXPECT_EQ(destroyed.first().first().value<WindowHandle>(), handle);
    EXPECT_TRUE(note.isHidden());
    EXPECT_EQ(note.handle(), handle);
    EXPECT_EQ(embedding.parentOf(handle), kNoWindow);
    EXPECT_EQ(note.windowHandle()->transientParent(), nullptr);

    // It can go into another window.
    target = open(u"next"_qs, QRect(100, 100, 500, 400));
    embed();
    EXPECT_TRUE(eventually([&] { return standsDirectlyAbove(); }));

    // A target that is gone before the note is put into it ends the same way.
    const xcb_window_t dead = target;
    embedding.setParent(handle, kNoWindow);
    client.destroy(dead);
    EXPECT_TRUE(eventually([&] { return !windows.isWindow(dead); }));
    destroyed.clear();
    embedding.setParent(handle, dead);
    EXPECT_EQ(destroyed.count(), 0);
    EXPECT_TRUE(eventually([&] { return destroyed.count() == 1; }));
}

TEST_F(WindowEmbeddingTest, ForgetsANoteThatIsDeleted)
{
    auto doomed = std::make_unique<NoteWindow>();
    const WindowHandle handle = doomed->handle();
    embedding.setParent(handle, target);
    embedding.moveWindow(handle, kPlace);
    doomed->show();
    EXPECT_TRUE(eventually([&] { return windows.isVisible(handle); }));
    doomed.reset();
    EXPECT_EQ(embedding.parentOf(handle), kNoWindow);
    client.configure(target, QRect(300, 200, 450, 350));
    EXPECT_TRUE(
        eventually([&] { return windows.clientRect(target).width() == 450 / qApp->devicePixelRatio(); }));
    EXPECT_TRUE(windows.isWindow(target)) << "the note's end is not the target's";
}
