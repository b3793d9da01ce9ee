#include "controls/grid/GridModel.h"
#include "error_of.h"

#include <gtest/gtest.h>

namespace norvane {
namespace {

class Model : public GridModel
{
public:
    using GridModel::Change;
    int cellChanges = 0;

protected:
    void changed(Change change, int, int) override { cellChanges += change == Change::Cell ? 1 : 0; }
};

class Grid : public testing::Test
{
protected:
    Grid()
    {
        grid.setDefaultRowHeight(20);
        for (const auto &key : {u"a"_qs, u"b"_qs, u"c"_qs})
            grid.AddColumn(key, key.toUpper());
        grid.setMultiSelect(true);
        grid.setRowMode(true);
    }
    void addRows(const QStringList &texts)
    {
        for (const QString &text : texts) {
            grid.AddRow(-1, text);
            grid.setCellText(grid.Rows(), 1, text);
        }
    }
    QStringList keys() const
    {
        QStringList keys;
        for (int row = 1; row <= grid.Rows(); ++row)
            keys.append(grid.RowKey(row));
        return keys;
    }
    QString selected() const
    {
        QString rows;
        for (int row = 1; row <= grid.Rows(); ++row)
            rows += grid.CellSelected(row, 2) ? grid.RowKey(row) : u"-"_qs;
        return rows;
    }

    Model grid;
};

TEST_F(Grid, PutsRowsInWithTheirPlaces)
{
    addRows({u"a"_qs, u"b"_qs, u"c"_qs});
    grid.AddRow(2, u"new"_qs, true, 35);
    EXPECT_EQ(keys(), (QStringList{u"a"_qs, u"new"_qs, u"b"_qs, u"c"_qs}));
    EXPECT_EQ(grid.rowTop(2), 20);
    EXPECT_EQ(grid.rowTop(3), 55);
    EXPECT_EQ(grid.CellText(2, 1), QVariant());
    EXPECT_EQ(grid.CellText(3, 1), QVariant(u"b"_qs));

    grid.AddRow(1, u"hidden"_qs, false);
    EXPECT_EQ(grid.RowHeight(1), 20);
    EXPECT_EQ(grid.rowTop(2), 0);
    EXPECT_EQ(grid.rowsHeight(), 95);
    EXPECT_EQ(grid.rowAt(0), 2);
    EXPECT_EQ(grid.rowAt(20), 3);
    EXPECT_EQ(grid.rowAt(95), 0);
    EXPECT_EQ(grid.rowAt(-1), 0);
    grid.setRowVisible(3, false);
    EXPECT_EQ(grid.rowAt(20), 4);
    grid.setRowVisible(5, false);
    EXPECT_EQ(grid.rowAt(40), 0) << "hidden rows at the end take no place";

    grid.AddRow(0, u"last"_qs);
    EXPECT_EQ(keys().last(), u"last"_qs);
    EXPECT_EQ(errorOf([this] { grid.AddRow(9, u"x"_qs); }), 9);
    EXPECT_EQ(grid.Rows(), 6);
    grid.Clear();
    grid.AddRow(4, u"first"_qs);
    EXPECT_EQ(keys(), QStringList{u"first"_qs}) << "without rows any number is the end";
}

TEST_F(Grid, KeepsTheSelectedRowWhereRowsComeAndGo)
{
    addRows({u"a"_qs, u"b"_qs, u"c"_qs});
    grid.setSelectedRow(2);
    grid.AddRow(1, u"n"_qs);
    EXPECT_EQ(grid.SelectedRow(), 3);
    grid.RemoveRow(1);
    EXPECT_EQ(grid.SelectedRow(), 2);
    EXPECT_EQ(selected(), u"-b-"_qs);
    grid.RemoveRow(2);
    EXPECT_EQ(grid.SelectedRow(), 0);
    EXPECT_EQ(selected(), u"--"_qs);
    grid.setSelectedRow(2);
    grid.setRows(1);
    EXPECT_EQ(grid.SelectedRow(), 0);
}

TEST_F(Grid, WritesAWholeCellBeyondItsRows)
{
    CellContent content;
    content.text = 4.5;
    content.icon = 3;
    content.backColor = 0xFFFFFF;
    content.itemData = u".HTM"_qs;
    grid.setCellContent(4, 2, content);
    EXPECT_EQ(grid.Rows(), 4);
    EXPECT_EQ(grid.CellText(4, 2), QVariant(4.5));
    EXPECT_EQ(grid.cellContent(4, 2).itemData, QVariant(u".HTM"_qs));
    EXPECT_EQ(grid.cellChanges, 1);
    EXPECT_EQ(errorOf([&] { grid.setCellContent(9, 4, content); }), 9);
    EXPECT_EQ(grid.Rows(), 4);
    EXPECT_EQ(errorOf([this] { (void)grid.CellText(5, 1); }), 9);
    EXPECT_EQ(errorOf([this] { (void)grid.CellText(0, 1); }), 9);
}

TEST_F(Grid, KeepsValuesAndShowsThemByTheirFormat)
{
    const QDateTime date(QDate(2004, 2, 29), QTime(14, 5, 33));
    grid.AddRow();
    for (const QVariant &value :
         {QVariant(), QVariant(7), QVariant(-3.25), QVariant(true), QVariant(date), QVariant(u"a\nb"_qs),
          QVariant(QDateTime(QDate(1850, 1, 1), QTime(23, 59)))}) {
        grid.setCellText(1, 1, value);
        EXPECT_EQ(grid.CellText(1, 1), value);
    }
    const auto shown = [this](const QVariant &value, const QString &format) {
        grid.setCellText(1, 1, value);
        grid.setColumnFormatString(1, format);
        return grid.CellFormattedText(1, 1);
    };
    const QLocale locale;
    EXPECT_EQ(shown(date, u"Short Date"_qs), locale.toString(date.date(), QLocale::ShortFormat));
    EXPECT_EQ(shown(date, u"short time"_qs), locale.toString(date.time(), QLocale::ShortFormat));
    EXPECT_EQ(shown(1234.5, u"#,##0.00"_qs), locale.toString(1234.5, 'f', 2));
    EXPECT_EQ(shown(1234.5, {}), u"1234.5"_qs);
    EXPECT_EQ(shown(u"text"_qs, u"0.00"_qs), u"text"_qs);
    EXPECT_EQ(shown({}, u"0"_qs), QString());
}

TEST_F(Grid, SelectsCellsOutsideRowMode)
{
    addRows({u"a"_qs, u"b"_qs, u"c"_qs});
    grid.setRowMode(false);
    grid.select(1, 1, GridSelect::Only);
    grid.select(2, 2, GridSelect::Extend);
    EXPECT_TRUE(grid.CellSelected(2, 1) && grid.CellSelected(1, 2) && grid.CellSelected(2, 2));
    EXPECT_FALSE(grid.CellSelected(1, 3) || grid.CellSelected(3, 1));
    EXPECT_TRUE(grid.isRowSelected(2));
    EXPECT_FALSE(grid.isRowSelected(3));
}

TEST_F(Grid, SelectedRowFollowsASort)
{
    addRows({u"c"_qs, u"a"_qs, u"b"_qs});
    grid.setSelectedRow(1);
    grid.setRowHeight(1, 50);
    grid.SortObject().setSortColumn(1, 1);
    grid.SortObject().setSortOrder(1, kSortAscending);
    grid.SortObject().setSortType(1, kSortText);
    grid.Sort();
    EXPECT_EQ(keys(), (QStringList{u"a"_qs, u"b"_qs, u"c"_qs}));
    EXPECT_EQ(grid.SelectedRow(), 3);
    EXPECT_EQ(selected(), u"--c"_qs);
    EXPECT_EQ(grid.rowTop(3), 40);
    EXPECT_EQ(grid.rowsHeight(), 90);

    grid.SortObject().setSortType(1, kSortNumeric);
    EXPECT_EQ(errorOf([this] { grid.Sort(); }), 13);
    EXPECT_EQ(keys(), (QStringList{u"a"_qs, u"b"_qs, u"c"_qs})) << "no mark is left behind";
    EXPECT_EQ(grid.SelectedRow(), 3);
    grid.Clear();
    grid.Sort();
}

TEST_F(Grid, MovesAndRemovesColumns)
{
    addRows({u"a"_qs});
    grid.setCellText(1, 3, u"third"_qs);
    EXPECT_EQ(grid.ColumnIndex(u"C"_qs), 3);
    EXPECT_EQ(grid.ColumnIndex(u"x"_qs), 0);
    grid.setColumnOrder(3, 1);
    EXPECT_EQ(grid.visibleColumns(), (QVector<int>{3, 1, 2}));
    grid.setColumnOrder(3, 2);
    EXPECT_EQ(grid.visibleColumns(), (QVector<int>{1, 3, 2}));
    grid.setColumnVisible(1, false);
    EXPECT_EQ(grid.visibleColumns(), (QVector<int>{3, 2}));
    grid.setSelectedRow(1);
    grid.setSelectedCol(3);
    grid.RemoveColumn(1);
    EXPECT_EQ(grid.visibleColumns(), (QVector<int>{2, 1}));
    EXPECT_EQ(grid.CellText(1, 2), QVariant(u"third"_qs));
    EXPECT_EQ(grid.SelectedCol(), 2);
    EXPECT_EQ(errorOf([this] { grid.setColumnWidth(3, 10); }), 9);
}

} // namespace
} // namespace norvane
