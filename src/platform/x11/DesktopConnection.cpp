#include "platform/x11/DesktopConnection.h"

#include <poll.h>
#include <xcb/res.h>

namespace norvane::x11 {

namespace {

constexpr qint64 kQuietNs = 50'000;

constexpr size_t kAtomCount = static_cast<size_t>(AtomName::Count);

constexpr std::array<const char *, kAtomCount> kAtomTexts = {
    "_NET_SUPPORTED",
    "_NET_CLIENT_LIST",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_ACTIVE_WINDOW",
    "_NET_CURRENT_DESKTOP",
    "_NET_RESTACK_WINDOW",
    "_NET_WM_NAME",
    "_NET_WM_STATE",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_STATE_SKIP_PAGER",
    "_KDE_NET_WM_STATE_SKIP_SWITCHER",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_STATE_ABOVE",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_TOOLBAR",
    "_NET_WM_WINDOW_TYPE_MENU",
    "_NET_WM_WINDOW_TYPE_UTILITY",
    "_NET_WM_WINDOW_TYPE_SPLASH",
    "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU",
    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_WINDOW_TYPE_TOOLTIP",
    "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "_NET_WM_WINDOW_TYPE_COMBO",
    "_NET_WM_WINDOW_TYPE_DND",
    "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_ICON",
    "_NET_WM_PID",
    "_NET_WM_PING",
    "_NET_WM_DESKTOP",
    "_NET_FRAME_EXTENTS",
    "_GTK_FRAME_EXTENTS",
    "WM_STATE",
    "WM_PROTOCOLS",
    "UTF8_STRING",
    "WM_NAME",
    "WM_CLASS",
    "WM_HINTS",
    "WM_TRANSIENT_FOR",
};
static_assert(kAtomTexts.back() != nullptr, "every atom has its text");

} // namespace

DesktopConnection::DesktopConnection()
{
    int screenNumber = 0;
    m_connection = xcb_connect(nullptr, &screenNumber);
    if (!isAlive()) {
        return;
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (; screenNumber > 0 && screens.rem > 1; --screenNumber) {
        xcb_screen_next(&screens);
    }
    m_root = screens.data->root;
    internAtoms();
    const xcb_query_extension_reply_t *resource = xcb_get_extension_data(m_connection, &xcb_res_id);
    if (resource && resource->present) {
        const auto version =
            reply(sent(xcb_res_query_version(m_connection, 1, 2)), xcb_res_query_version_reply);
        m_hasClientIds = version && (version->server_major > 1 ||
                                     (version->server_major == 1 && version->server_minor >= 2));
    }
}

DesktopConnection::~DesktopConnection()
{
    xcb_disconnect(m_connection);
}

void DesktopConnection::internAtoms()
{
    std::array<xcb_intern_atom_cookie_t, kAtomCount> cookies = {};
    for (size_t i = 0; i < kAtomCount; ++i) {
        const size_t length = qstrlen(kAtomTexts[i]);
        cookies[i] = sent(xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(length), kAtomTexts[i]));
    }
    for (size_t i = 0; i < kAtomCount; ++i) {
        const auto answer = reply(cookies[i], xcb_intern_atom_reply);
        m_atoms[i] = answer ? answer->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }
}

bool DesktopConnection::isAlive() const
{
    return xcb_connection_has_error(m_connection) == 0;
}

int DesktopConnection::fileDescriptor() const
{
    return xcb_get_file_descriptor(m_connection);
}

std::optional<AtomName> DesktopConnection::nameOf(xcb_atom_t atom) const
{
    for (size_t i = 0; i < kAtomCount; ++i) {
        if (m_atoms[i] == atom) {
            return static_cast<AtomName>(i);
        }
    }
    return std::nullopt;
}

xcb_get_property_cookie_t DesktopConnection::requestProperty(xcb_window_t window, AtomName name,
                                                             quint32 longs)
{
    return sent(xcb_get_property(m_connection, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longs));
}

PropertyReply DesktopConnection::property(xcb_get_property_cookie_t cookie)
{
    return reply(cookie, xcb_get_property_reply);
}

void DesktopConnection::selectEvents(xcb_window_t window, quint32 mask)
{
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
}

void DesktopConnection::tellWindowManager(xcb_window_t window, AtomName message,
                                          const std::array<quint32, 5> &data)
{
    tellWindowManager(m_connection, window, message, data);
}

void DesktopConnection::tellWindowManager(xcb_connection_t *over, xcb_window_t window, AtomName message,
                                          const std::array<quint32, 5> &data) const
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(over, 0, m_root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(over);
}

void DesktopConnection::askToRestack(xcb_window_t window, xcb_window_t sibling)
{
    // As a request it would fail: in their frames the two are no siblings.
    xcb_configure_request_event_t event = {};
    event.response_type = XCB_CONFIGURE_REQUEST;
    event.stack_mode = XCB_STACK_MODE_ABOVE;
    event.parent = m_root;
    event.window = window;
    event.sibling = sibling;
    event.value_mask = XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE;
    xcb_send_event(m_connection, 0, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(m_connection);
}

void DesktopConnection::flush()
{
    xcb_flush(m_connection);
}

XcbPointer<xcb_generic_event_t> DesktopConnection::pollEvent()
{
    if (m_quiet.isValid() && m_quiet.nsecsElapsed() < kQuietNs)
        return queuedEvent();
    XcbPointer<xcb_generic_event_t> event(xcb_poll_for_event(m_connection));
    if (!event)
        m_quiet.start();
    return event;
}

XcbPointer<xcb_generic_event_t> DesktopConnection::queuedEvent()
{
    return XcbPointer<xcb_generic_event_t>(xcb_poll_for_queued_event(m_connection));
}

void DesktopConnection::expectInput()
{
    m_quiet.invalidate();
}

bool DesktopConnection::waitForInput(int timeoutMs)
{
    pollfd descriptor = {fileDescriptor(), POLLIN, 0};
    expectInput();
    return poll(&descriptor, 1, timeoutMs) > 0;
}

void DesktopConnection::countRoundTrip(unsigned int sequence)
{
    // Sequence numbers wrap; the difference as a signed number does not mind.
    if (m_roundTrips == 0 || static_cast<int>(sequence - m_answered) > 0) {
        ++m_roundTrips;
        m_answered = m_lastSent;
    }
}

QByteArray bytesOf(const PropertyReply &reply)
{
    if (!reply || reply->format != 8) {
        return {};
    }
    return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

QVector<quint32> numbersOf(const PropertyReply &reply)
{
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto *values = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    const auto count = static_cast<qsizetype>(xcb_get_property_value_length(reply.get())) / 4;
    return QVector<quint32>(values, values + count);
}

} // namespace norvane::x11
