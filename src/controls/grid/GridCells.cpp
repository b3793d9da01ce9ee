#include "controls/grid/GridCells.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"

namespace norvane {

namespace {

/// Does the same to every field of a column.
template <class Column, class Action> void forFields(Column &column, const Action &action)
{
    action(column.backColor);
    action(column.foreColor);
    action(column.font);
    action(column.kind);
    action(column.number);
    action(column.text);
    action(column.align);
    action(column.icon);
    action(column.selected);
    action(column.indent);
    action(column.extraIcon);
    action(column.itemData);
}

[[noreturn]] void raiseOutside()
{
    throw RuntimeError(kErrorSubscript, QStringLiteral("There is no such row or column."));
}

} // namespace

void GridCells::setRows(int rows)
{
    m_rows = std::max(0, rows);
    for (GridCellColumn &column : m_columns)
        forFields(column, [this](auto &field) { field.resize(static_cast<std::size_t>(m_rows)); });
}

void GridCells::addColumn()
{
    m_columns.emplace_back();
    forFields(m_columns.back(), [this](auto &field) { field.resize(static_cast<std::size_t>(m_rows)); });
}

void GridCells::removeColumn(int column)
{
    if (column < 1 || column > columns())
        raiseOutside();
    m_columns.erase(m_columns.begin() + (column - 1));
}

void GridCells::insertRow(int before)
{
    if (before < 1 || before > m_rows + 1)
        raiseOutside();
    ++m_rows;
    for (GridCellColumn &column : m_columns)
        forFields(column, [before](auto &field) { field.insert(static_cast<std::size_t>(before - 1)); });
}

void GridCells::removeRow(int row)
{
    if (row < 1 || row > m_rows)
        raiseOutside();
    --m_rows;
    for (GridCellColumn &column : m_columns)
        forFields(column, [row](auto &field) { field.remove(static_cast<std::size_t>(row - 1)); });
}

void GridCells::permute(const std::vector<qint32> &order)
{
    for (GridCellColumn &column : m_columns)
        forFields(column, [&order](auto &field) { field.permute(order); });
}

CellValue GridCells::value(int row, int column) const
{
    const std::size_t at = place(row, column);
    const GridCellColumn &of = m_columns[static_cast<std::size_t>(column - 1)];
    return {of.kind.at(at), of.number.at(at), &of.text.at(at)};
}

void GridCells::setValue(int row, int column, const QVariant &value)
{
    const std::size_t at = place(row, column);
    GridCellColumn &of = m_columns[static_cast<std::size_t>(column - 1)];
    KeptValue kept = keptValue(value);
    of.kind.set(at, kept.kind);
    of.number.set(at, kept.number);
    of.text.set(at, std::move(kept.text));
}

GridCellColumn &GridCells::column(int column)
{
    if (column < 1 || column > columns())
        raiseOutside();
    return m_columns[static_cast<std::size_t>(column - 1)];
}

const GridCellColumn &GridCells::column(int column) const
{
    if (column < 1 || column > columns())
        raiseOutside();
    return m_columns[static_cast<std::size_t>(column - 1)];
}

std::size_t GridCells::place(int row, int column) const
{
    if (column < 1 || column > columns() || row < 1 || row > m_rows)
        raiseOutside();
    return static_cast<std::size_t>(row - 1);
}

} // namespace norvane
