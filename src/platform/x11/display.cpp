#include "platform/x11/display.h"

#include <xcb/xcb.h>

namespace norvane {

bool isDisplayThere()
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const bool there = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return there;
}

} // namespace norvane
