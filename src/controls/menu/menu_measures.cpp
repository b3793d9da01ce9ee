#include "controls/menu/menu_measures.h"

#include "controls/menu/caption_markers.h"

#include <algorithm>

namespace norvane {

namespace {

constexpr int kTallText = 19;
constexpr int kTallTextMargin = 6;
constexpr int kSmallItemHeight = 22;
constexpr int kIconMargin = 4;

} // namespace

int menuItemHeight(int textHeight)
{
    return textHeight >= kTallText ? textHeight + kTallTextMargin : kSmallItemHeight;
}

int menuHeaderHeight(int itemHeight)
{
    return itemHeight * 3 / 4;
}

int menuRowHeight(const MenuItem &item, int itemHeight)
{
    if (item.isSeparator())
        return kSeparatorHeight;
    return item.Header ? menuHeaderHeight(itemHeight) : itemHeight;
}

int menuTextLeft(int itemHeight)
{
    return itemHeight + kIconMargin;
}

MenuWidths menuWidths(const QVector<MenuItem> &items, const QVector<int> &indexes, int itemHeight,
                      const MenuTextMeasure &measure)
{
    const MenuItem *longest = nullptr;
    QString longestShortcut;
    for (const int index : indexes) {
        const MenuItem &item = items.at(index - 1);
        if (!longest || item.displayCaption.size() > longest->displayCaption.size())
            longest = &item;
        if (item.shortcutText.size() > longestShortcut.size())
            longestShortcut = item.shortcutText;
    }
    MenuWidths widths;
    if (!longest)
        return widths;
    const auto captionWidth = [&](const MenuItem &item) {
        return measure.width(shownText(item.displayCaption).text, item.Default);
    };
    widths.row += captionWidth(*longest);
    int shortcutWidth = 0;
    if (!longestShortcut.isEmpty()) {
        widths.shortcutColumn = widths.row + kShortcutGap;
        shortcutWidth = measure.width(longestShortcut, false);
        widths.row = widths.shortcutColumn + shortcutWidth;
    }

    int widestCaption = 0;
    int widestShortcut = shortcutWidth;
    for (const int index : indexes) {
        const MenuItem &item = items.at(index - 1);
        if (item.isSeparator())
            continue;
        widestCaption = std::max(widestCaption, captionWidth(item));
        if (!item.shortcutText.isEmpty())
            widestShortcut = std::max(widestShortcut, measure.width(item.shortcutText, item.Default));
    }
    const int captionEnd = menuTextLeft(itemHeight) + widestCaption;
    if (widths.shortcutColumn > 0) {
        // The gap in front of the shortcuts and the margin behind them.
        widths.shownColumn = std::max(widths.shortcutColumn, captionEnd + kShortcutGap);
        widths.shownColumnWidth = widestShortcut;
        widths.overflow = widths.shownColumn + widestShortcut + kMenuTextMargin - widths.row;
    } else {
        widths.overflow = std::max(0, captionEnd + kMenuTextMargin - widths.row);
    }
    return widths;
}

} // namespace norvane
