#pragma once

#include <QColor>
#include <QPalette>

namespace norvane {

/// The colour of a value in blue-green-red byte order.
QColor colorFromBlueGreenRed(quint32 color);
/// The ink for text without a colour of its own: dark on light paper, light on dark paper.
QColor inkOn(const QColor &paper);
/// A palette of the paper and its ink, for what lies on it: text, bars, buttons. How a selection looks
/// is as in @p desktop.
QPalette paperPalette(const QPalette &desktop, const QColor &paper);

} // namespace norvane
