#pragma once

#include "controls/gridview/vbalGrid.h"

class QPainter;

namespace norvane {

/// Draws the part of a grid that can be seen.
class GridPainter
{
public:
    GridPainter(const vbalGrid &grid, QPainter &painter);

    /// @param exposed in the viewport; all of it is filled
    void paint(const QRect &exposed);

    /// What a cell needs for its icons and its text, where that has so much width.
    static QSize neededSize(const vbalGrid &grid, int row, int column, int width);

private:
    void fillBack(const QRect &exposed);
    void drawRow(int row, const QRect &exposed);
    void drawCell(int row, const vbalGrid::Place &place, const QRect &cell);
    /// From the leading edge; both return the room that is left.
    QRect drawIcons(int row, int column, QRect room, bool isSelected, bool isCentered);
    void drawText(const QString &text, int row, int column, const QRect &room, const QColor &ink);
    void drawFocus();

    const vbalGrid &m_grid;
    QPainter &m_painter;
    GridColors m_plain;
    GridColors m_selected;
    int m_left = 0; ///< of what is scrolled to
    int m_top = 0;
};

} // namespace norvane
