#include "Keyboard.h"

#include <QProcess>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <xcb/xcbext.h>
#include <xcb/xtest.h>
// The header names a member "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace norvane::test {

namespace {

struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T> using Pointer = std::unique_ptr<T, Free>;

} // namespace

Keyboard::Keyboard(const QString &display)
    : m_display(display), m_connection(xcb_connect(display.toLatin1().constData(), nullptr))
{
    if (xcb_connection_has_error(m_connection) != 0)
        return;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    const Pointer<xcb_xkb_use_extension_reply_t> xkb(xcb_xkb_use_extension_reply(
        m_connection, xcb_xkb_use_extension(m_connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
        nullptr));
    m_ready = xkb && xkb->supported && setLayout(QStringLiteral("us"));
}

Keyboard::~Keyboard()
{
    xcb_disconnect(m_connection);
}

xcb_keycode_t Keyboard::keyOf(xcb_keysym_t symbol) const
{
    const xcb_setup_t *setup = xcb_get_setup(m_connection);
    const auto count = static_cast<uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const Pointer<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, setup->min_keycode, count), nullptr));
    const xcb_keysym_t *symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    const xcb_keysym_t *end = symbols + xcb_get_keyboard_mapping_keysyms_length(reply.get());
    const xcb_keysym_t *found = std::find(symbols, end, symbol);
    if (found == end)
        return 0;
    return static_cast<xcb_keycode_t>(setup->min_keycode + (found - symbols) / reply->keysyms_per_keycode);
}

void Keyboard::fake(uint8_t type, xcb_keycode_t key)
{
    xcb_test_fake_input(m_connection, type, key, XCB_CURRENT_TIME, m_root, 0, 0, 0);
    sync();
}

void Keyboard::sync()
{
    Pointer<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

void Keyboard::chord(const QVector<xcb_keysym_t> &symbols)
{
    for (const xcb_keysym_t symbol : symbols)
        down(keyOf(symbol));
    for (auto symbol = symbols.crbegin(); symbol != symbols.crend(); ++symbol)
        up(keyOf(*symbol));
}

bool Keyboard::grab(xcb_keysym_t symbol, uint16_t modifiers)
{
    const Pointer<xcb_generic_error_t> error(xcb_request_check(
        m_connection, xcb_grab_key_checked(m_connection, 0, m_root, modifiers, keyOf(symbol),
                                           XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

void Keyboard::ungrab(xcb_keysym_t symbol, uint16_t modifiers)
{
    xcb_ungrab_key(m_connection, keyOf(symbol), m_root, modifiers);
    sync();
}

void Keyboard::swapKeys(xcb_keysym_t one, xcb_keysym_t other)
{
    const xcb_keycode_t keys[]{keyOf(one), keyOf(other)};
    Pointer<xcb_get_keyboard_mapping_reply_t> replies[2];
    for (int i = 0; i < 2; ++i)
        replies[i].reset(xcb_get_keyboard_mapping_reply(
            m_connection, xcb_get_keyboard_mapping(m_connection, keys[i], 1), nullptr));
    for (int i = 0; i < 2; ++i)
        xcb_change_keyboard_mapping(m_connection, 1, keys[i], replies[1 - i]->keysyms_per_keycode,
                                    xcb_get_keyboard_mapping_keysyms(replies[1 - i].get()));
    sync();
}

bool Keyboard::setLayout(const QString &layout)
{
    return QProcess::execute(QStringLiteral("setxkbmap"),
                             {QStringLiteral("-display"), m_display, QStringLiteral("-layout"), layout}) == 0;
}

void Keyboard::lockGroup(int group)
{
    xcb_xkb_latch_lock_state(m_connection, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, static_cast<uint8_t>(group), 0,
                             0, 0);
    sync();
}

void Keyboard::openWindow()
{
    const xcb_window_t window = xcb_generate_id(m_connection);
    const uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root, 0, 0, 50, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    xcb_map_window(m_connection, window);
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    sync();
}

int Keyboard::takePresses(xcb_keysym_t symbol)
{
    sync();
    int presses = 0;
    while (const Pointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        if (event->response_type == XCB_KEY_PRESS &&
            reinterpret_cast<const xcb_key_press_event_t *>(event.get())->detail == keyOf(symbol))
            ++presses;
    }
    return presses;
}

} // namespace norvane::test
