#include "platform/linux/wayland_session.h"

#include <QByteArray>

namespace norvane {

bool isWaylandSession()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
}

} // namespace norvane
