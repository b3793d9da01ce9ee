#include "platform/qt/QtWatchTimer.h"

#include "platform/qt/QtEventLoop.h"

#include <QAbstractEventDispatcher>
#include <QPointer>
#include <QThread>
#include <algorithm>
#include <utility>

namespace norvane {

namespace {

/// Requested ticks rest this many times as long as the last tick took: they may use a fifth of a
/// processor at most, however slow a tick is.
constexpr qint64 kRestFactor = 4;

} // namespace

QtWatchTimer::QtWatchTimer(QtEventLoop &loop, QObject *parent) : WatchTimer(parent), m_loop(loop)
{
    m_timer.setSingleShot(true);
    // Lets the system join this wake-up with others.
    m_timer.setTimerType(Qt::CoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, &QtWatchTimer::onTimeout);
    connect(&m_loop, &QtEventLoop::yielded, this, &QtWatchTimer::onYielded);
    const auto *dispatcher = QAbstractEventDispatcher::instance();
    m_mayRest = dispatcher != nullptr;
    if (dispatcher)
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &QtWatchTimer::onAboutToBlock);
}

bool QtWatchTimer::ticking() const
{
    return m_tickLevel == QThread::currentThread()->loopLevel();
}

void QtWatchTimer::setInterval(int milliseconds)
{
    m_interval = std::max(milliseconds, 0);
    m_resting = false;
    if (!runs() && !ticking())
        m_requested = false;
    arm();
}

void QtWatchTimer::setEnabled(bool enabled)
{
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    m_resting = false;
    if (!enabled)
        m_requested = false;
    arm();
}

void QtWatchTimer::requestTick()
{
    const bool counts = ticking() ? m_enabled : runs();
    if (!counts || (m_requested && m_timer.isActive()))
        return;
    m_requested = true;
    m_resting = false;
    arm();
}

void QtWatchTimer::rest()
{
    m_resting = m_mayRest;
    arm();
}

void QtWatchTimer::onAboutToBlock()
{
    if (m_resting && runs())
        emit aboutToSleep();
}

void QtWatchTimer::arm()
{
    if (!runs() || (m_resting && !m_requested)) {
        m_timer.stop();
        return;
    }
    // After the tick or the yield that is under way it is armed once more.
    if (m_requested && (ticking() || m_loop.yielding()))
        return;
    qint64 delay = m_interval;
    if (m_requested) {
        const qint64 gap = std::min<qint64>(m_gapMs, m_interval);
        const qint64 rest = m_sinceTick.isValid() ? gap - m_sinceTick.elapsed() : 0;
        delay = std::max<qint64>(rest, 0);
    }
    m_timer.start(static_cast<int>(delay));
}

void QtWatchTimer::onTimeout()
{
    if (!runs())
        return;
    // The clock of a dialog that opens inside.
    m_timer.start(m_interval);
    if (ticking() || m_loop.yielding()) {
        m_requested = true;
        return;
    }
    m_requested = false;
    m_resting = false;
    const int outer = std::exchange(m_tickLevel, QThread::currentThread()->loopLevel());
    QElapsedTimer duration;
    duration.start();
    const QPointer<QtWatchTimer> self(this);
    emit tick();
    if (!self)
        return;
    m_tickLevel = outer;
    m_gapMs = std::max<qint64>(kLeastGapMs, kRestFactor * duration.elapsed());
    m_sinceTick.start();
    arm();
}

void QtWatchTimer::onYielded()
{
    if (m_requested && !ticking())
        arm();
}

} // namespace norvane
