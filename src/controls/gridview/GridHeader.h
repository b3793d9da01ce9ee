#pragma once

#include <QWidget>

class QPainter;
class QStyleOptionHeader;

namespace norvane {

class vbalGrid;

/// The headers of a grid's columns: click to sort, drag their ends for the widths, double click there
/// to fit, drag them to another place where the grid allows it.
class GridHeader : public QWidget
{
    Q_OBJECT

public:
    explicit GridHeader(vbalGrid *grid);

    /// Pixels; what the style and the font need, or what the grid states.
    int fullHeight() const;
    /// What a header needs to show its text, its icon and an arrow.
    int neededWidth(int column) const;
    /// Where a header stands.
    QRect section(int column) const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    QStyleOptionHeader option(int column) const;
    /// From the leading edge of the first column.
    int along(QPoint point) const;
    int columnAt(QPoint point) const;
    /// The column whose end is there; 0 for none.
    int endAt(QPoint point) const;
    void hover(QPoint point);
    void drawDropMark(QPainter &painter) const;
    int dropOrder() const;

    vbalGrid *m_grid;
    int m_pressed = 0;
    int m_hovered = 0;
    int m_askedEnd = 0; ///< the column that was asked whether its width may change, and the answer
    bool m_mayChange = false;
    int m_sized = 0; ///< the column whose width is being dragged
    int m_grip = 0;  ///< from the pointer to that column's end
    QPoint m_pressedAt;
    QPoint m_draggedTo;
    bool m_isDragged = false;
};

} // namespace norvane
