#include "platform/linux/EndSignals.h"

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>

namespace norvane {

namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

// A signal may come to any thread, so they are handled and not blocked: a mask would have to stand
// before the first thread and would pass on to the programs that are started. All that a handler can
// reach is static.
volatile std::sig_atomic_t wakeDescriptor = -1;

extern "C" void wakeUp(int)
{
    const std::uint64_t one = 1;
    // Nothing can be done about a failure here; the next signal tries again.
    [[maybe_unused]] const ssize_t written = write(wakeDescriptor, &one, sizeof one);
}

void setHandlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : kSignals)
        sigaction(number, &action, nullptr);
}

} // namespace

EndSignals::EndSignals(QObject *parent)
    : QObject(parent), m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      m_notifier(new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this))
{
    wakeDescriptor = m_descriptor;
    setHandlers(&wakeUp);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        std::uint64_t count = 0;
        if (read(m_descriptor, &count, sizeof count) == static_cast<ssize_t>(sizeof count))
            Q_EMIT endAsked();
    });
}

EndSignals::~EndSignals()
{
    setHandlers(SIG_DFL);
    wakeDescriptor = -1;
    delete m_notifier;
    close(m_descriptor);
}

} // namespace norvane
