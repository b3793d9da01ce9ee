#include "controls/menuview/MenuWindow.h"

#include "controls/menu/caption_markers.h"
#include "controls/menu/menu_placing.h"
#include "controls/menuview/MenuAccessible.h"
#include "controls/menuview/MenuPainter.h"
#include "controls/menuview/NVPopupMenu.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QTimerEvent>
#include <QWindow>
#include <algorithm>

namespace norvane {

namespace {

constexpr int kFrame = 3;
constexpr int kScrollStrip = 18;
/// At the end of every row, for the arrow of a sub menu.
constexpr int kArrowColumn = 16;

} // namespace

MenuWindow::MenuWindow(NVPopupMenu &menu, MenuHandle handle, MenuWindow *parentMenu)
    : QWidget(nullptr, Qt::Popup | Qt::FramelessWindowHint), m_menu(&menu), m_handle(handle),
      m_parentMenu(parentMenu)
{
    installMenuAccessibility();
    setAttribute(Qt::WA_X11NetWmWindowTypePopupMenu);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setPalette(QApplication::palette("QMenu"));
    setObjectName(QStringLiteral("NVPopupMenu"));
    const MenuItem *parentItem = menu.item(menu.ItemForID(handle));
    setAccessibleName(parentItem ? shownText(parentItem->displayCaption).text : tr("Menu"));
}

int MenuWindow::frameWidth()
{
    return kFrame;
}

const MenuItem *MenuWindow::itemOf(int row) const
{
    return m_menu && row >= 0 && row < rowCount() ? m_menu->item(m_rows.at(row)) : nullptr;
}

bool MenuWindow::isPassive(int row) const
{
    const MenuItem *item = itemOf(row);
    return !item || item->isPassive();
}

QRect MenuWindow::availableArea(QPoint point) const
{
    const QScreen *at = QGuiApplication::screenAt(point);
    if (!at)
        at = m_owner ? m_owner->screen() : screen();
    return at->availableGeometry();
}

void MenuWindow::openAt(QWidget &owner, QPoint corner, const QRect &exclude, bool vertical)
{
    m_owner = &owner;
    owner.installEventFilter(this);
    m_pointerAtOpening = QCursor::pos();
    m_opener = qobject_cast<QAbstractButton *>(QApplication::widgetAt(m_pointerAtOpening));
    layOut();
    if (!m_menu || m_rows.isEmpty())
        return;
    winId();
    if (QWindow *ownerWindow = owner.window()->windowHandle())
        windowHandle()->setTransientParent(ownerWindow);
    setGeometry(placedMenu(wholeSize(), corner, availableArea(corner), exclude, vertical));
    show();
    QAccessibleEvent opened(this, QAccessible::PopupMenuStart);
    QAccessible::updateAccessibility(&opened);
}

/// Measures the rows and finds the highlighted one among them.
void MenuWindow::layOut()
{
    m_isStale = false;
    if (!m_menu)
        return;
    m_widths = m_menu->measureMenu(m_handle);
    if (!m_menu)
        return;
    m_rows = m_menu->itemsOf(m_handle);
    QVector<MenuRowSize> sizes;
    sizes.reserve(m_rows.size());
    m_current = -1;
    for (int row = 0; row < rowCount(); ++row) {
        const MenuItem &item = *itemOf(row);
        // All rows end where the longest one does.
        const int width = std::max(item.width, m_widths.row) + m_widths.overflow + kArrowColumn;
        sizes.append({width, item.height, item.columnBreak, item.barColumnBreak});
        if (item.id == m_currentId)
            m_current = row;
    }
    const QScreen *at = m_owner ? m_owner->screen() : screen();
    m_layout = MenuLayout(sizes, at->availableGeometry().width() - 2 * kFrame);
}

QSize MenuWindow::wholeSize() const
{
    return m_layout.size() + QSize(2 * kFrame, 2 * kFrame);
}

void MenuWindow::noteChange(bool inSize)
{
    update();
    if (m_child)
        m_child->noteChange(inSize);
    if (!inSize || m_isStale)
        return;
    m_isStale = true;
    QMetaObject::invokeMethod(this, &MenuWindow::refresh, Qt::QueuedConnection);
}

/// Follows changes of the items. False when there is nothing to show any more.
bool MenuWindow::refresh()
{
    if (!m_menu || !isVisible())
        return false;
    if (!m_isStale)
        return true;
    if (!m_menu->hasMenu(m_handle) || m_menu->itemsOf(m_handle).isEmpty()) {
        closeLevel();
        return false;
    }
    layOut();
    if (!m_menu)
        return false;
    const QRect available = availableArea(geometry().topLeft());
    setGeometry(placedMenu(wholeSize(), geometry().topLeft(), available, {}, true));
    scrollTo(m_offset);
    if (m_child) {
        m_childRow = int(m_rows.indexOf(m_menu->ItemForID(m_child->m_handle)));
        if (m_childRow < 0)
            closeChild();
    }
    update();
    return true;
}

QRect MenuWindow::viewRect() const
{
    QRect view = rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
    if (isScrollable())
        view.adjust(0, kScrollStrip, 0, -kScrollStrip);
    return view;
}

QRect MenuWindow::rowRect(int row) const
{
    if (row < 0 || row >= m_layout.rowCount())
        return {};
    return m_layout.row(row).translated(viewRect().topLeft() - QPoint(0, m_offset));
}

int MenuWindow::rowAt(QPoint point) const
{
    const QRect view = viewRect();
    return view.contains(point) ? m_layout.rowAt(point - view.topLeft() + QPoint(0, m_offset)) : -1;
}

int MenuWindow::greatestOffset() const
{
    return std::max(0, m_layout.size().height() - viewRect().height());
}

void MenuWindow::scrollTo(int offset)
{
    const int bounded = std::clamp(offset, 0, greatestOffset());
    if (bounded == m_offset)
        return;
    m_offset = bounded;
    update();
}

void MenuWindow::showRow(int row)
{
    if (row < 0)
        return;
    const QRect rect = m_layout.row(row);
    if (rect.top() < m_offset)
        scrollTo(rect.top());
    else if (rect.bottom() + 1 > m_offset + viewRect().height())
        scrollTo(rect.bottom() + 1 - viewRect().height());
}

void MenuWindow::paintEvent(QPaintEvent *event)
{
    if (!m_menu)
        return;
    QPainter painter(this);
    MenuPainter menuPainter(m_menu->look(), m_menu->metrics(), m_menu->imageList(), palette());
    menuPainter.paintFrame(painter, rect());
    if (m_isStale)
        return; // it is about to be laid out again
    const QRect view = viewRect();
    const QPoint origin = view.topLeft() - QPoint(0, m_offset);
    painter.setClipRect(view);
    for (const int x : m_layout.bars())
        menuPainter.paintBar(painter, origin.x() + x, view.top(), view.bottom() + 1);
    const QVector<int> rows = m_layout.rowsIn(event->rect().intersected(view).translated(-origin));
    for (const int row : rows) {
        MenuRow drawn;
        drawn.rect = m_layout.row(row).translated(origin);
        drawn.tileOrigin = origin;
        drawn.shortcutColumn = m_widths.shownColumn;
        drawn.shortcutWidth = m_widths.shownColumnWidth;
        drawn.selected = row == m_current;
        drawn.byKeyboard = m_byKeyboard;
        m_menu->drawRow(painter, menuPainter, m_rows.at(row), drawn);
        if (!m_menu)
            return;
    }
    if (!isScrollable())
        return;
    painter.setClipping(false);
    const QRect inner = rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
    menuPainter.paintScrollStrip(painter, QRect(inner.topLeft(), QSize(inner.width(), kScrollStrip)), true,
                                 m_offset > 0);
    menuPainter.paintScrollStrip(
        painter, QRect(inner.left(), inner.bottom() + 1 - kScrollStrip, inner.width(), kScrollStrip), false,
        m_offset < greatestOffset());
}

void MenuWindow::setCurrent(int row, By by)
{
    m_byKeyboard = by == By::Arrow;
    if (row == m_current) {
        update(rowRect(row));
        return;
    }
    update(rowRect(m_current));
    m_current = row;
    const MenuItem *item = itemOf(row);
    m_currentId = item ? item->id : 0;
    if (by != By::Pointer)
        showRow(row);
    update(rowRect(row));
    if (row >= 0) {
        QAccessibleEvent focused(this, QAccessible::Focus);
        focused.setChild(row);
        QAccessible::updateAccessibility(&focused);
    }
    if (m_menu)
        m_menu->noteHighlight(row >= 0 ? m_rows.at(row) : 0);
}

void MenuWindow::openChild(int row, bool withHighlight)
{
    const MenuItem *item = itemOf(row);
    if (!item || !item->hasSubMenu() || !item->Enabled || item->isPassive())
        return;
    const QPointer<MenuWindow> self(this);
    if (!m_child || m_childRow != row) {
        closeChild();
        const MenuHandle handle = item->actualId;
        // The host may change the items now, and this window with them.
        if (!m_menu->openMenu(handle) || !self || !refresh())
            return;
        row = int(m_rows.indexOf(m_menu->ItemForID(handle)));
        if (row < 0)
            return;
        auto *child = new MenuWindow(*m_menu, handle, this);
        child->m_owner = m_owner;
        child->layOut();
        if (!m_menu || child->m_rows.isEmpty()) {
            child->deleteLater();
            return;
        }
        m_child = child;
        m_childRow = row;
        child->winId();
        child->windowHandle()->setTransientParent(windowHandle());
        const QRect beside(mapToGlobal(rowRect(row).topLeft()), rowRect(row).size());
        child->setGeometry(placedSubMenu(child->wholeSize(), beside, kFrame, availableArea(beside.center())));
        child->show();
        QAccessibleEvent opened(child, QAccessible::PopupMenuStart);
        QAccessible::updateAccessibility(&opened);
    }
    if (withHighlight && m_child && m_child->m_current < 0)
        m_child->step(-1, 1);
}

void MenuWindow::closeChild()
{
    m_subMenuTimer.stop();
    if (!m_child)
        return;
    MenuWindow *child = m_child;
    child->closeChild();
    m_child.clear();
    m_childRow = -1;
    child->hide();
}

void MenuWindow::closeLevel()
{
    if (m_parentMenu)
        m_parentMenu->closeChild();
    else
        closeAll();
}

void MenuWindow::closeAll()
{
    MenuWindow *first = firstWindow();
    const QPointer<MenuWindow> self(first);
    first->closeChild();
    if (self)
        first->hide();
}

void MenuWindow::hideEvent(QHideEvent *)
{
    // Whoever hides it: the window system closes menus, too.
    m_subMenuTimer.stop();
    m_scrollTimer.stop();
    deleteLater();
    QAccessibleEvent closed(this, QAccessible::PopupMenuEnd);
    QAccessible::updateAccessibility(&closed);
    const QPointer<MenuWindow> self(this);
    closeChild();
    if (!self || !m_menu)
        return;
    if (m_parentMenu) {
        if (m_parentMenu->m_child == this) {
            m_parentMenu->m_child.clear();
            m_parentMenu->m_childRow = -1;
        }
    } else {
        m_menu->noteClosed();
    }
}

bool MenuWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide && watched == m_owner)
        closeAll();
    return QWidget::eventFilter(watched, event);
}

void MenuWindow::changeEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ApplicationFontChange:
    case QEvent::StyleChange:
        if (m_menu && !m_parentMenu)
            m_menu->followSettings();
        break;
    case QEvent::ApplicationPaletteChange:
        setPalette(QApplication::palette("QMenu"));
        update();
        break;
    default:
        break;
    }
    QWidget::changeEvent(event);
}

} // namespace norvane
