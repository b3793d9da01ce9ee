#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace norvane {

/// Where a mouse press takes hold of a note.
enum class NoteGrip {
    None,
    Move,
    Left,
    Right,
    Top,
    Bottom,
    TopLeft,
    TopRight,
    BottomLeft,
    BottomRight,
};

/// The grip under a point of a note of that size: its edges, wider at the corners, else None.
NoteGrip noteGripAt(const QPoint &point, const QSize &size);

/// The rectangle that a drag by @p delta from @p start gives. A note keeps the least size that can
/// still be taken hold of; the edge that is not dragged stays where it is.
QRect draggedNote(const QRect &start, NoteGrip grip, const QPoint &delta);

inline constexpr int kNoteEdge = 4;                                 ///< sizing edge, logical pixels
inline constexpr int kNoteCorner = 14;                              ///< length of a corner along each edge
inline constexpr int kNoteStrip = 22;                               ///< height of the title strip
inline constexpr QSize kNoteLeast(112, kNoteStrip + 2 * kNoteEdge); ///< while it is dragged

} // namespace norvane
