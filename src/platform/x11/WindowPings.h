#pragma once

#include <QHash>
#include <xcb/xcb.h>

namespace norvane::x11 {

class DesktopConnection;

/// Signs of life that programs are asked for, window by window.
class WindowPings
{
public:
    /// @param rootEvents what is selected at the root while nobody owes an answer
    WindowPings(DesktopConnection &connection, quint32 rootEvents)
        : m_connection(connection), m_rootEvents(rootEvents)
    {
    }

    /// Asks the program of a window, without waiting.
    void ping(xcb_window_t window);
    /// Whether no ping to the window is left without an answer.
    bool heardFrom(xcb_window_t window) const { return !m_owed.contains(window); }
    /// Takes an answer; any other message is left alone.
    void handle(const xcb_client_message_event_t &message);
    /// The window has gone and will not answer.
    void forget(xcb_window_t window) { m_owed.remove(window); }

private:
    DesktopConnection &m_connection;
    quint32 m_rootEvents;
    QHash<xcb_window_t, quint32> m_owed; ///< window to the number of its last ping
    quint32 m_last = 0;
};

} // namespace norvane::x11
