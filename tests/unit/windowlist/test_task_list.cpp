#include "fakes/FakeShellWindows.h"
#include "fakes/FakeWindowSystem.h"
#include "windowlist/CTaskList.h"
#include "windowlist/WindowLookup.h"

#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::fakes;

namespace {

/// Locations straight from the fake; every class but "Untracked" is tracked.
class Lookup : public WindowLookup
{
public:
    explicit Lookup(FakeShellWindows &shellWindows) : m_shellWindows(shellWindows) {}
    bool IsTrackedClass(const QString &className) const override
    {
        return className != QStringLiteral("Untracked");
    }
    std::optional<QString> GetWindowLocation(WindowHandle hWnd) override
    {
        const ShellWindows::Answer answer = m_shellWindows.location(hWnd);
        if (answer.state == ShellWindows::State::Unknown)
            return std::nullopt;
        return answer.location;
    }

private:
    FakeShellWindows &m_shellWindows;
};

class TaskList : public testing::Test
{
protected:
    WindowHandle open(const QString &caption, const QString &location = QStringLiteral("/usr/bin/editor"))
    {
        const WindowHandle window = windows.open(QStringLiteral("WordPadClass"), caption);
        shellWindows.answers[window] = {ShellWindows::State::Known, location};
        return window;
    }
    QStringList captions() const
    {
        QStringList result;
        for (int i = 1; i <= tasks.Count(); ++i)
            result.append(tasks.Caption(i));
        return result;
    }
    QStringList refreshed()
    {
        tasks.Refresh();
        return captions();
    }

    FakeWindowSystem windows;
    FakeShellWindows shellWindows;
    Lookup lookup{shellWindows};
    CTaskList tasks{windows, shellWindows, lookup};
};

} // namespace

TEST_F(TaskList, TakesUpWindowsFromTheFrontAndKeepsTheirPlaces)
{
    open(u"back"_qs);
    const WindowHandle front = open(u"front"_qs);
    EXPECT_EQ(refreshed(), (QStringList{u"front"_qs, u"back"_qs}));

    open(u"newest"_qs);
    windows.setCaption(front, u"front, renamed"_qs);
    EXPECT_EQ(refreshed(), (QStringList{u"front, renamed"_qs, u"back"_qs, u"newest"_qs}));

    windows.destroy(front);
    EXPECT_EQ(refreshed(), (QStringList{u"back"_qs, u"newest"_qs}));
}

TEST_F(TaskList, LeavesOutWhatIsNoApplicationWindow)
{
    const WindowHandle tool = open(u"tool"_qs);
    windows.at(tool).tool = true;
    const WindowHandle dialogOfTool = open(u"dialog of a tool window"_qs);
    windows.at(dialogOfTool).owner = tool;
    const WindowHandle plain = open(u"plain"_qs);
    const WindowHandle dialog = open(u"dialog"_qs);
    windows.at(dialog).owner = plain;
    const WindowHandle child = open(u"child"_qs);
    windows.at(child).parent = plain;
    windows.at(open(u"hidden"_qs)).visible = false;
    open(QString());
    windows.open(QStringLiteral("Untracked"), u"untracked"_qs);
    const WindowHandle desktop = open(u"desktop"_qs);
    windows.at(desktop).tool = true;
    windows.at(desktop).className = QStringLiteral("Progman");

    EXPECT_EQ(refreshed(), (QStringList{u"plain"_qs, u"dialog of a tool window"_qs}));

    CTaskList others(windows, shellWindows, lookup);
    others.setMode(1);
    others.Refresh();
    ASSERT_EQ(others.Count(), 2);
    EXPECT_EQ(others.Caption(1), u"plain"_qs);
    EXPECT_EQ(others.Caption(2), u"tool"_qs);

    CTaskList none(windows, shellWindows, lookup);
    none.setMode(2);
    none.Refresh();
    EXPECT_EQ(none.Count(), 0);
}

TEST_F(TaskList, AListedWindowThatHidesStaysUntilItIsAskedAbout)
{
    const WindowHandle window = open(u"a"_qs);
    open(u"b"_qs);
    tasks.Refresh();
    windows.setVisible(window, false);
    EXPECT_EQ(refreshed().size(), 2);

    const quint64 before = tasks.changeCount();
    EXPECT_FALSE(tasks.Valid(0, window));
    EXPECT_EQ(captions(), QStringList{u"b"_qs});
    EXPECT_GT(tasks.changeCount(), before);
    EXPECT_TRUE(tasks.Valid(1, window)) << "an unknown handle falls back to the index";
    EXPECT_FALSE(tasks.Valid(0, window));
}

TEST_F(TaskList, CleansCaptions)
{
    open(u"a|b\"c"_qs);
    EXPECT_EQ(refreshed(), QStringList{u"a b'c"_qs});
    // The cleaned caption never equals the live one: the fast path has to compare the live ones.
    windows.change();
    const int before = windows.captionRequests;
    tasks.Refresh();
    EXPECT_EQ(windows.captionRequests, before);
}

TEST_F(TaskList, ARefreshWithoutAChangeAsksNothing)
{
    for (int i = 0; i < 300; ++i)
        open(u"window %1"_qs.arg(i));
    tasks.Refresh();
    EXPECT_EQ(tasks.Count(), 300);

    const int trips = windows.roundTrips;
    const int queries = shellWindows.queries;
    const quint64 changes = tasks.changeCount();
    tasks.Refresh();
    EXPECT_EQ(windows.roundTrips, trips);
    EXPECT_EQ(shellWindows.queries, queries);
    EXPECT_EQ(tasks.changeCount(), changes);

    // One changed window costs what it costs, the others nothing.
    windows.setCaption(windows.order[7], u"changed"_qs);
    tasks.Refresh();
    EXPECT_EQ(windows.captionRequests, 301);
    EXPECT_EQ(shellWindows.queries, queries + 1);
}

TEST_F(TaskList, ACaptionIsNeverPairedWithAnotherCaptionsLocation)
{
    const WindowHandle window = open(u"First Page"_qs);
    shellWindows.setUnknown(window);
    EXPECT_EQ(refreshed(), QStringList()) << "a new window waits for its location";
    shellWindows.setLocation(window, QString());
    EXPECT_EQ(refreshed(), QStringList{u"First Page"_qs}) << "a look-up that ended without an answer is one";
    shellWindows.setLocation(window, u"http://first/"_qs);
    tasks.Refresh();
    EXPECT_EQ(tasks.DocumentName(1), u"http://first/"_qs) << "under the same caption";

    shellWindows.setUnknown(window);
    windows.setCaption(window, u"Second Page"_qs);
    EXPECT_EQ(refreshed(), QStringList{u"First Page"_qs});
    EXPECT_EQ(tasks.DocumentName(1), u"http://first/"_qs);
    shellWindows.setLocation(window, u"http://second/"_qs);
    EXPECT_EQ(refreshed(), QStringList{u"Second Page"_qs});
    EXPECT_EQ(tasks.DocumentName(1), u"http://second/"_qs);
}

TEST_F(TaskList, AChangeWhileTheWindowIsAskedTakesTheLaterLocation)
{
    const WindowHandle window = open(u"First Page"_qs, u"http://first/"_qs);
    windows.beforeCaption = [&](WindowHandle) {
        windows.beforeCaption = nullptr;
        windows.setCaption(window, u"Second Page"_qs);
        shellWindows.setUnknown(window);
    };
    EXPECT_EQ(refreshed(), QStringList());
    shellWindows.setLocation(window, u"http://second/"_qs);
    EXPECT_EQ(refreshed(), QStringList{u"Second Page"_qs});
    EXPECT_EQ(tasks.DocumentName(1), u"http://second/"_qs);
}

TEST_F(TaskList, AHungWindowKeepsItsRowAndIsAskedLessAndLess)
{
    const WindowHandle window = open(u"before"_qs);
    tasks.Refresh();
    windows.at(window).hung = true;
    windows.setCaption(window, u"after"_qs);
    const int before = windows.captionRequests;
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(refreshed(), QStringList{u"before"_qs});
    EXPECT_LE(windows.captionRequests - before, 12);

    windows.at(window).hung = false;
    for (int i = 0; i < 20 && captions() != QStringList{u"after"_qs}; ++i)
        tasks.Refresh();
    EXPECT_EQ(captions(), QStringList{u"after"_qs});

    const WindowHandle newWindow = open(u"never answered"_qs);
    windows.at(newWindow).hung = true;
    EXPECT_EQ(refreshed(), QStringList{u"after"_qs});
    EXPECT_EQ(tasks.Status(1), 0);
    windows.at(window).hung = true;
    EXPECT_EQ(tasks.Status(1), 1);
}

TEST_F(TaskList, ActivateRestoresAndBringsToTheFront)
{
    const WindowHandle window = open(u"a"_qs);
    tasks.Refresh();
    windows.setMinimized(window, true);
    EXPECT_TRUE(tasks.Activate(0, window));
    EXPECT_FALSE(windows.isMinimized(window));
    EXPECT_EQ(windows.foreground, window);

    windows.foreground = kNoWindow;
    windows.foregroundRefused = true;
    EXPECT_FALSE(tasks.Activate(1, kNoWindow));

    windows.actions.clear();
    EXPECT_FALSE(tasks.Activate(0, 4711));
    EXPECT_TRUE(windows.actions.isEmpty());
}
