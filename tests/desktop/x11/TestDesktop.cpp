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
constexpr int kProbeMs = 1000;

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

/// The window manager's list of windows, as one client sees it.
class RootList
{
public:
    RootList() : m_connection(xcb_connect(nullptr, nullptr))
    {
        const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        m_root = screen->root;
        const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
        constexpr char kName[] = "_NET_CLIENT_LIST";
        const auto cookie = xcb_intern_atom(m_connection, 0, sizeof kName - 1, kName);
        xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(m_connection, cookie, nullptr);
        m_list = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
        free(reply);
    }
    ~RootList() { xcb_disconnect(m_connection); }
    RootList(const RootList &) = delete;
    RootList &operator=(const RootList &) = delete;

    xcb_window_t openWindow()
    {
        const xcb_window_t window = xcb_generate_id(m_connection);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root, 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(m_connection, window);
        return window;
    }
    void closeWindow(xcb_window_t window) { xcb_destroy_window(m_connection, window); }

    bool waitForCount(int count, int timeoutMs)
    {
        const QDeadlineTimer deadline(timeoutMs);
        while (countWindows() != count) {
            // A change may have come along with the reply: look again before waiting for more.
            bool news = false;
            while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
                free(event);
                news = true;
            }
            if (deadline.hasExpired()) {
                return false;
            }
            if (!news) {
                pollfd waiting = {xcb_get_file_descriptor(m_connection), POLLIN, 0};
                poll(&waiting, 1, static_cast<int>(deadline.remainingTime()));
            }
        }
        return true;
    }

private:
    int countWindows()
    {
        const auto cookie =
            xcb_get_property(m_connection, 0, m_root, m_list, XCB_GET_PROPERTY_TYPE_ANY, 0, 16);
        xcb_get_property_reply_t *reply = xcb_get_property_reply(m_connection, cookie, nullptr);
        const int count = reply ? xcb_get_property_value_length(reply) / 4 : 0;
        free(reply);
        return count;
    }

    xcb_connection_t *m_connection;
    xcb_window_t m_root = XCB_NONE;
    xcb_atom_t m_list = XCB_ATOM_NONE;
};

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
    // A window manager that is starting may overlook a window for good. It is ready when it has
    // taken one; an overlooked one is shown anew.
    const QDeadlineTimer deadline(kStartMs);
    RootList list;
    bool taken = false;
    while (!taken && !deadline.hasExpired()) {
        const xcb_window_t probe = list.openWindow();
        taken = list.waitForCount(1, kProbeMs);
        list.closeWindow(probe);
        taken = taken && list.waitForCount(0, kStartMs);
    }
    return taken;
}
