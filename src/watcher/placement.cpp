#include "watcher/placement.h"

#include "shell/numeric_prefix.h"

#include <algorithm>

namespace norvane {

namespace {

// Room for the target's frame and its status line.
constexpr int kRightAllowance = 7;
constexpr int kBottomAllowance = 27;

int middle(int target, int note)
{
    return static_cast<int>(roundHalfEven((target - note) / 2.0));
}

} // namespace

QPoint cornerPlace(int formPosition, const QSize &target, const QSize &note)
{
    const int right = target.width() - note.width() - kRightAllowance;
    const int bottom = target.height() - note.height() - kBottomAllowance;
    QPoint place(0, 0);
    switch (formPosition) {
    case kCentre:
        place = {middle(target.width(), note.width()), middle(target.height(), note.height())};
        break;
    case kTopRight:
        place.setX(right);
        break;
    case kBottomLeft:
        place.setY(bottom);
        break;
    case kBottomRight:
        place = {right, bottom};
        break;
    default:
        break;
    }
    return {std::max(place.x(), 0), std::max(place.y(), 0)};
}

} // namespace norvane
