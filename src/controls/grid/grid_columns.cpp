// The columns of a grid, and the single fields of its cells.

#include "controls/grid/GridModel.h"
#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <algorithm>

namespace norvane {

const GridColumn &GridModel::columnRecord(int column) const
{
    if (column < 1 || column > m_columns.size())
        throw RuntimeError(kErrorSubscript, QStringLiteral("There is no such column."));
    return m_columns.at(column - 1);
}

GridColumn &GridModel::changedColumn(int column)
{
    (void)columnRecord(column);
    return m_columns[column - 1];
}

int GridModel::AddColumn(const QString &key, const QString &header, qint16 align, qint32 image, int width,
                         bool visible)
{
    GridColumn added;
    added.key = key;
    added.header = header;
    added.align = align;
    added.image = image;
    added.width = std::max(0, width);
    added.visible = visible;
    added.order = Columns() + 1;
    m_columns.append(added);
    m_cells.addColumn();
    changed(Change::Columns, 0, 0);
    return Columns();
}

void GridModel::RemoveColumn(int column)
{
    const int order = columnRecord(column).order;
    m_columns.removeAt(column - 1);
    m_cells.removeColumn(column);
    for (GridColumn &other : m_columns)
        other.order -= other.order > order ? 1 : 0;
    if (m_selectedCol == column)
        m_selectedCol = 0;
    else if (m_selectedCol > column)
        --m_selectedCol;
    m_anchorCol = m_selectedCol;
    changed(Change::Columns, 0, 0);
}

int GridModel::ColumnIndex(const QString &key) const
{
    for (int column = 1; column <= Columns(); ++column) {
        if (m_columns.at(column - 1).key.compare(key, Qt::CaseInsensitive) == 0)
            return column;
    }
    return 0;
}

void GridModel::setColumnHeader(int column, const QString &header)
{
    changedColumn(column).header = header;
    changed(Change::Header, 0, column);
}

void GridModel::setColumnWidth(int column, int width)
{
    if (ColumnWidth(column) == std::max(0, width))
        return;
    changedColumn(column).width = std::max(0, width);
    changed(Change::Width, 0, column);
}

void GridModel::setColumnVisible(int column, bool visible)
{
    changedColumn(column).visible = visible;
    changed(Change::Columns, 0, column);
}

void GridModel::setColumnImage(int column, qint32 image)
{
    changedColumn(column).image = image;
    changed(Change::Header, 0, column);
}

void GridModel::setColumnImageOnRight(int column, bool onRight)
{
    changedColumn(column).imageOnRight = onRight;
    changed(Change::Header, 0, column);
}

void GridModel::setColumnAlign(int column, qint16 align)
{
    changedColumn(column).align = align;
    changed(Change::Header, 0, column);
}

void GridModel::setColumnOrder(int column, int order)
{
    const int before = columnRecord(column).order;
    order = std::clamp(order, 1, Columns());
    for (GridColumn &other : m_columns) {
        if (other.order > before && other.order <= order)
            --other.order;
        else if (other.order < before && other.order >= order)
            ++other.order;
    }
    changedColumn(column).order = order;
    changed(Change::Columns, 0, column);
}

void GridModel::setColumnSortOrder(int column, qint32 order)
{
    changedColumn(column).sortOrder = order;
    changed(Change::Header, 0, column);
}

void GridModel::setColumnFormatString(int column, const QString &format)
{
    changedColumn(column).format = format;
    changed(Change::Columns, 0, column);
}

QVector<int> GridModel::visibleColumns() const
{
    QVector<int> columns;
    for (int column = 1; column <= Columns(); ++column) {
        if (m_columns.at(column - 1).visible)
            columns.append(column);
    }
    std::sort(columns.begin(), columns.end(),
              [this](int a, int b) { return m_columns.at(a - 1).order < m_columns.at(b - 1).order; });
    return columns;
}

void GridModel::setCellText(int row, int column, const QVariant &text)
{
    m_cells.setValue(row, column, text);
    changed(Change::Cell, row, column);
}

QString GridModel::CellFormattedText(int row, int column) const
{
    return formattedValue(m_cells.value(row, column), columnRecord(column).format);
}

const QVariant &GridModel::CellItemData(int row, int column) const
{
    const std::size_t at = m_cells.place(row, column);
    return m_cells.column(column).itemData.at(at);
}

CellContent GridModel::cellContent(int row, int column) const
{
    const std::size_t at = m_cells.place(row, column);
    const GridCellColumn &of = m_cells.column(column);
    return {CellText(row, column), of.align.at(at),     of.icon.at(at),
            of.backColor.at(at),   of.foreColor.at(at), of.font.at(at),
            of.indent.at(at),      of.extraIcon.at(at), of.itemData.at(at)};
}

void GridModel::setCellContent(int row, int column, const CellContent &content)
{
    (void)columnRecord(column);
    if (row > Rows())
        setRows(row);
    const std::size_t at = m_cells.place(row, column);
    m_cells.setValue(row, column, content.text);
    GridCellColumn &of = m_cells.column(column);
    of.align.set(at, content.align);
    of.icon.set(at, content.icon);
    of.backColor.set(at, content.backColor);
    of.foreColor.set(at, content.foreColor);
    of.font.set(at, content.font);
    of.indent.set(at, content.indent);
    of.extraIcon.set(at, content.extraIcon);
    of.itemData.set(at, content.itemData);
    changed(Change::Cell, row, column);
}

} // namespace norvane
