#pragma once

#include "controls/menu/MenuItem.h"
#include "controls/menu/menu_colors.h"

#include <QColor>
#include <QPalette>
#include <QPixmap>
#include <QRect>

class QPainter;

namespace norvane {

class ImageList;
class cNCMetrics;

enum class MenuHeaderStyle {
    Line,    ///< the text interrupts an etched line
    Caption, ///< the text stands on a bar
};

/// How a menu is to look.
struct MenuLook
{
    MenuHeaderStyle headerStyle = MenuHeaderStyle::Line;
    bool gradientHighlight = false;
    bool highlightCheckedItems = true;
    bool mayUseGradients = true; ///< false on a display of few colours
    int tickIcon = -1;           ///< in the image list; -1 for the mark of its own
    int optionIcon = -1;
    int itemHeight = 0;
    QPixmap background; ///< tiled behind the items; null for none
};

/// A row as it is to be painted.
struct MenuRow
{
    QRect rect;
    QPoint tileOrigin;      ///< of the background
    int shortcutColumn = 0; ///< from the row's left edge
    int shortcutWidth = 0;  ///< 0: no item of the menu has a shortcut
    bool selected = false;
    bool byKeyboard = false; ///< reached with the Up or Down arrow
};

/// Paints menus in the colours of the desktop's palette.
class MenuPainter
{
public:
    /// @param images may be nullptr; all arguments must outlive it
    MenuPainter(const MenuLook &look, const cNCMetrics &metrics, const ImageList *images,
                const QPalette &palette);

    void paintFrame(QPainter &painter, const QRect &rect) const;
    void paintItem(QPainter &painter, const MenuItem &item, const MenuRow &row);
    /// What is behind the rows: also to be called before paintItem.
    void paintBackground(QPainter &painter, const MenuRow &row) const;
    void paintBar(QPainter &painter, int x, int top, int bottom) const;
    /// The strip at the end of a menu that is longer than its window.
    void paintScrollStrip(QPainter &painter, const QRect &rect, bool isUp, bool isActive) const;

private:
    void paintEtchedLine(QPainter &painter, int left, int right, int y) const;
    void paintSeparator(QPainter &painter, const QRect &rect) const;
    void paintHeader(QPainter &painter, const MenuItem &item, const QRect &rect) const;
    void paintHighlight(QPainter &painter, const QRect &rect, bool isSelected);
    void paintFirstColumn(QPainter &painter, const MenuItem &item, const QRect &rect, bool isSelected);
    void paintTexts(QPainter &painter, const MenuItem &item, const MenuRow &row, int highlightLeft);
    void paintText(QPainter &painter, const QString &text, int underlined, const QRect &rect,
                   Qt::Alignment side, const QColor &ink, const QColor &etching) const;
    QColor inkOn(const QRect &text, const QRect &highlight) const;
    bool hasGradient() const { return m_look.gradientHighlight && m_look.mayUseGradients; }

    const MenuLook &m_look;
    const cNCMetrics &m_metrics;
    const ImageList *m_images;
    QColor m_menu;
    QColor m_text;
    QColor m_grayText;
    QColor m_highlight;
    QColor m_highlightedText;
    QColor m_shadow; ///< the two sides of an etched line
    QColor m_light;
    LighterShade m_shade;
};

} // namespace norvane
