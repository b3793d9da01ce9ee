// Another program on the desktop, with as many plain windows as it is told to have. It takes a command
// from each line of its input and answers each with one line:
//
//   open CLASS TITLE       makes a window; the answer is its id
//   title ID TITLE         changes a title
//   flutter ID RATE        changes a title RATE times a second, and does nothing else any more
//   close ID               destroys a window
//
// A TITLE is the bytes of the property, in hexadecimal digits.

#include "harness/ForeignWindows.h"

#include <QElapsedTimer>
#include <cstdio>
#include <iostream>
#include <poll.h>
#include <sstream>
#include <string>

using norvane::test::ForeignWindows;

namespace {

void setTitle(ForeignWindows &windows, xcb_window_t window, const QByteArray &bytes)
{
    windows.setText(window, "_NET_WM_NAME", "UTF8_STRING", bytes);
}

xcb_window_t open(ForeignWindows &windows, const std::string &wmClass, const QByteArray &title)
{
    ForeignWindows::Looks looks;
    const std::string names = wmClass + '\0' + wmClass + '\0';
    looks.wmClass = QByteArray::fromStdString(names);
    const int step = static_cast<int>(windows.opened().size() % 10);
    looks.rect = QRect(40 + 30 * step, 60 + 20 * step, 640, 480);
    const xcb_window_t window = windows.open(looks);
    setTitle(windows, window, title);
    return window;
}

[[noreturn]] void flutter(ForeignWindows &windows, xcb_window_t window, int rate)
{
    QElapsedTimer time;
    time.start();
    for (qint64 changes = 1;; ++changes) {
        setTitle(windows, window, "Number " + QByteArray::number(changes));
        // As many as are due by now, whatever held the program.
        if (const qint64 early = changes * 1000 / rate - time.elapsed(); early > 0)
            ::poll(nullptr, 0, static_cast<int>(early));
    }
}

} // namespace

int main()
{
    ForeignWindows windows(qEnvironmentVariable("DISPLAY"));
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string command;
        std::string first;
        std::string title;
        words >> command >> first;
        const auto window = static_cast<xcb_window_t>(std::strtoul(first.c_str(), nullptr, 10));
        unsigned answer = window;
        if (command == "flutter") {
            int rate = 0;
            words >> rate;
            flutter(windows, window, rate);
        } else if (command == "close") {
            windows.destroy(window);
        } else {
            words >> title;
            const QByteArray bytes = QByteArray::fromHex(QByteArray::fromStdString(title));
            if (command == "open")
                answer = open(windows, first, bytes);
            else
                setTitle(windows, window, bytes);
        }
        std::printf("%u\n", answer);
        std::fflush(stdout);
    }
    return 0;
}
