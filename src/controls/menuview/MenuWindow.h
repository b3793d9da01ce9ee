#pragma once

#include "controls/menu/menu_layout.h"
#include "controls/menu/menu_measures.h"

#include <QBasicTimer>
#include <QPointer>
#include <QVector>
#include <QWidget>

namespace norvane {

class NVPopupMenu;
struct MenuItem;

/// The window of one menu, which opens those of its sub menus. It deletes itself once it has closed.
///
/// The window system hands mouse and keys to the last one that opened; it finds the window below the
/// pointer among those before it.
class MenuWindow : public QWidget
{
    Q_OBJECT

public:
    /// @param parentMenu the window that it opens beside; nullptr for the first
    MenuWindow(NVPopupMenu &menu, MenuHandle handle, MenuWindow *parentMenu);

    /// Shows the first window of a menu. See placedMenu.
    void openAt(QWidget &owner, QPoint corner, const QRect &exclude, bool vertical);
    /// Closes the menu with all its windows.
    void closeAll();
    /// Items have changed; when @p inSize, they are laid out again as soon as the program gets round to.
    void noteChange(bool inSize);

    // What it shows, row by row, from 0.

    int rowCount() const { return int(m_rows.size()); }
    /// nullptr when the item is no more.
    const MenuItem *itemOf(int row) const;
    /// -1 when nothing is highlighted.
    int currentRow() const { return m_current; }
    /// In this window; outside of it where it is scrolled away.
    QRect rowRect(int row) const;
    int rowAt(QPoint point) const;
    MenuWindow *childWindow() const { return m_child; }
    int childRow() const { return m_childRow; }
    MenuWindow *parentMenu() const { return m_parentMenu; }

    /// Highlights a row, as if the pointer went there.
    void highlight(int row);
    /// Chooses a row or opens its sub menu, as a click does.
    void activate(int row);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    enum class By { Pointer, Arrow, OtherKey };

    // Layout.
    void layOut();
    bool refresh();
    QSize wholeSize() const;
    QRect viewRect() const;
    bool isScrollable() const { return m_layout.size().height() > height() - 2 * frameWidth(); }
    int greatestOffset() const;
    void scrollTo(int offset);
    void showRow(int row);
    static int frameWidth();
    QRect availableArea(QPoint point) const;

    // The highlight and sub menus.
    void setCurrent(int row, By by);
    void openChild(int row, bool withHighlight);
    void closeChild();
    void closeLevel();
    bool isPassive(int row) const;

    // Keys.
    void step(int from, int direction);
    void stepPage(int direction);
    void goBeside(int direction);
    bool pressAccessKey(const QString &text);

    // The pointer.
    MenuWindow *windowAt(QPoint screenPoint);
    MenuWindow *firstWindow();
    MenuWindow *lastWindow();
    void pointTo(QPoint point);
    void updateScrolling(QPoint point);
    int stripAt(QPoint point) const;

    QPointer<NVPopupMenu> m_menu;
    MenuHandle m_handle;
    QPointer<MenuWindow> m_parentMenu;
    QPointer<MenuWindow> m_child;
    int m_childRow = -1;

    QVector<int> m_rows; ///< indexes of the items
    MenuLayout m_layout;
    MenuWidths m_widths;
    bool m_isStale = false;
    int m_offset = 0; ///< how far it is scrolled
    int m_current = -1;
    qint32 m_currentId = 0;
    bool m_byKeyboard = false;

    // Of the first window.
    QPointer<QWidget> m_owner;
    QPointer<QWidget> m_opener; ///< a button below the pointer, whose click opened the menu
    QPoint m_pointerAtOpening;
    bool m_hasPointerMoved = false;
    bool m_isPressed = false;

    QBasicTimer m_subMenuTimer;
    QBasicTimer m_scrollTimer;
    int m_scrollDirection = 0;
};

} // namespace norvane
