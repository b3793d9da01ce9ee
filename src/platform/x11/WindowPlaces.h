#pragma once

#include <QHash>
#include <QRect>
#include <QSet>
#include <QVector>
#include <xcb/xcb.h>

namespace norvane::x11 {

class DesktopConnection;

/// The rectangles of the windows that are followed, as the server's events keep them true.
///
/// The server tells a window's moves by the window and by the window manager's frame around it; in a
/// drag by the mouse only the frame tells every step.
class WindowPlaces
{
public:
    /// @param connection outlives the object
    explicit WindowPlaces(DesktopConnection &connection) : m_connection(connection) {}

    /// Follows a window from now on; its events of structure must be selected already.
    void follow(xcb_window_t window);
    bool isFollowed(xcb_window_t window) const { return m_places.contains(window); }
    void forget(xcb_window_t window);

    /// A window or a frame was moved or sized.
    /// @return the followed window that this is about; XCB_NONE when it is about none
    xcb_window_t moved(xcb_window_t window);
    /// A window went into another frame. @return as moved()
    xcb_window_t reparented(xcb_window_t window);

    bool isStale() const { return !m_stale.isEmpty(); }
    /// Reads anew what events made stale, all windows in one batch.
    void read();

    /// The window with its shadow on the desktop, in device pixels; null when it is not followed.
    QRect rect(xcb_window_t window) const { return m_places.value(window).rect; }

private:
    struct Place
    {
        QRect rect;
        xcb_window_t frame = XCB_NONE; ///< the child of the root that holds the window
        bool wantsFrame = true;
    };

    void findFrames(const QVector<xcb_window_t> &windows);

    DesktopConnection &m_connection;
    QHash<xcb_window_t, Place> m_places;
    QHash<xcb_window_t, xcb_window_t> m_frames; ///< frame to the window in it
    QSet<xcb_window_t> m_stale;
};

} // namespace norvane::x11
