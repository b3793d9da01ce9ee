#pragma once

#include "controls/menu/PopupMenuModel.h"
#include "controls/menuview/MenuPainter.h"
#include "controls/menuview/cNCMetrics.h"

#include <QObject>
#include <QPointer>
#include <QRectF>
#include <functional>
#include <optional>

class QEventLoop;
class QPainter;
class QWidget;

namespace norvane {

class MenuWindow;

/// A popup menu with icons, bold default items, header rows, option marks, a gradient highlight and a
/// background picture. Its items are PopupMenuModel's.
///
/// Showing it returns when the user has chosen or given up; until then the program goes on: timers
/// fire, and items may change, which the open menu follows. It closes as if nothing was chosen when the
/// owner is hidden or destroyed, or the menu itself is destroyed.
class NVPopupMenu : public QObject, public PopupMenuModel
{
    Q_OBJECT

public:
    explicit NVPopupMenu(QObject *parent = nullptr);
    ~NVPopupMenu() override;

    /// The window that the menu belongs to; not owned. To be set before the menu is shown.
    QWidget *hwndOwner() const { return m_owner; }
    void setHwndOwner(QWidget *owner);
    /// Where icons come from; not owned, must outlive the menu; nullptr for none.
    const ImageList *imageList() const { return m_images; }
    void setImageList(const ImageList *images);

    /// A copy of the picture is tiled behind the items.
    void setBackgroundPicture(const QPixmap &picture);
    const QPixmap &BackgroundPicture() const { return m_look.background; }
    void ClearBackgroundPicture() { setBackgroundPicture({}); }

    bool GradientHighlight() const { return m_look.gradientHighlight; }
    void setGradientHighlight(bool on);
    MenuHeaderStyle HeaderStyle() const { return m_look.headerStyle; }
    void setHeaderStyle(MenuHeaderStyle style);
    /// Whether the mark of a checked item takes part in the highlight.
    bool HighlightCheckedItems() const { return m_look.highlightCheckedItems; }
    void setHighlightCheckedItems(bool on);
    /// Icons in place of the tick and the option mark; -1 for the marks.
    int TickIconIndex() const { return m_look.tickIcon; }
    void setTickIconIndex(int icon);
    int OptionIconIndex() const { return m_look.optionIcon; }
    void setOptionIconIndex(int icon);

    /// From then on Click is raised, and the menu follows the owner's fonts and its fate.
    void CreateSubClass();
    void DestroySubClass();

    /// Shows the menu and waits. Returns the index of the chosen item; 0 when none was chosen, the menu
    /// has no items, is open already or has no owner.
    /// @param x, y     in twips, relative to the owner's client area
    /// @param exclude  in the same measure: not to be covered; empty for none
    /// @param keepLeft go beside what is not to be covered, not below or above it
    int ShowPopupMenu(double x, double y, const QRectF &exclude = {}, bool keepLeft = false);
    /// The same for the sub menu of one item.
    int ShowPopupMenuAtIndex(double x, double y, int lIndex, const QRectF &exclude = {},
                             bool keepLeft = false);
    /// The same in pixels of the screen.
    int ShowPopupAbsolute(int lLeftPixel, int lTopPixel, const QRect &exclude = {}, bool keepLeft = false);
    bool isOpen() const { return m_loop != nullptr; }
    /// Closes the menu as if the user had given up.
    void closePopup();

    /// Runs what a click on the item of that ID runs: Click, if the item can be clicked.
    void EmulateMenuClick(qint32 ID);

    const cNCMetrics &metrics() const { return m_metrics; }

    // For its windows.

    /// Tells that a menu opens; its items may change on the way. False when it has none then.
    bool openMenu(MenuHandle menu);
    /// Measures the items of a menu.
    MenuWidths measureMenu(MenuHandle menu);
    const MenuLook &look() const { return m_look; }
    void drawRow(QPainter &painter, MenuPainter &menuPainter, int index, const MenuRow &row);
    /// @param index 0: no item is highlighted any more
    void noteHighlight(int index);
    void choose(int index);
    void noteClosed();
    /// Reads the desktop's settings again if they have changed, and measures all items anew.
    void followSettings();

signals:
    void Click(int ItemNumber);
    void ItemHighlight(int ItemNumber, bool bSeparator, bool bEnabled);
    /// No item is highlighted any more: the menu has closed, or the pointer has left it.
    void MenuExit();
    /// A menu is about to open: 0, or the item whose sub menu it is.
    void InitPopupMenu(int ParentItemNumber);
    /// An item with OwnerDraw is to be painted; set bDoDefault to false to have nothing painted over it.
    void DrawItem(QPainter *hDC, int lMenuIndex, int lLeft, int lTop, int lRight, int lBottom, bool bSelected,
                  bool bChecked, bool bDisabled, bool &bDoDefault);
    /// An item with OwnerDraw is measured, in pixels.
    void MeasureItem(int lMenuIndex, int &lWidth, int &lHeight);
    /// Around all that happens while the menu is open.
    void EnterMenuLoop();
    void ExitMenuLoop();

protected:
    void changed(Change change) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int show(MenuHandle menu, QPoint corner, const QRect &exclude, bool keepLeft);
    QRect toScreen(const QRectF &twips) const;
    void lookChanged();

    QPointer<QWidget> m_owner;
    const ImageList *m_images = nullptr;
    MenuLook m_look;
    cNCMetrics m_metrics;
    QPointer<MenuWindow> m_window;
    QEventLoop *m_loop = nullptr; ///< while the menu is open
    qint32 m_chosenId = 0;
    bool m_isSubclassed = false;
};

} // namespace norvane
