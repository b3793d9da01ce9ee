#include "controls/grid/cShellSortTGridCells.h"
#include "error_of.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <numeric>

namespace norvane {
namespace {

/// A table with a row key of its number in each row, sorted in two ways: by the class, and by its rules
/// done step by step, with the simplest means, on values that are put down here.
class GridSort : public testing::Test
{
protected:
    struct Literal
    {
        bool equal;
        bool inOrder;
    };
    using Compare = std::function<Literal(int key, int row, int other)>;

    void fill(const QVector<QVector<QVariant>> &columns)
    {
        cells = {};
        rows.clear();
        for (int c = 0; c < columns.size(); ++c)
            cells.addColumn();
        cells.setRows(static_cast<int>(columns.first().size()));
        for (int row = 1; row <= cells.rows(); ++row) {
            GridRow record;
            record.key = QString::number(row);
            rows.append(record);
            for (int c = 1; c <= columns.size(); ++c)
                cells.setValue(row, c, columns[c - 1][row - 1]);
        }
    }
    void setKey(int index, int column, int order, int type)
    {
        sort.setSortColumn(index, static_cast<qint16>(column));
        sort.setSortOrder(index, order);
        sort.setSortType(index, type);
    }
    /// The row keys after a sort.
    QStringList sorted()
    {
        sort.SortItems(cells, rows);
        QStringList keys;
        for (const GridRow &row : rows)
            keys.append(row.key);
        return keys;
    }
    static Literal byDifference(double difference, int order)
    {
        return {difference == 0, order == 1 ? !(difference < 0) : !(difference > 0)};
    }

    /// The rules, on row numbers from 1, place 0 being the spare.
    static QStringList stepByStep(int count, int lastKey, const Compare &compare)
    {
        QVector<int> table(count + 1);
        std::iota(table.begin(), table.end(), 0);
        const auto spareStaysBehind = [&](int j) {
            Literal result{false, false};
            for (int k = 1; k <= lastKey; ++k) {
                result = compare(k, table[0], table[j]);
                if (!result.equal || k == lastKey)
                    break;
            }
            return result.inOrder;
        };
        if (count == 2) {
            table[0] = table[1];
            if (spareStaysBehind(2))
                std::swap(table[1], table[2]);
        } else if (count > 2) {
            int gap = 1;
            for (int h = 1; h < count; h = 3 * h + 1)
                gap = h;
            while (gap >= 1) {
                for (int i = gap + 1; i <= count; ++i) {
                    table[0] = table[i];
                    int j = i - gap;
                    while (j >= 1) {
                        if (spareStaysBehind(j))
                            break;
                        table[j + gap] = table[j];
                        j -= gap;
                    }
                    table[j + gap] = table[0];
                }
                gap = (gap - 1) / 3;
            }
        }
        QStringList keys;
        for (int i = 1; i <= count; ++i)
            keys.append(QString::number(table[i]));
        return keys;
    }

    GridCells cells;
    QVector<GridRow> rows;
    cShellSortTGridCells sort;
    QRandomGenerator random{20261};
};

const QVector<int> kCounts{1, 2, 3, 13, 14, 41, 1000};

QDateTime day(int year, int month, int date, int hour = 0, int minute = 0, int second = 0)
{
    return QDateTime(QDate(year, month, date), QTime(hour, minute, second));
}

TEST_F(GridSort, OrdersEqualNumbersAsItsSteps)
{
    for (const int count : kCounts) {
        for (const int order : {1, 2, 0}) {
            for (const int kinds : {1, 3, 5000}) {
                QVector<QVariant> numbers;
                for (int i = 0; i < count; ++i)
                    numbers.append(static_cast<int>(random.bounded(kinds)) - kinds / 2);
                fill({numbers});
                sort.Clear();
                setKey(1, 1, order, kSortNumeric);
                const QStringList expected = stepByStep(count, 1, [&](int, int a, int b) {
                    return byDifference(numbers[a - 1].toDouble() - numbers[b - 1].toDouble(), order);
                });
                ASSERT_EQ(sorted(), expected) << count << " rows, order " << order << ", of " << kinds;
            }
        }
    }
}

TEST_F(GridSort, GoesOnToTheNextKeyWhereCellsAreEqual)
{
    // The last key decides where all are equal; one that compares nothing turns them round.
    for (const int lastType : QVector<int>{kSortNumeric, kSortDateDay, 0, 99}) {
        for (const int count : kCounts) {
            QVector<QVariant> texts;
            QVector<QVariant> numbers;
            for (int i = 0; i < count; ++i) {
                texts.append(QString(QChar(u'a' + random.bounded(4))).repeated(1 + random.bounded(3)));
                numbers.append(static_cast<int>(random.bounded(6)));
            }
            fill({texts, numbers});
            sort.Clear();
            setKey(1, 1, 2, kSortText);
            setKey(2, 2, 1, lastType);
            const QStringList expected = stepByStep(count, 2, [&](int key, int a, int b) -> Literal {
                if (key == 1)
                    return byDifference(texts[a - 1].toString().compare(texts[b - 1].toString()), 2);
                if (lastType == kSortNumeric)
                    return byDifference(numbers[a - 1].toDouble() - numbers[b - 1].toDouble(), 1);
                return {lastType == kSortDateDay, false}; // no cell of it is a date
            });
            ASSERT_EQ(sorted(), expected) << count << " rows, type " << lastType;
        }
    }
}

TEST_F(GridSort, ComparesEachTypeByItsRule)
{
    const QVariant none;
    const auto text = [](const char16_t *of) { return QVariant(QString::fromUtf16(of)); };
    struct Case
    {
        int type;
        QVector<QVariant> values; ///< in ascending order
    };
    const QVector<Case> cases{
        {kSortNumeric, {-2.5, none, 1, text(u" 9 "), text(u"10.5"), 1e9}},
        {kSortNumeric, {true, false, day(1899, 12, 31), 2}},
        {kSortText, {none, text(u"10"), 9, text(u"ABC"), text(u"abc"), text(u"abcd"), text(u"\u00e9")}},
        {kSortTextNoCase,
         {none, text(u"ABC"), text(u"abcd"), text(u"B"), text(u"\u00c9a"), text(u"\u00e9b")}},
        {kSortDate, {-1, none, 5, day(1900, 1, 5), day(2004, 1, 1), day(2004, 1, 1, 0, 0, 1)}},
        {kSortDate, {7, day(2004, 1, 1), text(u""), text(u"1"), text(u"a")}},
        {kSortDateMonth, {none, day(2003, 12, 31), day(2004, 1, 31), day(2004, 2, 1)}},
        {kSortDateDay,
         {3, day(1850, 5, 5, 12, 0), day(1850, 5, 6), day(2004, 2, 29, 23, 0), day(2004, 3, 1)}},
        {kSortDateHour, {none, day(2004, 1, 1, 9, 59), day(2004, 1, 1, 10, 0)}},
        {kSortDateMinute, {none, day(2004, 1, 1, 9, 59, 59), day(2004, 1, 1, 10, 0)}},
    };
    for (const Case &of : cases) {
        const auto count = static_cast<int>(of.values.size());
        QStringList upward;
        for (int i = 1; i <= count; ++i)
            upward.append(QString::number(i));
        for (int turn = 0; turn < count; ++turn) {
            QVector<QVariant> turned = of.values;
            std::rotate(turned.begin(), turned.begin() + turn, turned.end());
            for (const int order : {1, 2}) {
                fill({turned});
                sort.Clear();
                setKey(1, 1, order, of.type);
                QStringList keys;
                for (const QString &key : sorted())
                    keys.append(QString::number((key.toInt() - 1 + turn) % count + 1));
                if (order == 2)
                    std::reverse(keys.begin(), keys.end());
                EXPECT_EQ(keys, upward) << "type " << of.type << ", order " << order << ", turned " << turn;
            }
        }
    }
}

TEST_F(GridSort, ReadsTheFieldOfItsType)
{
    const QVector<std::pair<int, LazyArray<qint32> GridCellColumn::*>> fields{
        {kSortIcon, &GridCellColumn::icon},           {kSortExtraIcon, &GridCellColumn::extraIcon},
        {kSortForeColor, &GridCellColumn::foreColor}, {kSortBackColor, &GridCellColumn::backColor},
        {kSortFont, &GridCellColumn::font},           {kSortIndent, &GridCellColumn::indent},
    };
    for (const auto &[type, field] : fields) {
        fill({{1, 1, 1}});
        const QVector<qint32> values{7, -5, 0xFFFFFF};
        for (std::size_t row = 0; row < 3; ++row)
            (cells.column(1).*field).set(row, values[static_cast<int>(row)]);
        sort.Clear();
        setKey(1, 1, 1, type);
        EXPECT_EQ(sorted(), (QStringList{u"2"_qs, u"1"_qs, u"3"_qs})) << type;
        EXPECT_EQ((cells.column(1).*field).at(0), -5) << "cells move with their row, type " << type;
    }
    fill({{1, 1, 1}});
    cells.column(1).selected.set(0, 1);
    setKey(1, 1, 1, kSortSelected);
    EXPECT_EQ(sorted().last(), u"1"_qs);
}

TEST_F(GridSort, RaisesWhatCannotBeCompared)
{
    fill({{3, u"two"_qs, 1}, {1, 1, u"x"_qs}});
    setKey(1, 1, 1, kSortNumeric);
    EXPECT_EQ(errorOf([this] { sort.SortItems(cells, rows); }), 13);
    EXPECT_EQ(rows[0].key, u"1"_qs) << "nothing has moved";
    EXPECT_EQ(variantOf(cells.value(3, 1)), QVariant(1));
    // A text that no comparison comes to harms nobody.
    fill({{3, 2, 1}, {u"x"_qs, 1, 1}});
    setKey(2, 2, 1, kSortNumeric);
    EXPECT_EQ(sorted(), (QStringList{u"3"_qs, u"2"_qs, u"1"_qs}));
    fill({{1, 1, 1}, {u"x"_qs, 1, 1}});
    EXPECT_EQ(errorOf([this] { sort.SortItems(cells, rows); }), 13);
    fill({{u"x"_qs}});
    setKey(1, 1, 1, kSortNumeric);
    EXPECT_EQ(errorOf([this] { sort.SortItems(cells, rows); }), 0) << "one row is not compared";
    fill({{1, 2}});
    setKey(1, 5, 1, kSortText);
    EXPECT_EQ(errorOf([this] { sort.SortItems(cells, rows); }), 9);
}

TEST_F(GridSort, HasEightKeys)
{
    for (const int index : {0, 9, -1}) {
        try {
            sort.setSortColumn(index, 1);
            FAIL() << "no error for " << index;
        } catch (const RuntimeError &error) {
            EXPECT_EQ(static_cast<quint32>(error.number()), 0x80040419U);
            EXPECT_EQ(error.source(), u"Norvane.cShellSort"_qs);
            EXPECT_EQ(error.description(), u"Invalid sort array index."_qs);
        }
    }
    EXPECT_EQ(sort.LastSortIndex(), 0);
    sort.setSortType(3, kSortIcon);
    EXPECT_EQ(sort.LastSortIndex(), 3);
    sort.setLastSortIndex(1);
    EXPECT_EQ(sort.SortType(3), kSortIcon) << "fewer keys in use, but kept";
    sort.Clear();
    EXPECT_EQ(sort.LastSortIndex(), 0);
    EXPECT_EQ(sort.SortType(3), 0);
}

} // namespace
} // namespace norvane
