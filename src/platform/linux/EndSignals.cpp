#include "platform/linux/EndSignals.h"

#include <QSocketNotifier>
#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace norvane {

namespace {

sigset_t endSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&set, number);
    return set;
}

} // namespace

EndSignals::EndSignals(QObject *parent) : QObject(parent)
{
    const sigset_t set = endSignals();
    sigprocmask(SIG_BLOCK, &set, nullptr);
    m_descriptor = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
    m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info{};
        while (read(m_descriptor, &info, sizeof info) == static_cast<ssize_t>(sizeof info))
            Q_EMIT endAsked();
    });
}

EndSignals::~EndSignals()
{
    delete m_notifier;
    close(m_descriptor);
    const sigset_t set = endSignals();
    sigprocmask(SIG_UNBLOCK, &set, nullptr);
}

} // namespace norvane
