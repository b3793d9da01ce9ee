// A program with one window that answers the window manager's pings: the victim of tests that stop
// a program in its tracks. Usage: ping_client TITLE; it writes its window's id and runs until killed.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

namespace {

xcb_atom_t atom(xcb_connection_t *connection, const char *name)
{
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name);
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(connection, cookie, nullptr);
    const xcb_atom_t value = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    std::free(reply);
    return value;
}

} // namespace

int main(int argc, char **argv)
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (argc != 2 || xcb_connection_has_error(connection)) {
        return 1;
    }
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 200, 150, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        static_cast<uint32_t>(std::strlen(argv[1])), argv[1]);
    const xcb_atom_t protocols = atom(connection, "WM_PROTOCOLS");
    const xcb_atom_t ping = atom(connection, "_NET_WM_PING");
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, protocols, XCB_ATOM_ATOM, 32, 1, &ping);
    xcb_map_window(connection, window);
    xcb_flush(connection);
    std::printf("%u\n", window);
    std::fflush(stdout);
    while (xcb_generic_event_t *event = xcb_wait_for_event(connection)) {
        auto *message = reinterpret_cast<xcb_client_message_event_t *>(event);
        if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE && message->type == protocols &&
            message->data.data32[0] == ping) {
            message->window = screen->root;
            xcb_send_event(connection, 0, screen->root,
                           XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                           reinterpret_cast<const char *>(message));
            xcb_flush(connection);
        }
        std::free(event);
    }
    return 0;
}
