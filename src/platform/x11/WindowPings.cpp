#include "platform/x11/WindowPings.h"

#include "platform/x11/DesktopConnection.h"

namespace norvane::x11 {

void WindowPings::ping(xcb_window_t window)
{
    // The answer is a message to the root, which only listeners to its children receive.
    m_connection.selectEvents(m_connection.root(), m_rootEvents | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = m_connection.atom(AtomName::WmProtocols);
    event.data.data32[0] = m_connection.atom(AtomName::NetWmPing);
    event.data.data32[1] = ++m_last;
    event.data.data32[2] = window;
    xcb_send_event(m_connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&event));
    m_connection.flush();
    m_owed.insert(window, m_last);
}

void WindowPings::handle(const xcb_client_message_event_t &message)
{
    if (message.type != m_connection.atom(AtomName::WmProtocols) || message.format != 32 ||
        message.data.data32[0] != m_connection.atom(AtomName::NetWmPing)) {
        return;
    }
    if (m_owed.remove(message.data.data32[2]) > 0 && m_owed.isEmpty()) {
        m_connection.selectEvents(m_connection.root(), m_rootEvents);
        m_connection.flush();
    }
}

} // namespace norvane::x11
