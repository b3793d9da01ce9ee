#pragma once

#include <QColor>
#include <QPalette>

namespace norvane {

/// The colours that a grid is painted with.
struct GridColors
{
    QColor back;
    QColor ink;
    QColor line;
    QColor selectedBack;
    QColor selectedInk;
};

/// A cell's colour, 0xBBGGRR, as a colour; @p standard for a negative one.
QColor cellColor(qint32 color, const QColor &standard);

/// What a cell is filled with. White is the paper, so that it follows a dark desktop.
QColor cellPaper(qint32 color, const QColor &back);

/// Contrasts: what text should have, and what a desktop's own pair of colours may have.
inline constexpr double kGoodContrast = 4.5;
inline constexpr double kLeastContrast = 2.2;

/// The ink, or the nearest lighter or darker one that has the contrast to that paper.
QColor readableInk(const QColor &ink, const QColor &paper, double least = kGoodContrast);

/// @param part 0 gives the first, 1 the second
QColor mixed(const QColor &one, const QColor &other, double part);

} // namespace norvane
