#include "platform/linux/DBusNotifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QTimer>
#include <QVariantMap>

namespace norvane {

namespace {

constexpr int kTimeoutMs = 5000; // a service that is started by the call needs some time
constexpr int kShownForMs = 20000;

} // namespace

void DBusNotifier::notify(const QString &title, const QString &text, const std::function<void(bool)> &done)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        QTimer::singleShot(0, this, [done] { done(false); });
        return;
    }
    const QString service = QStringLiteral("org.freedesktop.Notifications");
    QDBusMessage call = QDBusMessage::createMethodCall(
        service, QStringLiteral("/org/freedesktop/Notifications"), service, QStringLiteral("Notify"));
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral("norvane")}};
    // The body is markup for many services.
    call.setArguments({QStringLiteral("Norvane"), 0U, QStringLiteral("norvane"), title, text.toHtmlEscaped(),
                       QStringList(), hints, kShownForMs});
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, kTimeoutMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, done] {
        const QDBusPendingReply<quint32> reply = *watcher;
        watcher->deleteLater();
        done(!reply.isError());
    });
}

} // namespace norvane
