#include "ui/controls/GridOnScreen.h"

#include <QAccessible>

namespace norvane {
namespace {

class GridView : public GridOnScreen
{
protected:
    QImage shot() { return grid.viewport()->grab().toImage(); }
    static int pixels(const QImage &image, const QRect &area, const QColor &color)
    {
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x)
                count += image.valid(x, y) && image.pixelColor(x, y) == color ? 1 : 0;
        }
        return count;
    }
};

TEST_F(GridView, DrawsIconsWhereTheyBelong)
{
    addRows(3);
    grid.CellDetails(1, 1, {}, kAlignCenter, 0, 0xFFFFFF);
    grid.CellDetails(2, 2, u"x"_qs, kAlignLeft, 1, -1, 0x800000);
    grid.CellDetails(3, 4, u"file"_qs, kAlignLeft, kNoGridIcon, -1, -1, {}, 0, kShellIcon, u".HTM"_qs);
    QStringList asked;
    grid.setShellIcons([&asked](const QString &path) {
        asked.append(path);
        return square(Qt::blue);
    });
    show();
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        grid.setLayoutDirection(direction);
        const QImage image = shot();
        const QRect title = grid.CellBoundary(2, 2);
        EXPECT_GT(pixels(image, grid.CellBoundary(1, 1), Qt::red), 150) << "centred, some of it cut off";
        EXPECT_EQ(pixels(image, title, Qt::green), 16 * 16);
        const QRect leading(direction == Qt::LeftToRight ? title.left() : title.right() - 24, title.top(), 25,
                            title.height());
        EXPECT_EQ(pixels(image, leading, Qt::green), 16 * 16);
        EXPECT_EQ(pixels(image, grid.CellBoundary(3, 4), Qt::blue), 16 * 16);
    }
    EXPECT_EQ(asked.first(), u".HTM"_qs);
}

TEST_F(GridView, DrawsOnlyWhatIsSeen)
{
    addRows(10'000);
    for (int row = 1; row <= grid.Rows(); ++row)
        grid.CellDetails(row, 4, {}, kAlignLeft, kNoGridIcon, -1, -1, {}, 0, kShellIcon, row);
    QVector<int> drawn;
    grid.setShellIcons([&drawn](const QString &row) {
        drawn.append(row.toInt());
        return QIcon();
    });
    show();
    grid.setVScrollValue(5000 * 20);
    drawn.clear();
    (void)shot();
    ASSERT_FALSE(drawn.isEmpty());
    EXPECT_EQ(drawn.first(), 5001);
    EXPECT_LE(drawn.size(), grid.viewport()->height() / 20 + 1);
}

TEST_F(GridView, ShowsTheSelectionQuieterWithoutTheKeyboard)
{
    addRows(2);
    grid.setSelectedRow(1);
    show();
    const QColor active = grid.colors(true).selectedBack;
    EXPECT_GT(pixels(shot(), grid.CellBoundary(1, 4), active), 1000);
    grid.clearFocus();
    const QColor inactive = grid.colors(true).selectedBack;
    EXPECT_NE(inactive, active);
    EXPECT_GT(pixels(shot(), grid.CellBoundary(1, 4), inactive), 1000);
    EXPECT_EQ(pixels(shot(), grid.CellBoundary(2, 4), inactive), 0);
}

TEST_F(GridView, FollowsTheFont)
{
    vbalGrid own;
    own.AddColumn(u"a"_qs);
    own.AddRow();
    own.AddRow(-1, {}, true, 77);
    QFont font = own.font();
    font.setPixelSize(60);
    own.setFont(font);
    EXPECT_GE(own.RowHeight(1), 60);
    EXPECT_EQ(own.RowHeight(2), 77);
    EXPECT_GE(own.DefaultRowHeight(), 60);
    grid.setDefaultRowHeight(33);
    addRows(1);
    grid.setFont(font);
    EXPECT_EQ(grid.RowHeight(1), 33) << "the host's own default height stays";
}

TEST_F(GridView, TellsWhereCellsAre)
{
    addRows(50);
    show();
    grid.setVScrollValue(30);
    EXPECT_EQ(grid.CellFromPoint({25, 0}), (std::pair{2, 2}));
    EXPECT_EQ(grid.CellFromPoint({290, 12}), (std::pair{3, 0}));
    EXPECT_EQ(grid.CellBoundary(3, 2), QRect(20, 10, 150, 20));
    EXPECT_TRUE(grid.CellBoundary(3, 3).isEmpty()) << "hidden";
    grid.setColumnWidth(2, 600);
    grid.EnsureVisible(1, 4);
    EXPECT_EQ(grid.vScrollValue(), 0);
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.CellBoundary(1, 4)));
    grid.setLayoutDirection(Qt::RightToLeft);
    const QRect cell = grid.CellBoundary(1, 4);
    EXPECT_TRUE(grid.viewport()->rect().contains(cell));
    EXPECT_EQ(grid.CellFromPoint(cell.center()), (std::pair{1, 4}));
}

TEST_F(GridView, SpeaksToScreenReaders)
{
    addRows(20'000);
    show();
    grid.setSelectedRow(3);
    QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&grid);
    ASSERT_TRUE(table && table->tableInterface());
    EXPECT_EQ(table->role(), QAccessible::Table);
    EXPECT_EQ(table->tableInterface()->rowCount(), 20'000);
    EXPECT_EQ(table->tableInterface()->columnCount(), 3) << "those that are shown";
    EXPECT_EQ(table->child(1)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(table->child(1)->text(QAccessible::Name), u"Title"_qs);
    QAccessibleInterface *focus = table->focusChild();
    ASSERT_TRUE(focus);
    EXPECT_EQ(focus->text(QAccessible::Name), u"Note 3"_qs);
    EXPECT_TRUE(focus->state().focused && focus->state().selected);
    EXPECT_EQ(table->child(table->indexOfChild(focus)), focus);
    EXPECT_EQ(focus->tableCellInterface()->rowIndex(), 2);
    EXPECT_EQ(focus->tableCellInterface()->columnHeaderCells().value(0), table->child(1));
    grid.setCellIcon(3, 1, 0);
    EXPECT_EQ(table->tableInterface()->cellAt(2, 0)->text(QAccessible::Name), u"Active"_qs) << "a mark";
    const QRect place = focus->rect();
    EXPECT_EQ(table->childAt(place.center().x(), place.center().y()), focus);
    EXPECT_EQ(table->tableInterface()->selectedRows(), QList<int>{2});
    EXPECT_TRUE(table->tableInterface()->selectRow(19'999));
    EXPECT_EQ(table->tableInterface()->selectedRowCount(), 2);
    QAccessibleInterface *last = table->tableInterface()->cellAt(19'999, 1);
    EXPECT_TRUE(last->state().offscreen);
    last->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(grid.SelectedRow(), 20'000);
    EXPECT_FALSE(last->state().offscreen);
    grid.Clear();
    EXPECT_FALSE(last->isValid());
    EXPECT_EQ(table->focusChild(), nullptr);
}

} // namespace
} // namespace norvane
