#include "platform/linux/LinuxTrayHost.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QSocketNotifier>
#include <cstdlib>
#include <xcb/xcb.h>

namespace norvane {

namespace {

const QString kWatcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");
constexpr int kBusTimeoutMs = 500;

bool hasNotifierHost()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage call = QDBusMessage::createMethodCall(kWatcherService, kWatcherPath,
                                                       QStringLiteral("org.freedesktop.DBus.Properties"),
                                                       QStringLiteral("Get"));
    call.setArguments({kWatcherService, QStringLiteral("IsStatusNotifierHostRegistered")});
    call.setAutoStartService(false);
    const QDBusMessage reply = bus.call(call, QDBus::Block, kBusTimeoutMs);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return false;
    return reply.arguments().constFirst().value<QDBusVariant>().variant().toBool();
}

} // namespace

/// A connection of its own, so that its wish for events changes nothing for the program's windows.
struct LinuxTrayHost::Selection
{
    Selection() : connection(xcb_connect(nullptr, &screen))
    {
        if (!alive())
            return;
        const QByteArray name = "_NET_SYSTEM_TRAY_S" + QByteArray::number(screen);
        const xcb_intern_atom_cookie_t cookie =
            xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData());
        if (xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(connection, cookie, nullptr)) {
            atom = reply->atom;
            std::free(reply);
        }
        // A new host announces itself to whoever listens to the root window's structure.
        const uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
        for (int i = 0; i < screen; ++i)
            xcb_screen_next(&screens);
        xcb_change_window_attributes(connection, screens.data->root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(connection);
    }
    ~Selection() { xcb_disconnect(connection); }
    Selection(const Selection &) = delete;
    Selection &operator=(const Selection &) = delete;

    bool alive() const { return xcb_connection_has_error(connection) == 0; }

    bool isOwned() const
    {
        if (!alive() || atom == XCB_ATOM_NONE)
            return false;
        xcb_get_selection_owner_reply_t *reply =
            xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom), nullptr);
        const bool owned = reply != nullptr && reply->owner != XCB_WINDOW_NONE;
        std::free(reply);
        return owned;
    }

    void drain() const
    {
        while (xcb_generic_event_t *event = xcb_poll_for_event(connection))
            std::free(event);
    }

    int screen = 0;
    xcb_connection_t *connection;
    xcb_atom_t atom = XCB_ATOM_NONE;
};

LinuxTrayHost::LinuxTrayHost(QObject *parent) : TrayHost(parent), m_selection(std::make_unique<Selection>())
{
    m_kind = find();
    if (m_kind == Kind::None)
        listen();
    else
        m_selection.reset();
}

LinuxTrayHost::~LinuxTrayHost() = default;

TrayHost::Kind LinuxTrayHost::find() const
{
    if (hasNotifierHost())
        return Kind::Activates;
    return m_selection->isOwned() ? Kind::Clicks : Kind::None;
}

void LinuxTrayHost::look()
{
    if (m_kind != Kind::None)
        return;
    m_kind = find();
    if (m_kind == Kind::None)
        return;
    stopListening();
    emit appeared();
}

void LinuxTrayHost::listen()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        m_watcher =
            new QDBusServiceWatcher(kWatcherService, bus, QDBusServiceWatcher::WatchForRegistration, this);
        connect(m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &LinuxTrayHost::look);
        bus.connect(QString(), kWatcherPath, kWatcherService, QStringLiteral("StatusNotifierHostRegistered"),
                    this, SLOT(look()));
    }
    if (!m_selection->alive())
        return;
    m_socket =
        new QSocketNotifier(xcb_get_file_descriptor(m_selection->connection), QSocketNotifier::Read, this);
    connect(m_socket, &QSocketNotifier::activated, this, [this] {
        m_selection->drain();
        if (!m_selection->alive())
            m_socket->setEnabled(false);
        look();
    });
}

void LinuxTrayHost::stopListening()
{
    if (m_watcher != nullptr) {
        QDBusConnection::sessionBus().disconnect(QString(), kWatcherPath, kWatcherService,
                                                 QStringLiteral("StatusNotifierHostRegistered"), this,
                                                 SLOT(look()));
        m_watcher->deleteLater();
        m_watcher = nullptr;
    }
    if (m_socket != nullptr) {
        // look() may have been called by the socket's own signal.
        m_socket->setEnabled(false);
        m_socket->deleteLater();
        m_socket = nullptr;
    }
    m_selection.reset();
}

} // namespace norvane
