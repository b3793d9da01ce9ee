#include "fakes/FakeWindowSystem.h"
#include "platform/linux/LinuxShellWindows.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace norvane;

namespace {

/// A bus that hangs up on everybody who comes.
class RudeBus
{
public:
    RudeBus()
    {
        sockaddr_un name = {};
        name.sun_family = AF_UNIX;
        qstrncpy(name.sun_path, QFile::encodeName(m_path).constData(), sizeof name.sun_path);
        EXPECT_EQ(::bind(m_socket, reinterpret_cast<const sockaddr *>(&name), sizeof name), 0);
        EXPECT_EQ(::listen(m_socket, 8), 0);
    }
    ~RudeBus() { ::close(m_socket); }
    RudeBus(const RudeBus &) = delete;
    RudeBus &operator=(const RudeBus &) = delete;

    QString address() const { return u"unix:path="_qs + m_path; }
    bool wasCalled()
    {
        pollfd waiting = {m_socket, POLLIN, 0};
        if (::poll(&waiting, 1, 0) <= 0)
            return false;
        ::close(::accept(m_socket, nullptr, nullptr));
        return true;
    }

private:
    QTemporaryDir m_folder;
    QString m_path = m_folder.path() + u"/bus"_qs;
    int m_socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
};

} // namespace

TEST(LinuxShellWindows, NoBusIsTouchedBeforeAWindowIsAskedFor)
{
    RudeBus bus;
    fakes::FakeWindowSystem windows;
    DesktopSession session;
    session.busAddress = bus.address();
    LinuxShellWindows shellWindows(windows, session);
    const WindowHandle page = windows.open(u"IEFrame"_qs, u"Page"_qs, QCoreApplication::applicationPid());
    EXPECT_FALSE(QTest::qWaitFor([&] { return bus.wasCalled(); }, 300));

    shellWindows.location(page);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bus.wasCalled(); }, 20000));
    // Without a bus there is no location, and nobody waits for one.
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return shellWindows.location(page).state == ShellWindows::State::Known; }, 20000));
    EXPECT_EQ(shellWindows.location(page).location, QString());
}
