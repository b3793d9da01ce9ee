#include "platform/linux/ProgramQueue.h"

#include <QTimer>

namespace norvane {

namespace {

constexpr int kReadyPollMs = 25;

} // namespace

ProgramQueue::ProgramQueue(std::unique_ptr<LocationProvider> provider) : m_provider(std::move(provider))
{
    m_thread.setObjectName(QStringLiteral("locations"));
    m_inThread.moveToThread(&m_thread);
    m_thread.start();
}

ProgramQueue::~ProgramQueue()
{
    end();
    m_thread.wait();
}

void ProgramQueue::end()
{
    m_stop.request_stop();
    m_thread.quit();
}

void ProgramQueue::ask(LookUpRequest request, const Done &done)
{
    request.stop = m_stop.get_token();
    QMetaObject::invokeMethod(
        &m_inThread,
        [this, request, done] {
            if (!request.stop.stop_requested())
                done(m_provider->find(request));
        },
        Qt::QueuedConnection);
}

void ProgramQueue::askUntilReady(LookUpRequest request, const Done &done)
{
    request.stop = m_stop.get_token();
    QMetaObject::invokeMethod(
        &m_inThread, [this, request, done] { findUntilReady(request, done); }, Qt::QueuedConnection);
}

void ProgramQueue::findUntilReady(const LookUpRequest &request, const Done &done)
{
    if (request.stop.stop_requested())
        return;
    const LookUpResult result = m_provider->find(request);
    if (result.outcome == LookUpResult::Outcome::NotReady &&
        request.deadline.remainingTime() > kReadyPollMs) {
        // By the event loop, so that the program's other look-ups come in between.
        QTimer::singleShot(kReadyPollMs, &m_inThread,
                           [this, request, done] { findUntilReady(request, done); });
        return;
    }
    done(result);
}

void ProgramQueue::forget(WindowHandle window)
{
    QMetaObject::invokeMethod(
        &m_inThread, [this, window] { m_provider->forget(window); }, Qt::QueuedConnection);
}

} // namespace norvane
