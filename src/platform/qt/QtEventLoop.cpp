#include "platform/qt/QtEventLoop.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThread>
#include <utility>

namespace norvane {

namespace {

/// Ends a yield in which events never run dry, as when a window animates.
constexpr int kLongestYieldMs = 50;

} // namespace

void QtEventLoop::yield()
{
    if (yielding())
        return;
    const int outer = std::exchange(m_yieldLevel, QThread::currentThread()->loopLevel());
    const QPointer<QtEventLoop> self(this);
    QCoreApplication::processEvents(QEventLoop::AllEvents, kLongestYieldMs);
    if (!self)
        return;
    m_yieldLevel = outer;
    emit yielded();
}

bool QtEventLoop::yielding() const
{
    return m_yieldLevel == QThread::currentThread()->loopLevel();
}

} // namespace norvane
