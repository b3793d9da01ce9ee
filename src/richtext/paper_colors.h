#pragma once

#include <QColor>
#include <QPalette>

namespace norvane {

/// The colour of a value in blue-green-red byte order.
QColor colorFromBlueGreenRed(quint32 color);
/// The ink for text without a colour of its own: dark on light paper, light on dark paper.
QColor inkOn(const QColor &paper);
/// A palette whose base is the paper and whose text is its ink; the rest is as in @p desktop.
QPalette paperPalette(const QPalette &desktop, const QColor &paper);

} // namespace norvane
