#include "controls/menu/PopupMenuModel.h"
#include "controls/menu/menu_measures.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

/// A font of which a character is 10 wide, 12 when bold; an "i" 2 and a "W" 20.
class TenWide : public MenuTextMeasure
{
public:
    int width(const QString &text, bool bold) const override
    {
        int width = 0;
        for (const QChar c : text)
            width += c == u'i' ? 2 : c == u'W' ? 20 : bold ? 12 : 10;
        return width;
    }
};

MenuWidths widthsOf(const QStringList &captions, int defaultIndex = 0)
{
    PopupMenuModel menu;
    for (const QString &caption : captions)
        menu.AddItem(caption);
    menu.setDefault(defaultIndex, true);
    return menuWidths(menu.items(), menu.itemsOf(menu.rootMenu()), 22, TenWide());
}

TEST(MenuMeasures, TakeTheItemHeightFromTheFont)
{
    EXPECT_EQ(menuItemHeight(13), 22);
    EXPECT_EQ(menuItemHeight(18), 22);
    EXPECT_EQ(menuItemHeight(19), 25);
    EXPECT_EQ(menuItemHeight(40), 46);
    EXPECT_EQ(menuHeaderHeight(22), 16);
    EXPECT_EQ(menuHeaderHeight(25), 18);
    PopupMenuModel menu;
    for (const QString &caption : {u"-"_s, u"-Title"_s, u"Item"_s, u"--"_s})
        menu.AddItem(caption);
    QVector<int> heights;
    for (const MenuItem &item : menu.items())
        heights.append(menuRowHeight(item, 25));
    EXPECT_EQ(heights, (QVector<int>{6, 18, 25, 18}));
}

TEST(MenuMeasures, TakeTheWidthFromTheLongestCaption)
{
    EXPECT_EQ(widthsOf({}).row, 32);
    EXPECT_EQ(widthsOf({u"abc"_s, u"-"_s, u"abcde"_s}).row, 32 + 50);
    EXPECT_EQ(widthsOf({u"abc"_s, u"abcde"_s}, 1).row, 32 + 50) << "the default item is not the longest";
    EXPECT_EQ(widthsOf({u"abc"_s, u"abcde"_s}, 2).row, 32 + 60);
    EXPECT_EQ(widthsOf({u"a&bc"_s}).row, 32 + 30);
    EXPECT_EQ(widthsOf({u"abc"_s}).shortcutColumn, 0);
    EXPECT_EQ(widthsOf({u"abc"_s}).overflow, 0);
}

TEST(MenuMeasures, PutTheShortcutsBehindTheCaptions)
{
    const MenuWidths widths = widthsOf({u"abc\tF1"_s, u"abcde"_s, u"a\tCtrl+X"_s});
    EXPECT_EQ(widths.shortcutColumn, 32 + 50 + 8);
    EXPECT_EQ(widths.row, 32 + 50 + 8 + 60);
}

TEST(MenuMeasures, LeaveRoomForAShorterCaptionThatIsWider)
{
    const MenuWidths widths = widthsOf({u"iiiiii"_s, u"WWWWW"_s});
    EXPECT_EQ(widths.row, 32 + 12) << "the most characters count";
    EXPECT_GE(widths.row + widths.overflow, menuTextLeft(22) + 100);
    const MenuWidths withShortcuts = widthsOf({u"iiiiii\tiii"_s, u"WWWWW\tWW"_s});
    EXPECT_EQ(withShortcuts.shortcutColumn, 32 + 12 + 8);
    EXPECT_GE(withShortcuts.row + withShortcuts.overflow, menuTextLeft(22) + 100 + 8 + 40);
}

} // namespace
