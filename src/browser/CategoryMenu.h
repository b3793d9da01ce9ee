#pragma once

#include "store/categories.h"

#include <functional>

class QPoint;
class QWidget;

namespace norvane {

/// The menus of the category bar and of the list's category caption: `CATPOPUP` with all commands, and
/// `CATPOPUP2` with the categories alone.
///
/// Showing one returns when the chosen command, which runs after the menu has closed, is done.
class CategoryMenu
{
public:
    /// What the menu shows, as it is when it opens.
    struct State
    {
        QVector<Category> categories;
        int filter = 0;          ///< of the selected tab
        QString filterCaption;   ///< of the selected tab, with each "&" doubled
        bool areButtons = false; ///< the bar's style
    };

    // What its entries do; the entries of empty ones are disabled.
    std::function<void(int filter)> select;
    std::function<void()> addFromList;
    std::function<void()> addNew;
    std::function<void()> remove;
    std::function<void()> showWindow;
    /// Both entries change the style to the other one.
    std::function<void()> changeStyle;

    void showAll(QWidget *owner, const QPoint &screenPosition, const State &state) const;
    void showSelect(QWidget *owner, const QPoint &screenPosition, const State &state) const;
};

} // namespace norvane
