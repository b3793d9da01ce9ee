#pragma once

#include "controls/grid/GridCells.h"

#include <QVector>

namespace norvane {

/// Sorts the rows of a grid by up to eight columns. The order of rows that compare equal is part of the
/// behaviour: it is that of a Shell sort with the gaps 1, 4, 13, 40, ..., and two equal rows alone
/// change places.
class cShellSortTGridCells
{
public:
    static constexpr int kMostKeys = 8;
    static constexpr int kErrorInvalidIndex = static_cast<int>(0x80040419);

    /// The highest key in use. A number above the keys that were written adds keys that compare nothing.
    int LastSortIndex() const { return m_lastSortIndex; }
    void setLastSortIndex(int last);
    void Clear();

    // Index is 1 to 8; other numbers raise 0x80040419. Writing a key beyond LastSortIndex raises that.
    // A key that was never written reads 0.

    qint16 SortColumn(int index) const { return key(index).column; }
    void setSortColumn(int index, qint16 column) { written(index).column = column; }
    /// A GridSortOrder; any other number than 1 sorts down.
    qint32 SortOrder(int index) const { return key(index).order; }
    void setSortOrder(int index, qint32 order) { written(index).order = order; }
    /// A GridSortType; a key of any other number compares nothing: no two cells are equal or in order.
    qint32 SortType(int index) const { return key(index).type; }
    void setSortType(int index, qint32 type) { written(index).type = type; }

    /// Sorts all rows, cells and row records together.
    /// Raises 13 for a text that is no number in a key of type 100, and 9 for a column that is not there
    /// in a key that compares; nothing has been moved then.
    /// @param from the rows, counted from 0, in the order that they are sorted out of, each once; empty
    ///             for the order in which they stand
    void SortItems(GridCells &cells, QVector<GridRow> &rows, std::vector<qint32> from = {}) const;

private:
    struct Key
    {
        qint16 column = 0;
        qint32 order = 0;
        qint32 type = 0;
    };

    Key key(int index) const;
    Key &written(int index);

    int m_lastSortIndex = 0;
    QVector<Key> m_keys;
};

} // namespace norvane
