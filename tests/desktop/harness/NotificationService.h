#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace norvane::test {

/// The notification service of a desktop, which keeps what it is told to show.
class NotificationService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    /// @param sessionBus address of the session bus
    explicit NotificationService(const QString &sessionBus);
    ~NotificationService() override;

    bool isThere() const { return m_isThere; }
    /// The texts so far, as markup.
    QStringList texts() const { return m_texts; }

public slots:
    Q_SCRIPTABLE uint Notify(const QString &program, uint replaces, const QString &icon, const QString &title,
                             const QString &text, const QStringList &actions, const QVariantMap &hints,
                             int expires);

private:
    QString m_name;
    bool m_isThere = false;
    QStringList m_texts;
};

} // namespace norvane::test
