// Another program on the desktop, with as many plain windows as it is told to have. It takes a command
// from each line of its input and answers each with one line:
//
//   open CLASS TITLE       makes a window; the answer is its id
//   close ID               destroys a window
//
// A TITLE is the bytes of the property, in hexadecimal digits.

#include "harness/ForeignWindows.h"

#include <cstdio>
#include <iostream>
#include <sstream>
#include <string>

using norvane::test::ForeignWindows;

namespace {

xcb_window_t open(ForeignWindows &windows, const std::string &wmClass, const QByteArray &title)
{
    ForeignWindows::Looks looks;
    const std::string names = wmClass + '\0' + wmClass + '\0';
    looks.wmClass = QByteArray::fromStdString(names);
    const int step = static_cast<int>(windows.opened().size() % 10);
    looks.rect = QRect(40 + 30 * step, 60 + 20 * step, 640, 480);
    const xcb_window_t window = windows.open(looks);
    windows.setText(window, "_NET_WM_NAME", "UTF8_STRING", title);
    return window;
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
        if (command == "close") {
            windows.destroy(window);
        } else {
            words >> title;
            answer = open(windows, first, QByteArray::fromHex(QByteArray::fromStdString(title)));
        }
        std::printf("%u\n", answer);
        std::fflush(stdout);
    }
    return 0;
}
