#include "ForeignWindows.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <unistd.h>

namespace norvane::test {

namespace {

struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T> std::unique_ptr<T, Free> owned(T *memory)
{
    return std::unique_ptr<T, Free>(memory);
}

// WM_NORMAL_HINTS: the user's own position and size, 18 numbers in all.
constexpr quint32 kUserPositionAndSize = 3;
constexpr int kHintNumbers = 18;
constexpr quint32 kBackground = 0x335577;
constexpr uint8_t kEventMask = 0x7f; ///< without the mark of events that were sent by programs

} // namespace

ForeignWindows::ForeignWindows(const QString &display)
    : m_connection(xcb_connect(display.toLatin1().constData(), nullptr))
{
    if (xcb_connection_has_error(m_connection) == 0)
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
}

ForeignWindows::~ForeignWindows()
{
    xcb_disconnect(m_connection);
}

xcb_atom_t ForeignWindows::atom(const char *name) const
{
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(std::strlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_window_t ForeignWindows::open(const Looks &looks)
{
    const xcb_window_t window = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root,
                      static_cast<int16_t>(looks.rect.x()), static_cast<int16_t>(looks.rect.y()),
                      static_cast<uint16_t>(looks.rect.width()), static_cast<uint16_t>(looks.rect.height()),
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                      &kBackground);
    setTitle(window, looks.title);
    setText(window, "WM_CLASS", "STRING", looks.wmClass);
    QVector<quint32> hints(kHintNumbers, 0);
    hints[0] = kUserPositionAndSize;
    setNumbers(window, "WM_NORMAL_HINTS", "WM_SIZE_HINTS", hints);
    if (!looks.type.isEmpty())
        setNumbers(window, "_NET_WM_WINDOW_TYPE", "ATOM", {atom(looks.type.constData())});
    if (looks.transientFor != XCB_NONE)
        setNumbers(window, "WM_TRANSIENT_FOR", "WINDOW", {looks.transientFor});
    m_opened.append(window);
    map(window);
    return window;
}

void ForeignWindows::destroy(xcb_window_t window)
{
    xcb_destroy_window(m_connection, window);
    sync();
}

void ForeignWindows::map(xcb_window_t window)
{
    xcb_map_window(m_connection, window);
    sync();
}

void ForeignWindows::unmap(xcb_window_t window)
{
    xcb_unmap_window(m_connection, window);
    sync();
}

void ForeignWindows::configure(xcb_window_t window, const QRect &rect)
{
    const qint32 values[] = {rect.x(), rect.y(), rect.width(), rect.height()};
    xcb_configure_window(m_connection, window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    sync();
}

void ForeignWindows::setTitle(xcb_window_t window, const QString &title)
{
    setText(window, "_NET_WM_NAME", "UTF8_STRING", title.toUtf8());
}

void ForeignWindows::setText(xcb_window_t window, const char *property, const char *type,
                             const QByteArray &bytes)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 8,
                        static_cast<quint32>(bytes.size()), bytes.constData());
    sync();
}

void ForeignWindows::setNumbers(xcb_window_t window, const char *property, const char *type,
                                const QVector<quint32> &numbers)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 32,
                        static_cast<quint32>(numbers.size()), numbers.constData());
    sync();
}

QVector<quint32> ForeignWindows::numbers(xcb_window_t window, const char *property) const
{
    const auto cookie =
        xcb_get_property(m_connection, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, 4096);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto *values = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    return QVector<quint32>(values, values + xcb_get_property_value_length(reply.get()) / 4);
}

void ForeignWindows::answerPings(xcb_window_t window)
{
    setNumbers(window, "WM_PROTOCOLS", "ATOM", {atom("_NET_WM_PING")});
    while (const auto event = owned(xcb_wait_for_event(m_connection))) {
        auto *message = reinterpret_cast<xcb_client_message_event_t *>(event.get());
        if ((event->response_type & kEventMask) != XCB_CLIENT_MESSAGE)
            continue;
        message->window = m_root;
        xcb_send_event(m_connection, 0, m_root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char *>(message));
        xcb_flush(m_connection);
    }
    ::_exit(0);
}

void ForeignWindows::request(xcb_window_t window, const char *message, const QVector<quint32> &numbers)
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::copy(numbers.begin(), numbers.end(), event.data.data32);
    xcb_send_event(m_connection, 0, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
    sync();
}

/// Comes back when the server has done all that it was asked for.
void ForeignWindows::sync() const
{
    owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

} // namespace norvane::test
