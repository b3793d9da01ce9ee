#include "platform/x11/WindowPlaces.h"

#include "platform/x11/DesktopConnection.h"

namespace norvane::x11 {

namespace {

/// Window managers put a window into one frame, some into two.
constexpr int kMaxFrameDepth = 8;

} // namespace

void WindowPlaces::follow(xcb_window_t window)
{
    m_places[window].wantsFrame = true;
    m_stale.insert(window);
}

void WindowPlaces::forget(xcb_window_t window)
{
    m_frames.remove(m_places.take(window).frame);
    m_stale.remove(window);
}

xcb_window_t WindowPlaces::moved(xcb_window_t window)
{
    const xcb_window_t inside = m_frames.value(window, window);
    if (!isFollowed(inside)) {
        return XCB_NONE;
    }
    m_stale.insert(inside);
    return inside;
}

xcb_window_t WindowPlaces::reparented(xcb_window_t window)
{
    const auto place = m_places.find(window);
    if (place == m_places.end()) {
        return XCB_NONE;
    }
    m_frames.remove(place->frame);
    place->frame = XCB_NONE;
    place->wantsFrame = true;
    m_stale.insert(window);
    return window;
}

void WindowPlaces::read()
{
    const QVector<xcb_window_t> windows(m_stale.begin(), m_stale.end());
    m_stale.clear();
    findFrames(windows);
    struct Request
    {
        xcb_window_t window;
        xcb_translate_coordinates_cookie_t place;
        xcb_get_geometry_cookie_t size;
    };
    QVector<Request> requests;
    for (const xcb_window_t window : windows) {
        xcb_connection_t *connection = m_connection.get();
        const auto place =
            m_connection.sent(xcb_translate_coordinates(connection, window, m_connection.root(), 0, 0));
        const auto size = m_connection.sent(xcb_get_geometry(connection, window));
        requests.append({window, place, size});
    }
    for (const Request &request : requests) {
        const auto place = m_connection.reply(request.place, xcb_translate_coordinates_reply);
        const auto size = m_connection.reply(request.size, xcb_get_geometry_reply);
        if (place && size) {
            m_places[request.window].rect = QRect(place->dst_x, place->dst_y, size->width, size->height);
        }
    }
}

void WindowPlaces::findFrames(const QVector<xcb_window_t> &windows)
{
    // From each window upwards, all windows one step at a time.
    QHash<xcb_window_t, xcb_window_t> climbing;
    for (const xcb_window_t window : windows) {
        if (m_places[window].wantsFrame) {
            climbing.insert(window, window);
        }
    }
    for (int depth = 0; depth < kMaxFrameDepth && !climbing.isEmpty(); ++depth) {
        QVector<std::pair<xcb_window_t, xcb_query_tree_cookie_t>> requests;
        for (auto step = climbing.constBegin(); step != climbing.constEnd(); ++step) {
            requests.append(
                {step.key(), m_connection.sent(xcb_query_tree(m_connection.get(), step.value()))});
        }
        for (const auto &[window, cookie] : requests) {
            const auto answer = m_connection.reply(cookie, xcb_query_tree_reply);
            if (answer && answer->parent != m_connection.root() && answer->parent != XCB_NONE) {
                climbing[window] = answer->parent;
                continue;
            }
            Place &place = m_places[window];
            place.frame = climbing.take(window);
            place.wantsFrame = false;
            if (place.frame != window) {
                m_connection.selectEvents(place.frame, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
                m_frames.insert(place.frame, window);
            }
        }
    }
}

} // namespace norvane::x11
