#include "shell/windows/Application.h"

#include "platform/RuntimeError.h"

#include <QScopeGuard>

namespace norvane {

void Application::setErrorReport(std::function<void(const RuntimeError &)> report)
{
    m_report = std::move(report);
}

void Application::setKeysAreListenedTo(std::function<bool()> areListenedTo)
{
    m_keysAreListenedTo = std::move(areListenedTo);
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        return deliver(receiver, event);
    } catch (const RuntimeError &error) {
        tellOf(error);
        return true;
    }
}

bool Application::deliver(QObject *receiver, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (!isKey || !event->spontaneous() || !receiver->isWindowType() || !m_keysAreListenedTo ||
        m_keysAreListenedTo())
        return QApplication::notify(receiver, event);
    // The toolkit's bridge to the bus takes what comes from the keyboard; an event that is sent does not.
    return sendEvent(receiver, event);
}

void Application::tellOf(const RuntimeError &error)
{
    if (m_telling || !m_report) {
        qWarning("Run-time error %d: %s", error.number(), qPrintable(error.description()));
        return;
    }
    m_telling = true;
    const auto done = qScopeGuard([this] { m_telling = false; });
    m_report(error);
}

} // namespace norvane
