#pragma once

#include <QPoint>
#include <QSize>

namespace norvane {

/// Values of `FormPosition`.
enum FormPosition {
    kStoredPosition = 0, ///< the row's own place and size
    kCentre = 1,
    kTopLeft = 2,
    kTopRight = 3,
    kBottomLeft = 4,
    kBottomRight = 5,
};

/// Where a note of a placement mode other than kStoredPosition stands in its target, in pixels of
/// the target's client area, never negative. An unknown mode gives the origin.
/// @param target outer size of the target's window
/// @param note   outer size of the note's window
QPoint cornerPlace(int formPosition, const QSize &target, const QSize &note);

} // namespace norvane
