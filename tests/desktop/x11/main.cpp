// The program's own: the display must be there before the application that shows windows on it.
#include "harness/VirtualDesktop.h"

#include <QApplication>
#include <cstdio>
#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    norvane::test::VirtualDesktop desktop;
    {
        QCoreApplication starting(argc, argv);
        if (!desktop.start({.accessibility = false})) {
            std::fprintf(stderr, "%s\n", qPrintable(desktop.error()));
            return 1;
        }
    }
    qputenv("DISPLAY", desktop.display().toLatin1());
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
