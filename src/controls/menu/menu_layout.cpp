#include "controls/menu/menu_layout.h"

#include <algorithm>

namespace norvane {

namespace {

constexpr int kBarWidth = 5;

} // namespace

MenuLayout::MenuLayout(const QVector<MenuRowSize> &rows, int widestTotal)
{
    if (!place(rows, true, widestTotal))
        place(rows, false, widestTotal);
}

/// False when it becomes too wide.
bool MenuLayout::place(const QVector<MenuRowSize> &rows, bool withBreaks, int widestTotal)
{
    m_columns.clear();
    m_rows.clear();
    m_rows.reserve(rows.size());
    m_size = {};
    int y = 0;
    for (int i = 0; i < int(rows.size()); ++i) {
        const MenuRowSize &row = rows.at(i);
        const bool breaks = withBreaks && (row.columnBreak || row.barColumnBreak);
        if (i == 0 || breaks) {
            Column column;
            column.firstRow = i;
            column.hasBar = i > 0 && row.barColumnBreak;
            m_columns.append(column);
            y = 0;
        }
        Column &column = m_columns.last();
        column.endRow = i + 1;
        column.width = std::max(column.width, row.width);
        m_rows.append(QRect(0, y, 0, row.height));
        y += row.height;
        m_size.setHeight(std::max(m_size.height(), y));
    }
    int x = 0;
    for (Column &column : m_columns) {
        x += column.hasBar ? kBarWidth : 0;
        column.x = x;
        for (int i = column.firstRow; i < column.endRow; ++i) {
            m_rows[i].moveLeft(x);
            m_rows[i].setWidth(column.width);
        }
        x += column.width;
    }
    m_size.setWidth(x);
    return m_columns.size() <= 1 || x <= widestTotal;
}

/// The first row of a column that ends below y; the column's end if none does.
int MenuLayout::rowIn(const Column &column, int y) const
{
    const auto begin = m_rows.cbegin() + column.firstRow;
    const auto end = m_rows.cbegin() + column.endRow;
    const auto found =
        std::partition_point(begin, end, [y](const QRect &rect) { return rect.y() + rect.height() <= y; });
    return int(found - m_rows.cbegin());
}

int MenuLayout::rowAt(QPoint point) const
{
    for (const Column &column : m_columns) {
        if (point.x() < column.x || point.x() >= column.x + column.width || point.y() < 0)
            continue;
        const int row = rowIn(column, point.y());
        return row < column.endRow ? row : -1;
    }
    return -1;
}

QVector<int> MenuLayout::rowsIn(const QRect &rect) const
{
    QVector<int> rows;
    for (const Column &column : m_columns) {
        if (column.x > rect.right() || column.x + column.width <= rect.left())
            continue;
        for (int i = rowIn(column, rect.top()); i < column.endRow && m_rows.at(i).y() <= rect.bottom(); ++i)
            rows.append(i);
    }
    return rows;
}

int MenuLayout::beside(int row, int direction) const
{
    for (int i = 0; i < int(m_columns.size()); ++i) {
        if (row < m_columns.at(i).firstRow || row >= m_columns.at(i).endRow)
            continue;
        const int other = i + direction;
        if (other < 0 || other >= int(m_columns.size()))
            return -1;
        const Column &column = m_columns.at(other);
        return std::min(rowIn(column, m_rows.at(row).center().y()), column.endRow - 1);
    }
    return -1;
}

QVector<int> MenuLayout::bars() const
{
    QVector<int> bars;
    for (const Column &column : m_columns) {
        if (column.hasBar)
            bars.append(column.x - kBarWidth / 2 - 1);
    }
    return bars;
}

} // namespace norvane
