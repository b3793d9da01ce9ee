#include "TestDesktop.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QDir>
#include <QTemporaryDir>
#include <array>
#include <csignal>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace {

constexpr int kStartMs = 20000;

pid_t start(std::vector<std::string> arguments)
{
    std::vector<char *> pointers;
    for (std::string &argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    const pid_t process = fork();
    if (process == 0) {
        // A test that is killed takes its desktop along.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        execvp(pointers[0], pointers.data());
        _exit(127);
    }
    return process;
}

void end(pid_t &process)
{
    if (process > 0) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
        process = -1;
    }
}

/// The number that the server writes when it is ready; empty when it ends or takes too long.
QByteArray readNumber(int descriptor)
{
    QByteArray text;
    const QDeadlineTimer deadline(kStartMs);
    while (!text.endsWith('\n')) {
        pollfd waiting = {descriptor, POLLIN, 0};
        char byte = 0;
        if (poll(&waiting, 1, static_cast<int>(deadline.remainingTime())) <= 0 ||
            read(descriptor, &byte, 1) != 1) {
            return {};
        }
        text.append(byte);
    }
    return text.trimmed();
}

} // namespace

TestDesktop::TestDesktop()
{
    QTemporaryDir home;
    home.setAutoRemove(false);
    m_home = home.path();
    qputenv("HOME", m_home.toUtf8());
    qputenv("XDG_CONFIG_HOME", m_home.toUtf8());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qunsetenv("WAYLAND_DISPLAY");

    std::array<int, 2> numbers = {};
    if (pipe(numbers.data()) != 0) {
        return;
    }
    m_server = start({"Xvfb", "-displayfd", std::to_string(numbers[1]), "-screen", "0", "1280x800x24",
                      "-nolisten", "tcp", "-noreset"});
    close(numbers[1]);
    const QByteArray number = readNumber(numbers[0]);
    close(numbers[0]);
    if (number.isEmpty()) {
        return;
    }
    qputenv("DISPLAY", ":" + number);
    m_windowManager = start({"openbox", "--sm-disable"});
    m_ready = m_windowManager > 0 && waitForWindowManager();
}

TestDesktop::~TestDesktop()
{
    end(m_windowManager);
    end(m_server);
    QDir(m_home).removeRecursively();
}

void TestDesktop::killServer()
{
    end(m_server);
}

bool TestDesktop::waitForWindowManager() const
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &mask);
    constexpr char kName[] = "_NET_CLIENT_LIST";
    xcb_intern_atom_reply_t *atom =
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, sizeof kName - 1, kName), nullptr);
    const QDeadlineTimer deadline(kStartMs);
    bool there = false;
    while (atom && !there && !deadline.hasExpired()) {
        const auto cookie =
            xcb_get_property(connection, 0, root, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
        xcb_get_property_reply_t *reply = xcb_get_property_reply(connection, cookie, nullptr);
        there = reply && reply->type != XCB_ATOM_NONE;
        free(reply);
        // A change may have come along with the reply: look again before waiting for more.
        bool news = false;
        while (xcb_generic_event_t *event = xcb_poll_for_event(connection)) {
            free(event);
            news = true;
        }
        if (!there && !news) {
            pollfd waiting = {xcb_get_file_descriptor(connection), POLLIN, 0};
            poll(&waiting, 1, static_cast<int>(deadline.remainingTime()));
        }
    }
    free(atom);
    xcb_disconnect(connection);
    return there;
}
