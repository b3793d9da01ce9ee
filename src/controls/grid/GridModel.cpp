#include "controls/grid/GridModel.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <algorithm>

namespace norvane {

namespace {

const QString kSelectedRowMark = QStringLiteral("!SELECTEDROW!");

[[noreturn]] void raiseOutside()
{
    throw RuntimeError(kErrorSubscript, QStringLiteral("There is no such row or column."));
}

} // namespace

const GridRow &GridModel::rowRecord(int row) const
{
    if (row < 1 || row > m_rows.size())
        raiseOutside();
    return m_rows.at(row - 1);
}

GridRow &GridModel::rowRecord(int row)
{
    if (row < 1 || row > m_rows.size())
        raiseOutside();
    return m_rows[row - 1];
}

void GridModel::setRows(int rows)
{
    rows = std::max(0, rows);
    if (rows == Rows())
        return;
    m_cells.setRows(rows);
    const auto before = static_cast<int>(m_rows.size());
    m_rows.resize(rows);
    for (int row = before; row < rows; ++row)
        m_rows[row].height = m_defaultRowHeight;
    movePositions(std::min(before, rows) + 1);
    if (m_selectedRow > rows)
        m_selectedRow = 0;
    m_anchorRow = std::min(m_anchorRow, rows);
    changed(Change::Rows, 0, 0);
}

void GridModel::AddRow(int row, const QString &key, bool visible, int height, bool isGroup,
                       int groupStartColumn)
{
    GridRow added{height < 0 ? m_defaultRowHeight : height, 0, visible, isGroup, groupStartColumn, key};
    if (row > 0 && Rows() > 0) {
        added.startPosition = rowTop(row);
        m_cells.insertRow(row);
        m_rows.insert(row - 1, added);
        movePositions(row);
        if (m_selectedRow >= row)
            ++m_selectedRow;
        if (m_anchorRow >= row)
            ++m_anchorRow;
    } else {
        m_cells.setRows(Rows() + 1);
        m_rows.append(added);
        movePositions(Rows());
    }
    changed(Change::Rows, 0, 0);
}

void GridModel::RemoveRow(int row)
{
    m_cells.removeRow(row);
    m_rows.removeAt(row - 1);
    movePositions(row);
    if (m_anchorRow >= row)
        m_anchorRow = std::max(0, m_anchorRow - 1);
    if (m_selectedRow == row)
        m_selectedRow = 0;
    else if (m_selectedRow > row)
        --m_selectedRow;
    changed(Change::Rows, 0, 0);
}

void GridModel::Clear(bool removeColumns)
{
    m_cells.clear();
    m_rows.clear();
    movePositions(1);
    m_anchorRow = m_anchorCol = 0;
    if (removeColumns) {
        m_cells = {};
        m_columns.clear();
        changed(Change::Columns, 0, 0);
    }
    m_selectedRow = m_selectedCol = 0;
    changed(Change::Rows, 0, 0);
}

void GridModel::setRowVisible(int row, bool visible)
{
    GridRow &of = rowRecord(row);
    if (of.visible == visible)
        return;
    of.visible = visible;
    movePositions(row + 1);
    changed(Change::Rows, 0, 0);
}

void GridModel::setRowHeight(int row, int height)
{
    GridRow &of = rowRecord(row);
    height = height < 0 ? m_defaultRowHeight : height;
    if (of.height == height)
        return;
    of.height = height;
    movePositions(row + 1);
    changed(Change::Rows, 0, 0);
}

void GridModel::setRowIsGroup(int row, bool isGroup)
{
    rowRecord(row).isGroup = isGroup;
    changed(Change::Rows, 0, 0);
}

void GridModel::setRowGroupStartColumn(int row, int column)
{
    rowRecord(row).groupStartColumn = column;
    changed(Change::Rows, 0, 0);
}

void GridModel::setDefaultRowHeight(int height)
{
    m_defaultRowHeight = std::max(1, height);
}

// Start positions are summed up when somebody asks for them, so that many changes cost one pass.
void GridModel::movePositions(int fromRow)
{
    m_firstUnplaced = std::min(m_firstUnplaced, fromRow);
}

void GridModel::updatePositions() const
{
    if (m_firstUnplaced > m_rows.size())
        return;
    GridRow *const rows = m_rows.data();
    for (qsizetype i = m_firstUnplaced - 1; i < m_rows.size(); ++i) {
        if (i == 0)
            rows[i].startPosition = 0;
        else
            rows[i].startPosition =
                rows[i - 1].startPosition + (rows[i - 1].visible ? rows[i - 1].height : 0);
    }
    m_firstUnplaced = static_cast<int>(m_rows.size()) + 1;
}

int GridModel::rowTop(int row) const
{
    (void)rowRecord(row);
    updatePositions();
    return m_rows.at(row - 1).startPosition;
}

int GridModel::rowsHeight() const
{
    if (m_rows.isEmpty())
        return 0;
    updatePositions();
    const GridRow &last = m_rows.constLast();
    return last.startPosition + (last.visible ? last.height : 0);
}

int GridModel::rowAt(int y) const
{
    updatePositions();
    // Hidden rows begin where the next visible one does, so that the last row that begins above is it.
    const auto next = std::upper_bound(m_rows.cbegin(), m_rows.cend(), y,
                                       [](int at, const GridRow &row) { return at < row.startPosition; });
    if (y < 0 || next == m_rows.cbegin())
        return 0;
    const GridRow &row = *(next - 1);
    if (!row.visible || y >= row.startPosition + row.height)
        return 0;
    return static_cast<int>(next - m_rows.cbegin());
}

int GridModel::visibleRow(int from, int step) const
{
    for (int row = from; row >= 1 && row <= m_rows.size(); row += step) {
        if (m_rows.at(row - 1).visible)
            return row;
    }
    return 0;
}

void GridModel::Sort(const std::vector<qint32> &from)
{
    if (Rows() == 0 || Columns() == 0)
        return;
    QString savedKey;
    if (m_selectedRow > 0)
        savedKey = std::exchange(rowRecord(m_selectedRow).key, kSelectedRowMark);
    const auto putKeyBack = [this, &savedKey] {
        if (m_selectedRow < 1)
            return;
        const auto marked = std::find_if(m_rows.begin(), m_rows.end(),
                                         [](const GridRow &row) { return row.key == kSelectedRowMark; });
        marked->key = savedKey;
        m_selectedRow = static_cast<int>(marked - m_rows.begin()) + 1;
    };
    try {
        m_sort.SortItems(m_cells, m_rows, from);
    } catch (const RuntimeError &) {
        putKeyBack();
        throw;
    }
    putKeyBack();
    m_anchorRow = m_selectedRow;
    movePositions(1);
    changed(Change::Rows, 0, 0);
}

int GridModel::FindSearchMatchRow(const QString &search, bool wrap, bool includeHidden) const
{
    if (m_keySearchColumn < 1 || m_keySearchColumn >= Columns())
        return 0;
    const auto find = [&](int first, int last) {
        for (int row = first; row <= last; ++row) {
            if (!includeHidden && !m_rows.at(row - 1).visible)
                continue;
            const CellValue value = m_cells.value(row, m_keySearchColumn);
            if (value.kind == CellKind::Unset)
                continue;
            const QString text = valueText(value);
            if (text.size() >= search.size() && text.left(search.size()).toUpper().startsWith(search))
                return row;
        }
        return 0;
    };
    const int start = m_selectedRow + 1;
    const int found = find(start, Rows());
    return found == 0 && wrap ? find(1, std::min(start, Rows())) : found;
}

} // namespace norvane
