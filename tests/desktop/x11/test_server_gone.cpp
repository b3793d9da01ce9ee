#include "harness/ForeignWindows.h"
#include "harness/VirtualDesktop.h"
#include "platform/x11/X11WindowSystem.h"

#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::test;

TEST(ServerGone, LastAnswersStayAndNothingTurns)
{
    VirtualDesktop desktop;
    ASSERT_TRUE(desktop.start({.accessibility = false})) << desktop.error().toStdString();
    qputenv("DISPLAY", desktop.display().toLatin1());

    X11WindowSystem windows;
    ForeignWindows foreign(desktop.display());
    const WindowHandle window = foreign.open({.title = u"left behind"_qs});
    ASSERT_TRUE(waitFor([&] { return windows.isVisible(window); }));

    desktop.killDisplay();
    QSignalSpy changed(&windows, &WindowSystem::changed);
    EXPECT_FALSE(waitFor([&] { return changed.count() > 0; }, 300));
    EXPECT_EQ(windows.caption(window), u"left behind"_qs);
    EXPECT_TRUE(windows.responds(window, 200));
    EXPECT_FALSE(windows.isWindow(window + 1));
    windows.setForegroundWindow(window);
    windows.bringWindowToTop(window);
    EXPECT_TRUE(windows.children(window).isEmpty());

    const X11WindowSystem late;
    EXPECT_TRUE(late.topLevelWindows().isEmpty());
    EXPECT_EQ(late.foregroundWindow(), kNoWindow);
}
