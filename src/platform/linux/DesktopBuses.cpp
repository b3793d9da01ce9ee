#include "platform/linux/DesktopBuses.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace norvane {

namespace {

constexpr int kFirstRetryMs = 500;
constexpr int kLastRetryMs = 30000;
/// For the buses' own services. Nobody waits for it.
constexpr int kServiceTimeoutMs = 5000;

const QString kBusService = QStringLiteral("org.freedesktop.DBus");
const QString kBusPath = QStringLiteral("/org/freedesktop/DBus");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kLauncher = QStringLiteral("org.a11y.Bus");
const QString kLauncherPath = QStringLiteral("/org/a11y/bus");
const QString kStatus = QStringLiteral("org.a11y.Status");
const QString kRegistry = QStringLiteral("org.a11y.atspi.Registry");
const QString kKeysPath = QStringLiteral("/org/a11y/atspi/registry/deviceeventcontroller");
const QString kKeyListener = QStringLiteral("org.a11y.atspi.DeviceEventListener");

template <typename Done>
void callLater(QObject *owner, const QDBusConnection &bus, const QDBusMessage &message, Done done)
{
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, kServiceTimeoutMs), owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner,
                     [done](QDBusPendingCallWatcher *call) {
                         call->deleteLater();
                         done(call->reply());
                     });
}

QDBusMessage method(const QString &service, const QString &path, const QString &interface,
                    const QString &name, const QVariantList &arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, name);
    message.setArguments(arguments);
    return message;
}

} // namespace

DesktopBuses::DesktopBuses(QString sessionAddress)
    : m_sessionAddress(std::move(sessionAddress)),
      m_connectionName(QStringLiteral("norvane-locations-%1-").arg(quintptr(this), 0, 16)), m_retry(this),
      m_retryDelayMs(kFirstRetryMs)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, [this] {
        if (session())
            askForAddress();
        else
            connectSession();
    });
}

DesktopBuses::~DesktopBuses() = default;

void DesktopBuses::start()
{
    connectSession();
}

void DesktopBuses::stop()
{
    m_retry.stop();
    delete m_launcherWatcher;
    m_launcherWatcher = nullptr;
    {
        const QMutexLocker lock(&m_mutex);
        m_session.reset();
        m_accessibility.reset();
    }
    for (int i = 0; i < m_connections; ++i)
        QDBusConnection::disconnectFromBus(m_connectionName + QString::number(i));
}

std::optional<QDBusConnection> DesktopBuses::session() const
{
    const QMutexLocker lock(&m_mutex);
    return m_session;
}

std::optional<QDBusConnection> DesktopBuses::accessibility() const
{
    const QMutexLocker lock(&m_mutex);
    return m_accessibility;
}

bool DesktopBuses::settled() const
{
    const QMutexLocker lock(&m_mutex);
    return m_settled;
}

std::optional<bool> DesktopBuses::accessibilityEnabled() const
{
    const QMutexLocker lock(&m_mutex);
    return m_enabled;
}

QStringList DesktopBuses::servicesOf(qint64 processId) const
{
    const QMutexLocker lock(&m_mutex);
    return m_processes.keys(processId);
}

bool DesktopBuses::keysAreListenedTo() const
{
    const QMutexLocker lock(&m_mutex);
    return m_keysAreListenedTo;
}

qint64 DesktopBuses::processOf(const QString &service) const
{
    const QMutexLocker lock(&m_mutex);
    return m_processes.value(service, 0);
}

void DesktopBuses::settle()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_settled = true;
    }
    emit accessibilityChanged();
}

void DesktopBuses::retryLater()
{
    m_retry.start(m_retryDelayMs);
    m_retryDelayMs = qMin(m_retryDelayMs * 2, kLastRetryMs);
}

void DesktopBuses::connectSession()
{
    const QString name = m_connectionName + QString::number(m_connections++);
    QDBusConnection bus = m_sessionAddress.isEmpty()
                              ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)
                              : QDBusConnection::connectToBus(m_sessionAddress, name);
    if (!bus.isConnected()) {
        QDBusConnection::disconnectFromBus(name);
        settle();
        retryLater();
        return;
    }
    {
        const QMutexLocker lock(&m_mutex);
        m_session = bus;
    }
    m_launcherWatcher = new QDBusServiceWatcher(kLauncher, bus, QDBusServiceWatcher::WatchForRegistration);
    connect(m_launcherWatcher, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        if (accessibility())
            return;
        m_retryDelayMs = kFirstRetryMs;
        m_retry.stop();
        askForAddress();
    });
    bus.connect(kLauncher, kLauncherPath, kProperties, QStringLiteral("PropertiesChanged"), this,
                SLOT(statusChanged(QDBusMessage)));
    bus.connect(QStringLiteral("org.gnome.Nautilus"), QStringLiteral("/org/freedesktop/FileManager1"),
                kProperties, QStringLiteral("PropertiesChanged"), this,
                SLOT(folderWindowsChanged(QDBusMessage)));
    askForAddress();
}

void DesktopBuses::askForAddress()
{
    const auto bus = session();
    if (!bus)
        return;
    readSwitch();
    callLater(this, *bus, method(kLauncher, kLauncherPath, kLauncher, QStringLiteral("GetAddress")),
              [this](const QDBusMessage &reply) {
                  const QString address = reply.arguments().value(0).toString();
                  if (reply.type() == QDBusMessage::ReplyMessage && !address.isEmpty()) {
                      connectAccessibility(address);
                  } else {
                      settle();
                      retryLater();
                  }
              });
}

void DesktopBuses::readSwitch()
{
    const auto bus = session();
    if (!bus)
        return;
    callLater(this, *bus,
              method(kLauncher, kLauncherPath, kProperties, QStringLiteral("Get"),
                     {kStatus, QStringLiteral("IsEnabled")}),
              [this](const QDBusMessage &reply) {
                  const QVariant value = reply.arguments().value(0).value<QDBusVariant>().variant();
                  switchRead(reply.type() == QDBusMessage::ReplyMessage ? std::optional(value.toBool())
                                                                        : std::nullopt);
              });
}

void DesktopBuses::switchRead(std::optional<bool> enabled)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_enabled = enabled;
    }
    emit accessibilityChanged();
}

void DesktopBuses::statusChanged(const QDBusMessage &event)
{
    if (event.arguments().value(0).toString() == kStatus)
        readSwitch();
}

void DesktopBuses::enableAccessibility()
{
    const auto bus = session();
    if (!bus)
        return;
    callLater(this, *bus,
              method(kLauncher, kLauncherPath, kProperties, QStringLiteral("Set"),
                     {kStatus, QStringLiteral("IsEnabled"), QVariant::fromValue(QDBusVariant(true))}),
              [this](const QDBusMessage &) { readSwitch(); });
}

void DesktopBuses::connectAccessibility(const QString &address)
{
    if (accessibility())
        return;
    const QString name = m_connectionName + QString::number(m_connections++);
    QDBusConnection bus = QDBusConnection::connectToBus(address, name);
    if (!bus.isConnected()) {
        QDBusConnection::disconnectFromBus(name);
        settle();
        retryLater();
        return;
    }
    m_accessibilityName = name;
    m_retryDelayMs = kFirstRetryMs;
    bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                SLOT(accessibilityBusLost()));
    bus.connect(kBusService, kBusPath, kBusService, QStringLiteral("NameOwnerChanged"), this,
                SLOT(nameOwnerChanged(QString, QString, QString)));
    bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Window"), QString(), this,
                SLOT(windowEvent(QDBusMessage)));
    bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Document"),
                QStringLiteral("LoadComplete"), this, SLOT(windowEvent(QDBusMessage)));
    bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
                QStringLiteral("StateChanged"), QStringList{QStringLiteral("focused")}, QString(), this,
                SLOT(focusEvent(QDBusMessage)));
    for (const QString &change :
         {QStringLiteral("KeystrokeListenerRegistered"), QStringLiteral("KeystrokeListenerDeregistered")})
        bus.connect(kRegistry, kKeysPath, kKeyListener, change, this, SLOT(keyListenersChanged()));
    registerEvents(bus);
    {
        const QMutexLocker lock(&m_mutex);
        m_accessibility = bus;
    }
    keyListenersChanged();
    callLater(this, bus, method(kBusService, kBusPath, kBusService, QStringLiteral("ListNames")),
              [this](const QDBusMessage &reply) {
                  const QStringList names = reply.arguments().value(0).toStringList();
                  for (const QString &service : names)
                      learnService(service);
                  settle();
              });
}

void DesktopBuses::accessibilityBusLost()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_accessibility.reset();
        m_processes.clear();
        m_keysAreListenedTo = false;
    }
    QDBusConnection::disconnectFromBus(m_accessibilityName);
    emit accessibilityChanged();
    retryLater();
}

/// Programs tell their events only while someone has registered for them. Only rare ones: a change
/// of a property would be told for every cell of every list.
void DesktopBuses::registerEvents(const QDBusConnection &bus)
{
    for (const QString &event : {QStringLiteral("window:"), QStringLiteral("document:load-complete"),
                                 QStringLiteral("object:state-changed:focused")})
        registerEvent(bus, event);
}

void DesktopBuses::registerEvent(const QDBusConnection &bus, const QString &event)
{
    const auto registration = [event](const QVariantList &more) {
        return method(kRegistry, QStringLiteral("/org/a11y/atspi/registry"), kRegistry,
                      QStringLiteral("RegisterEvent"), QVariantList{event} + more);
    };
    callLater(this, bus, registration({QStringList(), QString()}),
              [this, bus, registration](const QDBusMessage &reply) {
                  // Older registries take the event alone.
                  if (reply.type() == QDBusMessage::ErrorMessage && accessibility())
                      bus.asyncCall(registration({}), kServiceTimeoutMs);
              });
}

void DesktopBuses::keyListenersChanged()
{
    const auto bus = accessibility();
    if (!bus)
        return;
    callLater(this, *bus,
              method(kRegistry, kKeysPath, QStringLiteral("org.a11y.atspi.DeviceEventController"),
                     QStringLiteral("GetKeystrokeListeners")),
              [this](const QDBusMessage &reply) {
                  if (!accessibility())
                      return;
                  if (reply.type() != QDBusMessage::ReplyMessage) {
                      setKeysAreListenedTo(true); // a registry that does not tell may have some
                      return;
                  }
                  const auto listeners = reply.arguments().value(0).value<QDBusArgument>();
                  listeners.beginArray();
                  const bool areThere = !listeners.atEnd();
                  listeners.endArray();
                  setKeysAreListenedTo(areThere);
              });
}

void DesktopBuses::setKeysAreListenedTo(bool listenedTo)
{
    const QMutexLocker lock(&m_mutex);
    m_keysAreListenedTo = listenedTo;
}

void DesktopBuses::learnService(const QString &service)
{
    const auto bus = accessibility();
    if (!bus || !service.startsWith(u':') || service == bus->baseService())
        return;
    callLater(
        this, *bus,
        method(kBusService, kBusPath, kBusService, QStringLiteral("GetConnectionUnixProcessID"), {service}),
        [this, service](const QDBusMessage &reply) {
            const qint64 processId = reply.arguments().value(0).toLongLong();
            if (reply.type() == QDBusMessage::ReplyMessage && processId > 0)
                serviceLearned(service, processId);
        });
}

void DesktopBuses::serviceLearned(const QString &service, qint64 processId)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_processes.insert(service, processId);
    }
    emit programAppeared(processId);
}

void DesktopBuses::nameOwnerChanged(const QString &name, const QString &oldOwner, const QString &newOwner)
{
    if (name == kRegistry && !newOwner.isEmpty()) {
        if (const auto bus = accessibility())
            registerEvents(*bus);
        keyListenersChanged();
    } else if (name.startsWith(u':') && oldOwner.isEmpty()) {
        learnService(name);
    } else if (name.startsWith(u':') && newOwner.isEmpty()) {
        const QMutexLocker lock(&m_mutex);
        m_processes.remove(name);
    }
}

void DesktopBuses::windowEvent(const QDBusMessage &event)
{
    if (const qint64 processId = processOf(event.service()); processId != 0)
        emit documentOrWindowChanged(processId);
}

void DesktopBuses::focusEvent(const QDBusMessage &event)
{
    if (const qint64 processId = processOf(event.service()); processId != 0)
        emit focusChanged(processId);
}

void DesktopBuses::folderWindowsChanged(const QDBusMessage &event)
{
    const auto bus = session();
    if (!bus)
        return;
    callLater(this, *bus,
              method(kBusService, kBusPath, kBusService, QStringLiteral("GetConnectionUnixProcessID"),
                     {event.service()}),
              [this](const QDBusMessage &reply) {
                  if (const qint64 processId = reply.arguments().value(0).toLongLong(); processId > 0)
                      emit foldersChanged(processId);
              });
}

} // namespace norvane
