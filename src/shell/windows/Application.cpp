#include "shell/windows/Application.h"

#include "platform/RuntimeError.h"

#include <QScopeGuard>

namespace norvane {

void Application::setErrorReport(std::function<void(const RuntimeError &)> report)
{
    m_report = std::move(report);
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError &error) {
        tellOf(error);
        return true;
    }
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
