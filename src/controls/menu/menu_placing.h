#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace norvane {

// Where the window of a menu goes. All in pixels of the screen; @p available is what may be covered.
// A window that is larger than that is made as large as that.

/// @param corner    the upper left corner that is wished for; a menu that does not fit below it goes
///                  above it
/// @param exclude   not to be covered as far as possible; empty for none
/// @param vertical  keep clear of it by going below or above it, else by going beside it
QRect placedMenu(QSize size, QPoint corner, const QRect &available, const QRect &exclude, bool vertical);

/// Beside the item that it belongs to: right of it, or left where there is no room.
/// @param frame of the menu's window: rows of both menus are on one line
QRect placedSubMenu(QSize size, const QRect &item, int frame, const QRect &available);

} // namespace norvane
