#pragma once

#include <QRect>
#include <QVector>

class QMdiArea;

namespace norvane {

/// Rectangles for @p count windows one below the other, each as wide as @p area.
QVector<QRect> tileRows(const QRect &area, int count);
/// Rectangles for @p count windows side by side, each as high as @p area.
QVector<QRect> tileColumns(const QRect &area, int count);

/// The frame's arrange operation. Windows that are minimised or hidden keep their places, except
/// that ArrangeIcons lines the minimised ones up along the bottom.
enum class Arrange { Cascade, TileHorizontally, TileVertically, ArrangeIcons };
void arrangeChildren(QMdiArea *area, Arrange how);

} // namespace norvane
