#pragma once

#include <QRect>
#include <QSize>
#include <QVector>

namespace norvane {

/// What the layout needs to know of a row.
struct MenuRowSize
{
    int width = 0;
    int height = 0;
    bool columnBreak = false;    ///< the row begins a new column
    bool barColumnBreak = false; ///< ... behind a line
};

/// Where the rows of a menu are, in pixels from the corner of the whole, which may be longer than what
/// a window shows of it.
class MenuLayout
{
public:
    MenuLayout() = default;
    /// @param widestTotal more than this, and the column breaks are passed over
    MenuLayout(const QVector<MenuRowSize> &rows, int widestTotal);

    QSize size() const { return m_size; }
    int rowCount() const { return int(m_rows.size()); }
    /// As wide as its column.
    QRect row(int row) const { return m_rows.at(row); }
    /// -1 where there is none.
    int rowAt(QPoint point) const;
    /// The rows that a rectangle touches, in order.
    QVector<int> rowsIn(const QRect &rect) const;
    /// The row beside another one, in the column before (-1) or behind (1) it; -1 when there is none.
    int beside(int row, int direction) const;
    /// The middles of the lines between columns.
    QVector<int> bars() const;

private:
    struct Column
    {
        int firstRow = 0;
        int endRow = 0;
        int x = 0;
        int width = 0;
        bool hasBar = false;
    };

    bool place(const QVector<MenuRowSize> &rows, bool withBreaks, int widestTotal);
    int rowIn(const Column &column, int y) const;

    QVector<Column> m_columns;
    QVector<QRect> m_rows;
    QSize m_size;
};

} // namespace norvane
