#include "TestClient.h"
#include "TestDesktop.h"
#include "platform/x11/X11WindowSystem.h"
#include "wait.h"

#include <QApplication>
#include <QSignalSpy>
#include <cstdio>
#include <gmock/gmock.h>

using namespace norvane;

namespace {
TestDesktop *theDesktop = nullptr;
}

// The toolkit ends a process whose server has gone; here it has no part in it, so that the backend
// is seen alone.
TEST(ServerGone, LastAnswersStayAndNothingTurns)
{
    X11WindowSystem windows;
    {
        TestClient client;
        TestClient::Looks looks;
        looks.title = QStringLiteral("left behind");
        const WindowHandle window = client.open(looks);
        ASSERT_TRUE(eventually([&] { return windows.isVisible(window); }));

        theDesktop->killServer();
        QSignalSpy changed(&windows, &WindowSystem::changed);
        EXPECT_FALSE(QTest::qWaitFor([&] { return changed.count() > 0; }, 300));
        EXPECT_EQ(windows.caption(window), QStringLiteral("left behind"));
        EXPECT_TRUE(windows.responds(window, 200));
        EXPECT_FALSE(windows.isWindow(window + 1));
        windows.setForegroundWindow(window);
        windows.bringWindowToTop(window);
        EXPECT_TRUE(windows.children(window).isEmpty());
    }
    const X11WindowSystem late;
    EXPECT_TRUE(late.topLevelWindows().isEmpty());
    EXPECT_EQ(late.foregroundWindow(), kNoWindow);
}

int main(int argc, char **argv)
{
    TestDesktop desktop;
    if (!desktop.isReady()) {
        std::fputs("Xvfb and openbox must be there to run this test.\n", stderr);
        return 1;
    }
    theDesktop = &desktop;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
