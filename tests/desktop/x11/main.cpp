#include "TestDesktop.h"

#include <QApplication>
#include <cstdio>
#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    TestDesktop desktop;
    if (!desktop.isReady()) {
        std::fputs("Xvfb and openbox must be there to run this test.\n", stderr);
        return 1;
    }
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
