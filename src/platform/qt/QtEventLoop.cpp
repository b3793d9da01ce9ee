#include "platform/qt/QtEventLoop.h"

#include <QCoreApplication>
#include <QPointer>

namespace norvane {

namespace {

/// Ends a yield in which events never run dry, as when a window animates.
constexpr int kLongestYieldMs = 50;

} // namespace

void QtEventLoop::yield()
{
    if (m_yielding)
        return;
    m_yielding = true;
    const QPointer<QtEventLoop> self(this);
    QCoreApplication::processEvents(QEventLoop::AllEvents, kLongestYieldMs);
    if (!self)
        return;
    m_yielding = false;
    emit yielded();
}

} // namespace norvane
