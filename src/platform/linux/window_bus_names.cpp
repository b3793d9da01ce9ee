#include "platform/linux/window_bus_names.h"

#include <QByteArray>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace norvane {

namespace {

struct Free
{
    void operator()(void *reply) const { std::free(reply); }
};
template <typename Reply> using Owned = std::unique_ptr<Reply, Free>;

struct Disconnect
{
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};

constexpr uint32_t kMostWords = 1024;

QString textProperty(xcb_connection_t *connection, xcb_window_t window, const char *name)
{
    const Owned<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 1, static_cast<uint16_t>(std::strlen(name)), name), nullptr));
    if (!atom)
        return {};
    const auto request =
        xcb_get_property(connection, 0, window, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, kMostWords);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, request, nullptr));
    if (!reply || reply->format != 8)
        return {};
    return QString::fromUtf8(static_cast<const char *>(xcb_get_property_value(reply.get())),
                             xcb_get_property_value_length(reply.get()));
}

} // namespace

WindowBusNames readWindowBusNames(const QString &display, WindowHandle window)
{
    const QByteArray name = display.toLatin1();
    const std::unique_ptr<xcb_connection_t, Disconnect> connection(
        xcb_connect(name.isEmpty() ? nullptr : name.constData(), nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return {};
    const auto id = static_cast<xcb_window_t>(window);
    return {textProperty(connection.get(), id, "_GTK_UNIQUE_BUS_NAME"),
            textProperty(connection.get(), id, "_GTK_WINDOW_OBJECT_PATH")};
}

} // namespace norvane
