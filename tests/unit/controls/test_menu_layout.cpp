#include "controls/menu/menu_layout.h"
#include "controls/menu/menu_placing.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

constexpr int kWide = 10'000;

TEST(MenuLayout, StacksRowsAsWideAsTheWidest)
{
    const MenuLayout layout({{50, 20}, {80, 6}, {60, 20}}, kWide);
    EXPECT_EQ(layout.size(), QSize(80, 46));
    EXPECT_EQ(layout.row(2), QRect(0, 26, 80, 20));
    EXPECT_EQ(layout.rowAt({0, 0}), 0);
    EXPECT_EQ(layout.rowAt({79, 19}), 0);
    EXPECT_EQ(layout.rowAt({79, 20}), 1);
    EXPECT_EQ(layout.rowAt({0, 45}), 2);
    EXPECT_EQ(layout.rowAt({0, 46}), -1);
    EXPECT_EQ(layout.rowAt({80, 0}), -1);
    EXPECT_EQ(layout.rowAt({0, -1}), -1);
    EXPECT_EQ(layout.rowsIn(QRect(0, 19, 10, 2)), (QVector<int>{0, 1}));
    EXPECT_EQ(MenuLayout().rowAt({0, 0}), -1);
}

TEST(MenuLayout, BreaksIntoColumnsWhereThereIsRoom)
{
    const QVector<MenuRowSize> rows = {{50, 20, true},        {50, 20}, {70, 20, true},
                                       {60, 20, false, true}, {60, 20}, {60, 20}};
    const MenuLayout layout(rows, kWide);
    EXPECT_EQ(layout.size(), QSize(50 + 70 + 5 + 60, 60));
    EXPECT_EQ(layout.row(2), QRect(50, 0, 70, 20));
    EXPECT_EQ(layout.row(4), QRect(125, 20, 60, 20));
    EXPECT_EQ(layout.bars().size(), 1);
    EXPECT_EQ(layout.rowAt({51, 0}), 2);
    EXPECT_EQ(layout.rowAt({51, 30}), -1) << "a shorter column";
    EXPECT_EQ(layout.rowAt({122, 5}), -1) << "the line";
    EXPECT_EQ(layout.beside(5, -1), 2) << "the last one of a shorter column";
    EXPECT_EQ(layout.beside(0, -1), -1);
    EXPECT_EQ(layout.beside(5, 1), -1);
    EXPECT_EQ(layout.rowsIn(QRect(0, 0, 200, 10)), (QVector<int>{0, 2, 3}));
    EXPECT_EQ(MenuLayout(rows, 180).size(), QSize(70, 120)) << "wider than the screen";
}

TEST(MenuPlacing, StaysOnTheScreen)
{
    const QRect screen(0, 30, 1000, 700);
    const QSize size(200, 300);
    struct Case
    {
        QPoint corner;
        QRect exclude;
        bool vertical;
        QPoint placed;
    };
    const Case cases[] = {
        {{100, 100}, {}, true, {100, 100}},
        {{900, 100}, {}, true, {800, 100}},
        {{-50, 0}, {}, true, {0, 30}},
        {{100, 600}, {}, true, {100, 300}},
        {{100, 100}, {100, 80, 50, 40}, true, {100, 120}},
        {{100, 600}, {100, 560, 50, 40}, true, {100, 260}},
        {{100, 100}, {100, 80, 50, 40}, false, {150, 100}},
        {{900, 100}, {880, 80, 50, 40}, false, {680, 100}},
        {{300, 300}, {0, 200, 1000, 480}, false, {300, 300}}, // no room anywhere
        {{100, 300}, {80, 35, 100, 690}, true, {180, 300}},   // none above or below
    };
    for (const Case &row : cases) {
        const QRect placed = placedMenu(size, row.corner, screen, row.exclude, row.vertical);
        EXPECT_EQ(placed.topLeft(), row.placed) << row.corner.x() << ',' << row.corner.y();
        EXPECT_TRUE(screen.contains(placed));
    }
    EXPECT_EQ(placedMenu({4000, 4000}, {500, 500}, screen, {}, true), screen);
}

TEST(MenuPlacing, PutsSubMenusBesideTheirItem)
{
    const QRect screen(0, 0, 1000, 700);
    EXPECT_EQ(placedSubMenu({200, 100}, {300, 200, 150, 20}, 3, screen).topLeft(), QPoint(450, 197));
    EXPECT_EQ(placedSubMenu({200, 100}, {700, 200, 150, 20}, 3, screen).topLeft(), QPoint(500, 197));
    EXPECT_EQ(placedSubMenu({200, 100}, {300, 680, 150, 20}, 3, screen).topLeft(), QPoint(450, 600));
    EXPECT_EQ(placedSubMenu({900, 100}, {300, 0, 150, 20}, 3, screen).topLeft(), QPoint(100, 0));
}

} // namespace
