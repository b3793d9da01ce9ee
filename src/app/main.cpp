#include "app/Program.h"
#include "app/window_table.h"
#include "platform/x11/display.h"

#include <QApplication>
#include <QTextStream>
#include <cstdio>

using namespace norvane;

namespace {

/// Windows are placed inside windows of other programs, which only X11 allows: under Wayland the
/// program runs on the X server that the compositor offers.
void chooseX11()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
}

} // namespace

int main(int argc, char **argv)
{
    if (!isDisplayThere()) {
        std::fputs("Norvane needs a desktop with X11 and found none; "
                   "\"./dev demo\" shows it on a virtual one.\n",
                   stderr);
        return 1;
    }
    chooseX11();
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Norvane"));
    QApplication::setApplicationVersion(QStringLiteral(NORVANE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("norvane"));

    const QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.contains(QStringLiteral("--windows"))) {
        QTextStream out(stdout);
        printWindowTable(out);
        return 0;
    }
    Program program;
    return program.run(arguments);
}
