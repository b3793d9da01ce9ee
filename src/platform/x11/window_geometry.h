#pragma once

#include <QMargins>
#include <QRect>
#include <QVector>

/// Rectangles of windows: pure functions between device pixels and logical ones.
namespace norvane::x11 {

/// A screen: where it is in device pixels, and how many of them are one logical pixel. Screens keep
/// their top left corner in both.
struct ScreenScale
{
    QRect devicePixels;
    qreal scale = 1.0;
};

/// A rectangle of device pixels in logical ones, by the screen that holds its middle (else the first
/// that it touches, else the first). No screens: unchanged.
QRect toLogical(const QRect &rect, const QVector<ScreenScale> &screens);

/// A rectangle whose corner and size are multiplied by a factor, each rounded.
QRect scaled(const QRect &rect, qreal factor);

/// The four numbers of an extents property: left, right, top, bottom. Wrong or absurd ones are none.
QMargins extentsOf(const QVector<quint32> &numbers);

/// The part of a window that a target's rectangle leaves to be seen, in the window's own
/// coordinates. A window that is wholly outside gets a rectangle outside of itself, since an empty
/// shape means no clipping at all.
/// @return a null rectangle when nothing need be clipped
QRect clipInside(const QRect &window, const QRect &target);

/// What clipInside() gives for a window of which nothing is to be seen.
inline constexpr QRect kNothingSeen{-2, -2, 1, 1};

} // namespace norvane::x11
