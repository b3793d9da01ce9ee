#pragma once

#include "richtext/rtf/formats.h"

#include <QList>
#include <QTextTable>
#include <vector>

namespace norvane {

/// The formats of a text document's tables for those of the operations, and back.
///
/// Each row of a document's table has columns of its own. A text table has one grid: the edges of
/// all rows, in which a cell may reach over several columns.

/// How rows lie in a grid.
struct TableGrid
{
    /// Where a cell lies in its row.
    struct Place
    {
        int column = 0;
        int span = 1;
    };

    QList<int> edges;                     ///< twips: where the columns begin, and where the last one ends
    std::vector<std::vector<Place>> rows; ///< the cells of each row

    int columns() const { return int(edges.size()) - 1; }
};

/// The grid of rows that follow each other.
TableGrid gridOf(const std::vector<const rtf::RowFormat *> &rows);

/// @param first format of the first row: tables have some traits that files give to rows
QTextTableFormat tableFormat(const TableGrid &grid, const rtf::RowFormat &first, int headerRows);
QTextTableCellFormat cellFormat(const rtf::CellFormat &cell, const rtf::RowFormat &row);

/// The row of a text table, between two of its columns; cells that reach in from the row above are
/// continued.
rtf::RowFormat rowFormat(const QTextTable &table, int row, int firstColumn, int lastColumn);
/// Whether the cell is one that fills a row which is shorter than others.
bool isFiller(const QTextTableCell &cell);

} // namespace norvane
