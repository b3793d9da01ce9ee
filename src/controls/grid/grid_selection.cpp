// The selection of a grid.

#include "controls/grid/GridModel.h"
#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <algorithm>

namespace norvane {

void GridModel::mark(int firstRow, int lastRow, int firstColumn, int lastColumn, bool selected)
{
    if (m_rowMode) {
        firstColumn = 1;
        lastColumn = Columns();
    }
    for (int column = firstColumn; column <= lastColumn; ++column) {
        LazyArray<quint8> &flags = m_cells.column(column).selected;
        for (int row = firstRow; row <= lastRow; ++row) {
            if (m_rows.at(row - 1).visible)
                flags.set(static_cast<std::size_t>(row - 1), selected ? 1 : 0);
        }
    }
}

void GridModel::unmarkAll()
{
    for (int column = 1; column <= Columns(); ++column)
        m_cells.column(column).selected.reset();
}

void GridModel::setSelectedRow(int row)
{
    if (row == 0) {
        unmarkAll();
        m_anchorRow = m_selectedRow = 0;
        changed(Change::Selection, 0, 0);
        return;
    }
    select(row, std::max(1, m_selectedCol), GridSelect::Only);
}

void GridModel::setSelectedCol(int column)
{
    if (column == 0 || m_selectedRow == 0) {
        if (column != 0)
            (void)columnRecord(column);
        m_selectedCol = column;
    } else if (m_rowMode) {
        select(m_selectedRow, column, GridSelect::MoveOnly);
    } else {
        select(m_selectedRow, column, GridSelect::Only);
    }
}

void GridModel::setMultiSelect(bool on)
{
    m_multiSelect = on;
    if (!on && m_selectedRow > 0)
        setSelectedRow(m_selectedRow);
}

void GridModel::setRowMode(bool on)
{
    m_rowMode = on;
    if (m_selectedRow > 0)
        setSelectedRow(m_selectedRow);
}

void GridModel::ClearSelection()
{
    unmarkAll();
    m_anchorRow = m_anchorCol = m_selectedRow = m_selectedCol = 0;
    changed(Change::Selection, 0, 0);
}

void GridModel::selectAll()
{
    if (!m_multiSelect || Rows() == 0)
        return;
    mark(1, Rows(), 1, Columns(), true);
    changed(Change::Selection, 0, 0);
}

void GridModel::select(int row, int column, GridSelect how)
{
    (void)m_cells.place(row, column);
    if (!m_multiSelect && how != GridSelect::MoveOnly)
        how = GridSelect::Only;
    const bool extends = how == GridSelect::Extend || how == GridSelect::AddExtend;
    if (extends && m_anchorRow == 0) {
        m_anchorRow = m_selectedRow > 0 ? m_selectedRow : row;
        m_anchorCol = m_selectedCol > 0 ? m_selectedCol : column;
    }
    if (how == GridSelect::Only || how == GridSelect::Extend)
        unmarkAll();
    if (extends) {
        mark(std::min(row, m_anchorRow), std::max(row, m_anchorRow), std::min(column, m_anchorCol),
             std::max(column, m_anchorCol), true);
    } else if (how != GridSelect::MoveOnly) {
        const bool isSelected = CellSelected(row, column);
        mark(row, row, column, column, how == GridSelect::Only || !isSelected);
        m_anchorRow = row;
        m_anchorCol = column;
    }
    m_selectedRow = row;
    m_selectedCol = column;
    changed(Change::Selection, 0, 0);
}

void GridModel::setCellSelected(int row, int column, bool selected)
{
    (void)m_cells.place(row, column);
    if (!m_multiSelect && selected)
        unmarkAll();
    mark(row, row, column, column, selected);
    changed(Change::Selection, 0, 0);
}

bool GridModel::isRowSelected(int row) const
{
    for (int column = 1; column <= Columns(); ++column) {
        if (CellSelected(row, column))
            return true;
    }
    return false;
}

} // namespace norvane
