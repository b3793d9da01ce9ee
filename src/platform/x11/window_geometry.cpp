#include "platform/x11/window_geometry.h"

#include <algorithm>

namespace norvane::x11 {

namespace {

/// Above this an extent is rubbish: no frame and no shadow is as wide.
constexpr quint32 kMaxExtent = 1000;

const ScreenScale &screenOf(const QRect &rect, const QVector<ScreenScale> &screens)
{
    for (const ScreenScale &screen : screens) {
        if (screen.devicePixels.contains(rect.center())) {
            return screen;
        }
    }
    for (const ScreenScale &screen : screens) {
        if (screen.devicePixels.intersects(rect)) {
            return screen;
        }
    }
    return screens.first();
}

} // namespace

QRect toLogical(const QRect &rect, const QVector<ScreenScale> &screens)
{
    if (screens.isEmpty()) {
        return rect;
    }
    const ScreenScale &screen = screenOf(rect, screens);
    const QPoint origin = screen.devicePixels.topLeft();
    const QPointF corner = QPointF(rect.topLeft() - origin) / screen.scale;
    return QRect(origin + corner.toPoint(), (QSizeF(rect.size()) / screen.scale).toSize());
}

QRect scaled(const QRect &rect, qreal factor)
{
    return QRect((QPointF(rect.topLeft()) * factor).toPoint(), (QSizeF(rect.size()) * factor).toSize());
}

QMargins extentsOf(const QVector<quint32> &numbers)
{
    if (numbers.size() != 4 ||
        std::any_of(numbers.begin(), numbers.end(), [](quint32 extent) { return extent > kMaxExtent; })) {
        return {};
    }
    return {static_cast<int>(numbers[0]), static_cast<int>(numbers[2]), static_cast<int>(numbers[1]),
            static_cast<int>(numbers[3])};
}

QRect clipInside(const QRect &window, const QRect &target)
{
    if (target.contains(window)) {
        return {};
    }
    const QRect seen = window.intersected(target);
    return seen.isEmpty() ? kNothingSeen : seen.translated(-window.topLeft());
}

} // namespace norvane::x11
