#include "sticky/NoteFrame.h"

#include <algorithm>

namespace norvane {

namespace {

struct Sides
{
    bool left, right, top, bottom;
};

Sides sidesOf(NoteGrip grip)
{
    using enum NoteGrip;
    return {grip == Left || grip == TopLeft || grip == BottomLeft,
            grip == Right || grip == TopRight || grip == BottomRight,
            grip == Top || grip == TopLeft || grip == TopRight,
            grip == Bottom || grip == BottomLeft || grip == BottomRight};
}

NoteGrip gripOf(const Sides &sides)
{
    using enum NoteGrip;
    if (sides.top)
        return sides.left ? TopLeft : sides.right ? TopRight : Top;
    if (sides.bottom)
        return sides.left ? BottomLeft : sides.right ? BottomRight : Bottom;
    return sides.left ? Left : sides.right ? Right : None;
}

} // namespace

NoteGrip noteGripAt(const QPoint &point, const QSize &size)
{
    const bool onEdge = point.x() < kNoteEdge || point.y() < kNoteEdge ||
                        point.x() >= size.width() - kNoteEdge || point.y() >= size.height() - kNoteEdge;
    if (!onEdge)
        return NoteGrip::None;
    // An edge reaches a corner's length into its neighbours; in a note too small for that, the far
    // sides win, since they are the ones that make it larger.
    const bool horizontal = point.y() < kNoteEdge || point.y() >= size.height() - kNoteEdge;
    const int reachX = horizontal ? kNoteCorner : kNoteEdge;
    const int reachY = horizontal ? kNoteEdge : kNoteCorner;
    Sides sides{};
    sides.right = point.x() >= size.width() - reachX;
    sides.left = !sides.right && point.x() < reachX;
    sides.bottom = point.y() >= size.height() - reachY;
    sides.top = !sides.bottom && point.y() < reachY;
    return gripOf(sides);
}

QRect draggedNote(const QRect &start, NoteGrip grip, const QPoint &delta)
{
    if (grip == NoteGrip::Move)
        return start.translated(delta);
    const Sides sides = sidesOf(grip);
    // A note that is smaller already may stay so, but no side goes further in.
    const int leastWidth = std::min(kNoteLeast.width(), start.width());
    const int leastHeight = std::min(kNoteLeast.height(), start.height());
    QRect rect = start;
    if (sides.left)
        rect.setLeft(std::min(start.left() + delta.x(), start.right() + 1 - leastWidth));
    if (sides.right)
        rect.setRight(std::max(start.right() + delta.x(), start.left() - 1 + leastWidth));
    if (sides.top)
        rect.setTop(std::min(start.top() + delta.y(), start.bottom() + 1 - leastHeight));
    if (sides.bottom)
        rect.setBottom(std::max(start.bottom() + delta.y(), start.top() - 1 + leastHeight));
    return rect;
}

} // namespace norvane
