#include "WindowLog.h"

#include <QHash>
#include <QSet>
#include <cstdlib>

namespace norvane::test {

struct WindowLog::Entry
{
    enum class What { Made, Placed, Mapped, Unmapped, Framed };

    What what;
    xcb_window_t window;
    QRect rect;             ///< Made, Placed
    xcb_window_t frame = 0; ///< Framed: the new parent; the root when it was taken out again
};

WindowLog::WindowLog(const QString &display)
    : m_connection(xcb_connect(display.toLatin1().constData(), nullptr))
{
    if (xcb_connection_has_error(m_connection) != 0)
        return;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
    takeIn();
}

WindowLog::~WindowLog()
{
    xcb_disconnect(m_connection);
}

void WindowLog::takeIn()
{
    using What = Entry::What;
    // After a round trip everything that happened before it is in the queue.
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        // Programs can send events of any kind; only the server's own tell what happened.
        switch (event->response_type) {
        case XCB_CREATE_NOTIFY: {
            const auto &e = *reinterpret_cast<xcb_create_notify_event_t *>(event);
            m_entries.push_back({What::Made, e.window, QRect(e.x, e.y, e.width, e.height)});
            break;
        }
        case XCB_CONFIGURE_NOTIFY: {
            const auto &e = *reinterpret_cast<xcb_configure_notify_event_t *>(event);
            m_entries.push_back({What::Placed, e.window, QRect(e.x, e.y, e.width, e.height)});
            break;
        }
        case XCB_MAP_NOTIFY:
            m_entries.push_back(
                {What::Mapped, reinterpret_cast<xcb_map_notify_event_t *>(event)->window, {}});
            break;
        case XCB_UNMAP_NOTIFY:
            m_entries.push_back(
                {What::Unmapped, reinterpret_cast<xcb_unmap_notify_event_t *>(event)->window, {}});
            break;
        case XCB_REPARENT_NOTIFY: {
            const auto &e = *reinterpret_cast<xcb_reparent_notify_event_t *>(event);
            m_entries.push_back({What::Framed, e.window, {}, e.parent});
            break;
        }
        default:
            break;
        }
        std::free(event);
    }
}

WindowLog::Life WindowLog::lifeOf(xcb_window_t window)
{
    takeIn();
    Life life;
    QHash<xcb_window_t, QRect> rects;
    xcb_window_t outer = window; // what stands for the window on the root
    bool mapped = false;
    for (const Entry &entry : m_entries) {
        switch (entry.what) {
        case Entry::What::Made:
            rects[entry.window] = entry.rect;
            if (entry.window == window) {
                // A later program gets the ids of one that has ended.
                life = Life();
                outer = window;
                mapped = false;
            }
            break;
        case Entry::What::Placed:
            rects[entry.window] = entry.rect;
            if (entry.window == outer && mapped && life.shown.last() != entry.rect)
                life.shown.append(entry.rect);
            break;
        case Entry::What::Framed:
            if (entry.window == window) {
                if (outer == window && life.maps == 0)
                    life.asked = rects.value(window);
                outer = entry.frame == m_root ? window : entry.frame;
            }
            break;
        case Entry::What::Mapped:
            if (entry.window == outer) {
                if (life.maps++ == 0 && outer == window)
                    life.asked = rects.value(window);
                if (life.shown.isEmpty() || life.shown.last() != rects.value(outer))
                    life.shown.append(rects.value(outer));
                mapped = true;
            }
            break;
        case Entry::What::Unmapped:
            if (entry.window == outer && mapped) {
                ++life.unmaps;
                mapped = false;
            }
            break;
        }
    }
    return life;
}

QString WindowLog::text(xcb_window_t window)
{
    takeIn();
    QSet<xcb_window_t> windows{window};
    int made = 0;
    for (int number = 0; number < static_cast<int>(m_entries.size()); ++number) {
        const Entry &entry = m_entries[static_cast<std::size_t>(number)];
        if (entry.window != window)
            continue;
        if (entry.what == Entry::What::Made)
            made = number;
        if (entry.what == Entry::What::Framed)
            windows.insert(entry.frame);
    }
    QString lines;
    for (int number = made; number < static_cast<int>(m_entries.size()); ++number) {
        const Entry &entry = m_entries[static_cast<std::size_t>(number)];
        if (!windows.contains(entry.window))
            continue;
        static const char *const names[] = {"made", "placed", "mapped", "unmapped", "framed by"};
        lines += QStringLiteral("%1 %2 0x%3 %4")
                     .arg(number)
                     .arg(entry.window == window ? QStringLiteral("window") : QStringLiteral("frame"))
                     .arg(entry.window, 0, 16)
                     .arg(QLatin1String(names[static_cast<int>(entry.what)]));
        if (entry.what == Entry::What::Made || entry.what == Entry::What::Placed)
            lines += QStringLiteral(" %1,%2 %3x%4")
                         .arg(entry.rect.x())
                         .arg(entry.rect.y())
                         .arg(entry.rect.width())
                         .arg(entry.rect.height());
        if (entry.what == Entry::What::Framed)
            lines += QStringLiteral(" 0x%1").arg(entry.frame, 0, 16);
        lines += QLatin1Char('\n');
    }
    return lines;
}

} // namespace norvane::test
