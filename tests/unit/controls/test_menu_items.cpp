#include "controls/menu/PopupMenuModel.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

/// Items by indent: "Parent", "  Child".
void fill(PopupMenuModel &menu, const QStringList &captions)
{
    QVector<int> parents = {0};
    for (const QString &caption : captions) {
        int depth = 0;
        while (caption.mid(2 * depth).startsWith(u"  "))
            ++depth;
        parents.resize(depth + 1);
        const QString text = caption.mid(2 * depth);
        parents.append(menu.AddItem(text, {}, 0, parents.constLast(), -1, false, true, text.toUpper()));
    }
}

/// Each item with its parent's index.
QString listed(const PopupMenuModel &menu)
{
    QStringList texts;
    for (int i = 1; i <= menu.Count(); ++i)
        texts.append(menu.Caption(i) + QString::number(menu.ItemParentIndex(i)));
    return texts.join(u' ');
}

const QStringList kTree = {u"a"_s, u"b"_s, u"  c"_s, u"    d"_s, u"  e"_s, u"f"_s};

TEST(MenuItems, HaveIdsAndChildMenus)
{
    PopupMenuModel menu;
    EXPECT_EQ(menu.AddItem(u"&One"_s), 1);
    EXPECT_EQ(menu.AddItem(u"Two\tF2"_s, u"help"_s, 77, 1, 5, true, false, u"TWO"_s), 2);
    EXPECT_EQ(menu.Count(), 2);
    const MenuItem &two = *menu.item(2);
    EXPECT_EQ(two.id, 2050);
    EXPECT_EQ(two.parentId, 2049);
    EXPECT_EQ(two.menuHandle, menu.IDForItem(1));
    EXPECT_NE(menu.IDForItem(1), menu.item(1)->id) << "it has a child menu";
    EXPECT_EQ(menu.ItemForID(2049), 1);
    EXPECT_EQ(menu.ItemForID(menu.IDForItem(1)), 1);
    EXPECT_EQ(menu.ItemIcon(1), -1);
    EXPECT_EQ(menu.hMenu(2), menu.subMenu(1));
    EXPECT_EQ(menu.hMenu(1), menu.rootMenu());
}

TEST(MenuItems, GoWhereTheyAreTold)
{
    PopupMenuModel menu;
    fill(menu, kTree);
    EXPECT_EQ(listed(menu), u"a0 b0 c2 d3 e2 f0");
    EXPECT_EQ(menu.InsertItem(5, u"x"_s), 5);
    EXPECT_EQ(menu.InsertItem(1, u"y"_s), 1);
    EXPECT_EQ(listed(menu), u"y0 a0 b0 c3 d4 x3 e3 f0");
    EXPECT_EQ(menu.itemsOf(menu.subMenu(3)), (QVector<int>{4, 6, 7}));
    EXPECT_EQ(menu.itemsOf(menu.rootMenu()), (QVector<int>{1, 2, 3, 8}));
    EXPECT_EQ(menu.InsertItem(99, u"z"_s), 0);

    const qint32 id = menu.item(3)->id;
    EXPECT_TRUE(menu.ReplaceItem(3, u"B\tDel"_s, {}, 0, 4));
    EXPECT_EQ(menu.item(3)->id, id);
    EXPECT_EQ(menu.item(3)->shortcutKey, 46);
    EXPECT_EQ(menu.ItemKey(3), QString());
    EXPECT_EQ(menu.itemsOf(menu.subMenu(3)).size(), 3) << "what hangs on it stays";

    menu.RemoveItem(3);
    EXPECT_EQ(listed(menu), u"y0 a0 f0");
    EXPECT_EQ(menu.ItemForID(id), 0);
}

TEST(MenuItems, OfASubMenuGoAndTheSubMenuStays)
{
    PopupMenuModel menu;
    fill(menu, kTree);
    const MenuHandle subMenu = menu.subMenu(2);
    menu.ClearSubMenusOfItem(2);
    EXPECT_EQ(listed(menu), u"a0 b0 f0");
    EXPECT_EQ(menu.subMenu(2), subMenu);
    EXPECT_TRUE(menu.hasMenu(subMenu));
    menu.AddItem(u"n"_s, {}, 0, 2);
    EXPECT_EQ(menu.hMenu(4), subMenu);
    menu.RemoveItem(2);
    EXPECT_FALSE(menu.hasMenu(subMenu));
    menu.Clear();
    EXPECT_EQ(menu.Count(), 0);
    EXPECT_EQ(menu.item(menu.AddItem(u"new"_s))->id, 2056) << "no ID is given twice";
}

TEST(MenuItems, ThatDoNotExistAreLeftAlone)
{
    PopupMenuModel menu;
    fill(menu, kTree);
    EXPECT_EQ(menu.ItemParentIndex(menu.AddItem(u"g"_s, {}, 0, 99)), 0);
    EXPECT_EQ(menu.hMenu(menu.AddItem(u"h"_s, {}, 0, -3)), menu.rootMenu());
    const QString before = listed(menu);
    for (const int index : {-1, 0, 9, 2049}) {
        menu.setCaption(index, u"x"_s);
        menu.setEnabled(index, true);
        menu.RemoveItem(index);
        menu.ClearSubMenusOfItem(index);
        menu.GroupToggle(index);
        EXPECT_FALSE(menu.ReplaceItem(index, u"x"_s));
        EXPECT_EQ(menu.Caption(index), QString());
        EXPECT_EQ(menu.IDForItem(index), 0);
        EXPECT_EQ(menu.MenuItemWidth(index), 0);
    }
    EXPECT_EQ(listed(menu), before);
    EXPECT_EQ(menu.ItemForID(1), 0);
}

TEST(MenuItems, OfARadioGroupExcludeEachOther)
{
    PopupMenuModel menu;
    fill(menu, {u"p"_s, u"  1"_s, u"q"_s, u"  -"_s, u"  2"_s, u"  tick"_s, u"  3"_s, u"  -More"_s, u"  4"_s});
    // q's children: 4 "-", 5 "2", 6 "tick", 7 "3", 8 header, 9 "4"
    for (const int index : {2, 5, 9}) {
        menu.setRadioCheck(index, true);
        menu.setChecked(index, true);
    }
    menu.setChecked(6, true);
    menu.GroupToggle(7);
    QVector<int> checked;
    for (int i = 1; i <= menu.Count(); ++i) {
        if (menu.Checked(i))
            checked.append(i);
    }
    EXPECT_EQ(checked, (QVector<int>{2, 6, 7, 9}));
    EXPECT_TRUE(menu.RadioCheck(7));
    menu.GroupToggle(7);
    EXPECT_TRUE(menu.Checked(7));
    menu.GroupToggle(5);
    EXPECT_FALSE(menu.Checked(7));
}

TEST(MenuItems, MayBeManyAndDeep)
{
    PopupMenuModel menu;
    for (int i = 0; i < 10'000; ++i)
        menu.AddItem(QString::number(i), {}, 0, i % 10 == 0 ? 0 : i - i % 10 + 1);
    EXPECT_EQ(menu.itemsOf(menu.rootMenu()).size(), 1000);
    EXPECT_EQ(menu.ItemForID(2048 + 10'000), 10'000);
    menu.Clear();
    int parent = 0;
    for (int i = 0; i < 10'000; ++i) // each in the sub menu of the one before
        parent = menu.AddItem(u"x"_s, {}, 0, parent);
    menu.ClearSubMenusOfItem(1);
    EXPECT_EQ(menu.Count(), 1);
}

} // namespace
