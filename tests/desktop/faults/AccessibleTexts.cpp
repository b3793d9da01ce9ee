#include "faults/AccessibleTexts.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>
#include <QUuid>

namespace norvane::test {

namespace {

constexpr int kTimeoutMs = 3000;
constexpr int kDeepest = 12;
constexpr int kMostTexts = 400;

const QString kLauncher = QStringLiteral("org.a11y.Bus");
const QString kLauncherPath = QStringLiteral("/org/a11y/bus");
const QString kStatus = QStringLiteral("org.a11y.Status");
const QString kEnabled = QStringLiteral("IsEnabled");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kAccessible = QStringLiteral("org.a11y.atspi.Accessible");

QDBusMessage call(const QDBusConnection &bus, const QString &service, const QString &path,
                  const QString &interface, const QString &method, const QVariantList &arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    return bus.call(message, QDBus::Block, kTimeoutMs);
}

QVariant property(const QDBusConnection &bus, const QString &service, const QString &path,
                  const QString &interface, const QString &name)
{
    return call(bus, service, path, kProperties, QStringLiteral("Get"), {interface, name})
        .arguments()
        .value(0)
        .value<QDBusVariant>()
        .variant();
}

} // namespace

AccessibleTexts::AccessibleTexts(const QString &sessionBus)
    : m_name(QUuid::createUuid().toString()), m_session(QDBusConnection::connectToBus(sessionBus, m_name))
{
}

AccessibleTexts::~AccessibleTexts()
{
    QDBusConnection::disconnectFromBus(m_name);
    QDBusConnection::disconnectFromBus(m_accessibility.name());
}

bool AccessibleTexts::isSwitchedOn() const
{
    return property(m_session, kLauncher, kLauncherPath, kStatus, kEnabled).toBool();
}

bool AccessibleTexts::switchOn(bool on)
{
    call(m_session, kLauncher, kLauncherPath, kProperties, QStringLiteral("Set"),
         {kStatus, kEnabled, QVariant::fromValue(QDBusVariant(on))});
    return isSwitchedOn() == on;
}

bool AccessibleTexts::connectAccessibility()
{
    if (m_accessibility.isConnected())
        return true;
    const QString address = call(m_session, kLauncher, kLauncherPath, kLauncher, QStringLiteral("GetAddress"))
                                .arguments()
                                .value(0)
                                .toString();
    if (!address.isEmpty())
        m_accessibility = QDBusConnection::connectToBus(address, m_name + QStringLiteral("-texts"));
    return m_accessibility.isConnected();
}

QStringList AccessibleTexts::of(qint64 processId)
{
    QStringList texts;
    if (!connectAccessibility())
        return texts;
    const QString service = serviceOf(processId);
    if (!service.isEmpty())
        collect(service, QStringLiteral("/org/a11y/atspi/accessible/root"), 0, texts);
    return texts;
}

QString AccessibleTexts::serviceOf(qint64 processId) const
{
    const QDBusConnectionInterface *bus = m_accessibility.interface();
    const QStringList names = bus->registeredServiceNames().value();
    for (const QString &name : names) {
        if (name.startsWith(u':') && bus->servicePid(name).value() == processId)
            return name;
    }
    return {};
}

void AccessibleTexts::collect(const QString &service, const QString &path, int depth,
                              QStringList &texts) const
{
    if (depth > kDeepest || texts.size() > kMostTexts)
        return;
    const QString name =
        property(m_accessibility, service, path, kAccessible, QStringLiteral("Name")).toString();
    if (!name.isEmpty())
        texts.append(name);
    const QVariant children =
        call(m_accessibility, service, path, kAccessible, QStringLiteral("GetChildren")).arguments().value(0);
    if (!children.canConvert<QDBusArgument>())
        return;
    const auto list = children.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString childService;
        QDBusObjectPath child;
        list.beginStructure();
        list >> childService >> child;
        list.endStructure();
        collect(service, child.path(), depth + 1, texts);
    }
    list.endArray();
}

} // namespace norvane::test
