#include "platform/linux/LinuxShellWindows.h"

#include "platform/linux/DesktopBuses.h"
#include "platform/linux/LocationTracker.h"
#include "platform/linux/ProcProcesses.h"
#include "platform/linux/ProgramQueue.h"
#include "platform/linux/location_providers.h"

#include <QDir>
#include <QMutex>
#include <QSemaphore>
#include <QThread>
#include <map>
#include <vector>

namespace norvane {

namespace {

/// For one look-up with all its calls.
constexpr int kLookUpMs = 450;

/// A result that the main thread waits for; it may have gone when the result comes.
struct AwaitedResult
{
    QSemaphore ready;
    QMutex mutex;
    LookUpResult result;
};

} // namespace

struct LinuxShellWindows::Private
{
    Private(LinuxShellWindows *owner, WindowSystem &windows, const DesktopSession &session)
        : q(owner), display(session.display), home(session.home.isEmpty() ? QDir::homePath() : session.home),
          buses(session.busAddress),
          tracker(windows, session.pixelRatio,
                  [this](const LookUpRequest &request) { return startLookUp(request); })
    {
    }

    ProgramQueue *queueOf(const LookUpRequest &request);
    bool startLookUp(LookUpRequest request);
    void windowForgotten(WindowHandle window, qint64 processId);

    LinuxShellWindows *q;
    const QString display;
    const QString home;
    DesktopBuses buses;
    QThread busThread;
    ProcProcesses processes;
    LocationTracker tracker;
    std::map<qint64, std::unique_ptr<ProgramQueue>> queues; ///< by process; null: it has no provider
    std::vector<std::unique_ptr<ProgramQueue>> endingQueues;
};

LinuxShellWindows::LinuxShellWindows(WindowSystem &windows, const DesktopSession &session, QObject *parent)
    : ShellWindows(parent), m_d(std::make_unique<Private>(this, windows, session))
{
    Private *d = m_d.get();
    connect(&d->tracker, &LocationTracker::locationChanged, this, &ShellWindows::locationChanged);
    connect(&d->tracker, &LocationTracker::windowForgotten, this,
            [d](WindowHandle window, qint64 processId) { d->windowForgotten(window, processId); });

    using Which = LocationTracker::Which;
    LocationTracker *tracker = &d->tracker;
    connect(&d->buses, &DesktopBuses::accessibilityChanged, tracker, &LocationTracker::lookAgain);
    connect(&d->buses, &DesktopBuses::programAppeared, tracker,
            [tracker](qint64 processId) { tracker->programChanged(processId, Which::All); });
    connect(&d->buses, &DesktopBuses::documentOrWindowChanged, tracker,
            [tracker](qint64 processId) { tracker->programChanged(processId, Which::All); });
    connect(&d->buses, &DesktopBuses::foldersChanged, tracker,
            [tracker](qint64 processId) { tracker->programChanged(processId, Which::All); });
    connect(&d->buses, &DesktopBuses::focusChanged, tracker,
            [tracker](qint64 processId) { tracker->programChanged(processId, Which::Foreground); });

    d->busThread.setObjectName(QStringLiteral("desktop buses"));
    d->buses.moveToThread(&d->busThread);
}

LinuxShellWindows::~LinuxShellWindows()
{
    for (const auto &[processId, queue] : m_d->queues) {
        if (queue)
            queue->end();
    }
    m_d->queues.clear();
    m_d->endingQueues.clear();
    if (!m_d->busThread.isRunning())
        return;
    QMetaObject::invokeMethod(&m_d->buses, &DesktopBuses::stop, Qt::QueuedConnection);
    m_d->busThread.quit();
    m_d->busThread.wait();
}

ProgramQueue *LinuxShellWindows::Private::queueOf(const LookUpRequest &request)
{
    if (request.processId <= 0)
        return nullptr;
    const auto known = queues.find(request.processId);
    if (known != queues.end())
        return known->second.get();
    std::unique_ptr<LocationProvider> provider =
        makeLocationProvider(request.browser, processes.programFile(request.processId), buses, display, home);
    std::unique_ptr<ProgramQueue> &queue = queues[request.processId];
    if (provider)
        queue = std::make_unique<ProgramQueue>(std::move(provider));
    return queue.get();
}

bool LinuxShellWindows::Private::startLookUp(LookUpRequest request)
{
    ProgramQueue *queue = queueOf(request);
    if (queue == nullptr)
        return false;
    request.deadline.setRemainingTime(kLookUpMs);
    queue->ask(request, [this, window = request.window](const LookUpResult &result) {
        QMetaObject::invokeMethod(
            q, [this, window, result] { tracker.arrived(window, result); }, Qt::QueuedConnection);
    });
    return true;
}

void LinuxShellWindows::Private::windowForgotten(WindowHandle window, qint64 processId)
{
    std::erase_if(endingQueues, [](const auto &queue) { return queue->hasEnded(); });
    const auto known = queues.find(processId);
    if (known == queues.end())
        return;
    if (tracker.hasWindowsOf(processId)) {
        if (known->second)
            known->second->forget(window);
        return;
    }
    if (known->second) {
        known->second->end();
        endingQueues.push_back(std::move(known->second));
    }
    queues.erase(known);
}

void LinuxShellWindows::start()
{
    if (m_d->busThread.isRunning())
        return;
    m_d->busThread.start();
    QMetaObject::invokeMethod(&m_d->buses, &DesktopBuses::start, Qt::QueuedConnection);
}

ShellWindows::Answer LinuxShellWindows::location(WindowHandle window)
{
    start();
    return m_d->tracker.location(window);
}

QString LinuxShellWindows::freshLocation(WindowHandle window, int timeoutMs)
{
    start();
    LookUpRequest request = m_d->tracker.requestFor(window);
    ProgramQueue *queue = m_d->queueOf(request);
    if (queue == nullptr)
        return {};
    request.deadline.setRemainingTime(timeoutMs);
    const auto awaited = std::make_shared<AwaitedResult>();
    queue->askUntilReady(request, [awaited](const LookUpResult &result) {
        {
            const QMutexLocker lock(&awaited->mutex);
            awaited->result = result;
        }
        awaited->ready.release();
    });
    if (awaited->ready.tryAcquire(1, timeoutMs)) {
        const QMutexLocker lock(&awaited->mutex);
        if (awaited->result.outcome == LookUpResult::Outcome::Found)
            m_d->tracker.accept(window, awaited->result.location);
    }
    return m_d->tracker.lastKnown(window);
}

bool LinuxShellWindows::needsAccessibility() const
{
    return m_d->buses.accessibilityEnabled() == false && m_d->tracker.browserWithoutLocation();
}

void LinuxShellWindows::enableAccessibility()
{
    QMetaObject::invokeMethod(&m_d->buses, &DesktopBuses::enableAccessibility, Qt::QueuedConnection);
}

bool LinuxShellWindows::keysAreListenedTo() const
{
    return m_d->buses.keysAreListenedTo();
}

} // namespace norvane
