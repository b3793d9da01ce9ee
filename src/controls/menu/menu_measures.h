#pragma once

#include "controls/menu/MenuItem.h"

#include <QVector>

namespace norvane {

// How large items are. All measures are in pixels.

/// Of a separator, whatever the font.
inline constexpr int kSeparatorHeight = 6;
/// What a row takes beside its caption.
inline constexpr int kMenuRowWidth = 32;
/// Between the captions and the shortcut column.
inline constexpr int kShortcutGap = 8;
/// Between a row's end and the text in front of it.
inline constexpr int kMenuTextMargin = 6;

/// @param textHeight of "yY" in the menu font
int menuItemHeight(int textHeight);
int menuHeaderHeight(int itemHeight);
/// By the kind of the item.
int menuRowHeight(const MenuItem &item, int itemHeight);
/// Where captions begin: behind the column of icons and marks.
int menuTextLeft(int itemHeight);

/// Measures text in the menu font. It is handed captions without "&" of access keys.
class MenuTextMeasure
{
public:
    virtual ~MenuTextMeasure() = default;
    virtual int width(const QString &text, bool bold) const = 0;
};

/// How wide the items of one menu are.
struct MenuWidths
{
    int row = kMenuRowWidth; ///< of an item; separators and headers keep kMenuRowWidth
    int shortcutColumn = 0;  ///< 0: no item has a shortcut text

    // The caption with the most characters is measured, and a shorter one may be wider. So that no text
    // is cut, a window makes its rows wider, and puts the shortcuts farther to the right.

    int overflow = 0;         ///< by so much
    int shownColumn = 0;      ///< where the shortcuts begin then
    int shownColumnWidth = 0; ///< room for the widest of them
};

/// @param indexes of the items of one menu, from 1
MenuWidths menuWidths(const QVector<MenuItem> &items, const QVector<int> &indexes, int itemHeight,
                      const MenuTextMeasure &measure);

} // namespace norvane
