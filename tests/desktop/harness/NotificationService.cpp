#include "harness/NotificationService.h"

#include <QUuid>

namespace norvane::test {

NotificationService::NotificationService(const QString &sessionBus) : m_name(QUuid::createUuid().toString())
{
    QDBusConnection bus = QDBusConnection::connectToBus(sessionBus, m_name);
    m_isThere = bus.registerObject(QStringLiteral("/org/freedesktop/Notifications"), this,
                                   QDBusConnection::ExportScriptableSlots) &&
                bus.registerService(QStringLiteral("org.freedesktop.Notifications"));
}

NotificationService::~NotificationService()
{
    QDBusConnection::disconnectFromBus(m_name);
}

uint NotificationService::Notify(const QString &, uint, const QString &, const QString &, const QString &text,
                                 const QStringList &, const QVariantMap &, int)
{
    m_texts.append(text);
    return static_cast<uint>(m_texts.size());
}

} // namespace norvane::test
