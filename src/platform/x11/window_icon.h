#pragma once

#include "platform/WindowSystem.h"
#include "platform/x11/DesktopConnection.h"

namespace norvane::x11 {

/// The picture of a list of them: width, height and the pixels of each. The smallest whose longer side is
/// not below @p side, else the largest. A list that is cut short or tells no sizes of sense counts up to
/// there.
IconImage pictureOf(const QVector<quint32> &list, int side);

/// The icon of a window: of its list of pictures, else the pixmap that older programs name. One round trip
/// for a list, a few for a pixmap.
IconImage readIcon(DesktopConnection &connection, xcb_window_t window, int side);

} // namespace norvane::x11
