#include "TestClient.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/shape.h>
#include <xcb/xtest.h>

namespace {

struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T> std::unique_ptr<T, Free> owned(T *memory)
{
    return std::unique_ptr<T, Free>(memory);
}

constexpr quint32 kPagerSource = 2;
constexpr quint32 kIconicState = 3;
// WM_NORMAL_HINTS: the user's own position and size, 18 numbers in all.
constexpr quint32 kUserPosition = 1;
constexpr quint32 kUserSize = 2;
constexpr int kHintNumbers = 18;

} // namespace

TestClient::TestClient()
    : m_connection(xcb_connect(nullptr, nullptr)),
      m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root)
{
}

TestClient::~TestClient()
{
    xcb_disconnect(m_connection);
}

xcb_atom_t TestClient::atom(const char *name)
{
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(std::strlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_window_t TestClient::open(const Looks &looks)
{
    const xcb_window_t window = xcb_generate_id(m_connection);
    const quint32 background = 0x335577;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root,
                      static_cast<int16_t>(looks.rect.x()), static_cast<int16_t>(looks.rect.y()),
                      static_cast<uint16_t>(looks.rect.width()), static_cast<uint16_t>(looks.rect.height()),
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &background);
    setTitle(window, looks.title);
    setText(window, "WM_CLASS", "STRING", looks.wmClass);
    QVector<quint32> hints(kHintNumbers, 0);
    hints[0] = kUserPosition | kUserSize;
    setNumbers(window, "WM_NORMAL_HINTS", "WM_SIZE_HINTS", hints);
    if (!looks.type.isEmpty()) {
        setNumbers(window, "_NET_WM_WINDOW_TYPE", "ATOM", {atom(looks.type.constData())});
    }
    if (looks.transientFor != XCB_NONE) {
        setNumbers(window, "WM_TRANSIENT_FOR", "WINDOW", {looks.transientFor});
    }
    map(window);
    return window;
}

void TestClient::destroy(xcb_window_t window)
{
    xcb_destroy_window(m_connection, window);
    sync();
}

void TestClient::unmap(xcb_window_t window)
{
    xcb_unmap_window(m_connection, window);
    sync();
}

void TestClient::map(xcb_window_t window)
{
    xcb_map_window(m_connection, window);
    sync();
}

void TestClient::setTitle(xcb_window_t window, const QString &title)
{
    setText(window, "_NET_WM_NAME", "UTF8_STRING", title.toUtf8());
}

void TestClient::setText(xcb_window_t window, const char *property, const char *type, const QByteArray &bytes)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 8,
                        static_cast<quint32>(bytes.size()), bytes.constData());
    xcb_flush(m_connection);
}

void TestClient::setNumbers(xcb_window_t window, const char *property, const char *type,
                            const QVector<quint32> &numbers)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 32,
                        static_cast<quint32>(numbers.size()), numbers.constData());
    xcb_flush(m_connection);
}

QVector<quint32> TestClient::numbers(xcb_window_t window, const char *property)
{
    const auto cookie =
        xcb_get_property(m_connection, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, 4096);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto *values = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    return QVector<quint32>(values, values + xcb_get_property_value_length(reply.get()) / 4);
}

void TestClient::configure(xcb_window_t window, const QRect &rect)
{
    const quint32 values[] = {static_cast<quint32>(rect.x()), static_cast<quint32>(rect.y()),
                              static_cast<quint32>(rect.width()), static_cast<quint32>(rect.height())};
    xcb_configure_window(m_connection, window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    sync();
}

void TestClient::minimize(xcb_window_t window)
{
    request(window, "WM_CHANGE_STATE", {kIconicState});
}

void TestClient::request(xcb_window_t window, const char *message, const QVector<quint32> &numbers)
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

void TestClient::setWorkspace(quint32 workspace)
{
    request(m_root, "_NET_CURRENT_DESKTOP", {workspace, XCB_CURRENT_TIME});
}

void TestClient::raise(xcb_window_t window)
{
    request(window, "_NET_RESTACK_WINDOW", {kPagerSource, XCB_NONE, XCB_STACK_MODE_ABOVE});
}

QVector<quint32> TestClient::stacking()
{
    return numbers(m_root, "_NET_CLIENT_LIST_STACKING");
}

quint32 TestClient::activeWindow()
{
    const QVector<quint32> active = numbers(m_root, "_NET_ACTIVE_WINDOW");
    return active.isEmpty() ? XCB_NONE : active.first();
}

QRect TestClient::geometry(xcb_window_t window)
{
    const auto place = owned(xcb_translate_coordinates_reply(
        m_connection, xcb_translate_coordinates(m_connection, window, m_root, 0, 0), nullptr));
    const auto size =
        owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    return place && size ? QRect(place->dst_x, place->dst_y, size->width, size->height) : QRect();
}

bool TestClient::isViewable(xcb_window_t window)
{
    const auto reply = owned(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

QVector<QRect> TestClient::shape(xcb_window_t window)
{
    const auto reply = owned(xcb_shape_get_rectangles_reply(
        m_connection, xcb_shape_get_rectangles(m_connection, window, XCB_SHAPE_SK_BOUNDING), nullptr));
    QVector<QRect> rects;
    if (reply) {
        const xcb_rectangle_t *rectangles = xcb_shape_get_rectangles_rectangles(reply.get());
        for (int i = 0; i < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++i) {
            rects.append(QRect(rectangles[i].x, rectangles[i].y, rectangles[i].width, rectangles[i].height));
        }
    }
    return rects;
}

void TestClient::movePointer(const QPoint &position)
{
    xcb_test_fake_input(m_connection, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, m_root,
                        static_cast<int16_t>(position.x()), static_cast<int16_t>(position.y()), 0);
    sync();
}

void TestClient::press(int button)
{
    xcb_test_fake_input(m_connection, XCB_BUTTON_PRESS, static_cast<uint8_t>(button), XCB_CURRENT_TIME,
                        m_root, 0, 0, 0);
    sync();
}

void TestClient::release(int button)
{
    xcb_test_fake_input(m_connection, XCB_BUTTON_RELEASE, static_cast<uint8_t>(button), XCB_CURRENT_TIME,
                        m_root, 0, 0, 0);
    sync();
}

quint8 TestClient::keycodeOf(quint32 keysym)
{
    const xcb_setup_t *setup = xcb_get_setup(m_connection);
    const auto count = static_cast<uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto reply = owned(xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, setup->min_keycode, count), nullptr));
    const xcb_keysym_t *keysyms = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (int code = 0; code < count; ++code) {
        if (keysyms[code * reply->keysyms_per_keycode] == keysym) {
            return static_cast<quint8>(code + setup->min_keycode);
        }
    }
    return 0;
}

void TestClient::pressKey(quint32 keysym)
{
    xcb_test_fake_input(m_connection, XCB_KEY_PRESS, keycodeOf(keysym), XCB_CURRENT_TIME, m_root, 0, 0, 0);
    sync();
}

void TestClient::releaseKey(quint32 keysym)
{
    xcb_test_fake_input(m_connection, XCB_KEY_RELEASE, keycodeOf(keysym), XCB_CURRENT_TIME, m_root, 0, 0, 0);
    sync();
}

void TestClient::click(const QPoint &position)
{
    movePointer(position);
    press(XCB_BUTTON_INDEX_1);
    release(XCB_BUTTON_INDEX_1);
}

void TestClient::watch(xcb_window_t window)
{
    const quint32 mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
    sync();
    countOf(0);
    m_events.clear();
}

int TestClient::countOf(int eventType)
{
    while (const auto event = owned(xcb_poll_for_event(m_connection))) {
        m_events.append(event->response_type & 0x7f);
    }
    return static_cast<int>(m_events.count(eventType));
}

void TestClient::sync()
{
    owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}
