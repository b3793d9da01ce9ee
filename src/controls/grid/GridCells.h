#pragma once

#include "controls/grid/LazyArray.h"
#include "controls/grid/cell_values.h"
#include "controls/grid/grid_types.h"

#include <QHash>

namespace norvane {

/// The cells of one column, field by field, so that what no cell of it uses takes no memory.
struct GridCellColumn
{
    LazyArray<qint32> backColor{kDefaultGridColor};
    LazyArray<qint32> foreColor{kDefaultGridColor};
    LazyArray<qint32> font{0};
    LazyArray<CellKind> kind{CellKind::Unset};
    LazyArray<double> number{0};
    LazyArray<QString> text;
    LazyArray<qint16> align{kAlignLeft};
    LazyArray<qint32> icon{kNoGridIcon};
    LazyArray<quint8> selected{0};
    LazyArray<qint32> indent{0};
    LazyArray<qint32> extraIcon{kNoGridIcon};
    LazyArray<QVariant> itemData;
};

/// The cells of a grid. Rows and columns count from 1; a place outside raises 9.
class GridCells
{
public:
    int rows() const { return m_rows; }
    int columns() const { return static_cast<int>(m_columns.size()); }

    void setRows(int rows);
    void addColumn();
    void removeColumn(int column);
    void insertRow(int before);
    void removeRow(int row);
    /// No rows any more; the columns stay.
    void clear() { setRows(0); }
    /// Row i becomes what row order[i - 1] + 1 was.
    void permute(const std::vector<qint32> &order);

    CellValue value(int row, int column) const;
    void setValue(int row, int column, const QVariant &value);

    /// For the fields: of a column, with rows from 0.
    GridCellColumn &column(int column);
    const GridCellColumn &column(int column) const;
    /// The place of a row in these; checks both numbers.
    std::size_t place(int row, int column) const;

private:
    int m_rows = 0;
    std::vector<GridCellColumn> m_columns;
};

} // namespace norvane
