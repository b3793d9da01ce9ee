#pragma once

#include "controls/grid/GridCells.h"

#include <vector>

namespace norvane {

/// What a comparison of two cells tells.
struct CellOrder
{
    bool equal = false;
    bool inOrder = false; ///< the first may stay behind the second
};

/// The cells of a column as a sort key needs them, read once before the sort.
class SortKeyValues
{
public:
    /// A key of an unknown type reads no cell. Raises 9 for a column that is not there otherwise.
    SortKeyValues(const GridCells &cells, int column, qint32 order, qint32 type);

    /// Rows count from 0. Raises 13 where a text of a numeric key is no number.
    CellOrder compare(qint32 one, qint32 other) const;

    bool comparesNothing() const { return m_rule == Rule::Nothing; }
    /// Whether the comparisons of any rows fit together into one order, and none raises. Then place()
    /// tells all: rows are equal that have the same place, and in order when theirs is above.
    bool isOneOrder() const { return m_isOneOrder; }
    qint64 place(qint32 row) const;
    /// What compare() says of equal rows.
    bool equalIsInOrder() const { return m_rule != Rule::CutDate; }

private:
    enum class Rule { Nothing, Number, Whole, AsTheyStand, CutDate };
    enum class Class : quint8 { Unset, Number, Text, Date, NoNumber };

    void readNumbers(const GridCells &cells, int column);
    void readTexts(const GridCells &cells, int column, bool foldsCase);
    void readWholes(const GridCells &cells, int column, qint32 type);
    void readValues(const GridCells &cells, int column);
    void readCutDates(const GridCells &cells, int column, qint32 type);
    int compareAsTheyStand(std::size_t one, std::size_t other) const;
    CellOrder compareCut(std::size_t one, std::size_t other) const;
    qint64 upward(std::size_t row) const;

    Rule m_rule = Rule::Nothing;
    qint32 m_order = 0;
    bool m_isOneOrder = false;
    std::vector<qint64> m_places; ///< numbers and dates too: see orderedBits()
    std::vector<Class> m_classes; ///< AsTheyStand, CutDate; Number when a cell is no number
    std::vector<qint64> m_cuts;   ///< CutDate
};

/// The rank of each text in binary order: 0 for the empty text, equal for equal texts.
std::vector<qint64> textRanks(const std::vector<QString> &texts);

} // namespace norvane
