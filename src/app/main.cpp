#include "app/Program.h"
#include "app/window_table.h"
#include "platform/RuntimeError.h"
#include "platform/x11/display.h"
#include "shell/windows/Application.h"
#include "shell/windows/form_icon.h"

#include <QPointer>
#include <QTextStream>
#include <cstdio>
#include <string_view>
#include <vector>

using namespace norvane;

namespace {

/// The command line, with the toolkit told to use X11. Windows are placed inside windows of other
/// programs, which only X11 allows: under Wayland the program runs on the X server that the
/// compositor offers. An environment variable would tell it to the programs that are started, too.
std::vector<char *> argumentsForX11(int argc, char **argv)
{
    static char option[] = "-platform";
    static char x11[] = "xcb";
    std::vector<char *> arguments(argv, argv + argc);
    const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
    if (chosen.isEmpty() || chosen.contains("wayland"))
        arguments.insert(arguments.begin() + 1, {option, x11});
    arguments.push_back(nullptr);
    return arguments;
}

constexpr char kHelp[] =
    "Usage: norvane [OPTION]...\n"
    "Notes that stay with the web pages, folders, documents and programs they belong to.\n"
    "\n"
    "  /NOTIMER     no note opens or closes by itself\n"
    "  /NOIE        do not ask browsers and file managers for their locations\n"
    "  /INTERVAL=n  look at the desktop every n milliseconds (400)\n"
    "  --windows    print the windows with class, caption and location, and end\n"
    "  --help       print this, and end\n"
    "  --version    print the version, and end\n";

/// What an option asks to be printed that needs no desktop; nothing for any other.
const char *answerTo(std::string_view option)
{
    if (option == "--help" || option == "-h")
        return kHelp;
    return option == "--version" ? "Norvane " NORVANE_VERSION "\n" : nullptr;
}

int printWindows()
{
    try {
        QTextStream out(stdout);
        printWindowTable(out);
        return 0;
    } catch (const RuntimeError &error) {
        std::fputs(qPrintable(error.description() + u'\n'), stderr);
        return 1;
    }
}

} // namespace

int main(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        if (const char *answer = answerTo(argv[i])) {
            std::fputs(answer, stdout);
            return 0;
        }
    }
    if (!isDisplayThere()) {
        std::fputs("Norvane needs a desktop with X11 and found none; "
                   "\"./dev demo\" shows it on a virtual one.\n",
                   stderr);
        return 1;
    }
    QApplication::setQuitOnLastWindowClosed(false);
    std::vector<char *> forToolkit = argumentsForX11(argc, argv);
    int count = static_cast<int>(forToolkit.size()) - 1;
    Application application(count, forToolkit.data());
    QApplication::setWindowIcon(applicationIcon());
    QApplication::setApplicationName(QStringLiteral("Norvane"));
    QApplication::setApplicationVersion(QStringLiteral(NORVANE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("norvane"));

    const QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.contains(QStringLiteral("--windows")))
        return printWindows();
    Program program;
    application.setErrorReport([running = QPointer<Program>(&program)](const RuntimeError &error) {
        if (running)
            running->tellOf(error);
    });
    application.setKeysAreListenedTo(
        [running = QPointer<Program>(&program)] { return running && running->keysAreListenedTo(); });
    return program.run(arguments);
}
