#include "controls/menu/menu_placing.h"

#include <algorithm>
#include <array>

namespace norvane {

namespace {

QRect movedInto(QRect rect, const QRect &available)
{
    rect.setSize(rect.size().boundedTo(available.size()));
    rect.moveLeft(std::clamp(rect.left(), available.left(), available.right() + 1 - rect.width()));
    rect.moveTop(std::clamp(rect.top(), available.top(), available.bottom() + 1 - rect.height()));
    return rect;
}

} // namespace

QRect placedMenu(QSize size, QPoint corner, const QRect &available, const QRect &exclude, bool vertical)
{
    const QRect wished(corner, size.boundedTo(available.size()));
    QRect placed = wished;
    if (placed.bottom() > available.bottom() && corner.y() - placed.height() >= available.top())
        placed.moveBottom(corner.y() - 1);
    placed = movedInto(placed, available);
    if (exclude.isEmpty() || !placed.intersects(exclude))
        return placed;

    const auto at = [&](int left, int top) {
        QRect moved = wished;
        moved.moveTopLeft({left, top});
        return moved;
    };
    // The other direction is free to give way to the screen's edge.
    const std::array<QRect, 2> aboveBelow = {at(placed.left(), exclude.bottom() + 1),
                                             at(placed.left(), exclude.top() - wished.height())};
    const std::array<QRect, 2> beside = {at(exclude.right() + 1, placed.top()),
                                         at(exclude.left() - wished.width(), placed.top())};
    for (const auto &pair : {vertical ? aboveBelow : beside, vertical ? beside : aboveBelow}) {
        for (const QRect &rect : pair) {
            if (available.contains(rect))
                return rect;
        }
    }
    return placed;
}

QRect placedSubMenu(QSize size, const QRect &item, int frame, const QRect &available)
{
    QRect rect(QPoint(item.right() + 1, item.top() - frame), size.boundedTo(available.size()));
    if (rect.right() > available.right() && item.left() - rect.width() >= available.left())
        rect.moveRight(item.left() - 1);
    return movedInto(rect, available);
}

} // namespace norvane
