#include "controls/menuview/MenuWindow.h"

#include "controls/menu/MenuItem.h"
#include "controls/menuview/NVPopupMenu.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleHints>
#include <QTimerEvent>
#include <QWheelEvent>
#include <algorithm>

namespace norvane {

namespace {

constexpr int kScrollIntervalMs = 30;
constexpr int kScrollStep = 12;
constexpr int kWheelRows = 3;
constexpr int kWheelNotch = 120;

} // namespace

MenuWindow *MenuWindow::firstWindow()
{
    MenuWindow *window = this;
    while (window->m_parentMenu)
        window = window->m_parentMenu;
    return window;
}

MenuWindow *MenuWindow::lastWindow()
{
    MenuWindow *window = this;
    while (window->m_child)
        window = window->m_child;
    return window;
}

/// The window below a point, the last one that opened first; nullptr if there is none.
MenuWindow *MenuWindow::windowAt(QPoint screenPoint)
{
    for (MenuWindow *window = lastWindow(); window; window = window->m_parentMenu) {
        if (window->geometry().contains(screenPoint))
            return window;
    }
    return nullptr;
}

bool MenuWindow::event(QEvent *event)
{
    // No key is a shortcut of the program while the menu is open.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void MenuWindow::highlight(int row)
{
    if (refresh() && row >= 0 && row < rowCount()) {
        closeChild();
        setCurrent(row, By::OtherKey);
    }
}

void MenuWindow::activate(int row)
{
    const MenuItem *item = itemOf(row);
    if (!item || item->isPassive() || !item->Enabled)
        return;
    if (item->hasSubMenu()) {
        const QPointer<MenuWindow> self(this);
        setCurrent(row, By::OtherKey);
        if (self && m_current >= 0)
            openChild(m_current, true);
    } else {
        m_menu->choose(m_rows.at(row));
    }
}

void MenuWindow::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    if (!refresh())
        return;
    const MenuItem *item = itemOf(m_current);
    switch (event->key()) {
    case Qt::Key_Down:
        step(m_current, 1);
        break;
    case Qt::Key_Up:
        step(m_current < 0 ? rowCount() : m_current, -1);
        break;
    case Qt::Key_Home:
        step(-1, 1);
        break;
    case Qt::Key_End:
        step(rowCount(), -1);
        break;
    case Qt::Key_PageDown:
        stepPage(1);
        break;
    case Qt::Key_PageUp:
        stepPage(-1);
        break;
    case Qt::Key_Right:
        if (item && item->hasSubMenu())
            openChild(m_current, true);
        else
            goBeside(1);
        break;
    case Qt::Key_Left:
        if (m_parentMenu && m_layout.beside(std::max(0, m_current), -1) < 0)
            closeLevel();
        else
            goBeside(-1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        activate(m_current);
        break;
    case Qt::Key_Escape:
        closeLevel();
        break;
    case Qt::Key_Alt:
    case Qt::Key_F10:
        closeAll();
        break;
    default:
        if (!pressAccessKey(event->text()))
            event->ignore();
        break;
    }
}

/// The next row in a direction, round the ends, that can be looked at by keyboard.
void MenuWindow::step(int from, int direction)
{
    int row = from;
    for (int steps = 0; steps < rowCount(); ++steps) {
        row += direction;
        if (row >= rowCount())
            row = 0;
        else if (row < 0)
            row = rowCount() - 1;
        if (!isPassive(row)) {
            const QPointer<MenuWindow> self(this);
            closeChild();
            if (self)
                setCurrent(row, By::Arrow);
            return;
        }
    }
}

void MenuWindow::stepPage(int direction)
{
    if (rowCount() == 0)
        return;
    const int start = std::clamp(m_current, 0, rowCount() - 1);
    const int page = std::max(1, viewRect().height() - m_layout.row(start).height());
    int row = start;
    const auto distance = [&](int to) {
        return std::abs(m_layout.row(to).top() - m_layout.row(start).top());
    };
    while (row + direction >= 0 && row + direction < rowCount() && distance(row + direction) <= page &&
           m_layout.row(row + direction).left() == m_layout.row(start).left())
        row += direction;
    // Not onto a row that is only looked at, and not round the end.
    while (row != start && isPassive(row))
        row -= direction;
    if (row != start || m_current < 0)
        step(row - direction, direction);
}

void MenuWindow::goBeside(int direction)
{
    const int row = m_layout.beside(std::max(0, m_current), direction);
    if (row >= 0)
        step(row - 1, 1);
}

/// The first item with that access key is chosen, even if others have it too.
bool MenuWindow::pressAccessKey(const QString &text)
{
    const QString key = text.toUpper();
    if (key.isEmpty())
        return false;
    for (int row = 0; row < rowCount(); ++row) {
        const MenuItem *item = itemOf(row);
        if (!item || item->isPassive() || item->accessKey != key)
            continue;
        activate(row);
        return true;
    }
    return false;
}

void MenuWindow::pointTo(QPoint point)
{
    const QPointer<MenuWindow> self(this);
    // All menus on the way here show where the way goes.
    for (MenuWindow *window = this; window && window->m_parentMenu; window = window->m_parentMenu) {
        window->m_parentMenu->m_subMenuTimer.stop();
        window->m_parentMenu->setCurrent(window->m_parentMenu->m_childRow, By::Pointer);
        if (!self)
            return;
    }
    updateScrolling(point);
    const int row = rowAt(point);
    if (row == m_current)
        return;
    setCurrent(row, By::Pointer);
    if (self)
        m_subMenuTimer.start(style()->styleHint(QStyle::SH_Menu_SubMenuPopupDelay, nullptr, this), this);
}

void MenuWindow::mouseMoveEvent(QMouseEvent *event)
{
    if (!refresh())
        return;
    const QPoint point = event->globalPosition().toPoint();
    MenuWindow *first = firstWindow();
    // A menu that opens below a pointer at rest does not follow it.
    if (!first->m_hasPointerMoved && point == first->m_pointerAtOpening)
        return;
    first->m_hasPointerMoved = true;
    if (MenuWindow *window = windowAt(point)) {
        if (window->refresh())
            window->pointTo(window->mapFromGlobal(point));
    } else {
        MenuWindow *last = lastWindow();
        last->m_scrollTimer.stop();
        last->m_subMenuTimer.stop();
        last->setCurrent(-1, By::Pointer);
    }
}

void MenuWindow::leaveEvent(QEvent *)
{
    m_scrollTimer.stop();
    if (m_child || !geometry().contains(QCursor::pos()))
        return;
    m_subMenuTimer.stop();
}

void MenuWindow::mousePressEvent(QMouseEvent *event)
{
    if (!refresh())
        return;
    const QPoint point = event->globalPosition().toPoint();
    MenuWindow *first = firstWindow();
    MenuWindow *window = windowAt(point);
    if (!window) {
        // The button that opened the menu closes it, and does not open it again at once.
        const QWidget *below = QApplication::widgetAt(point);
        if (first->m_opener && below == first->m_opener)
            first->setAttribute(Qt::WA_NoMouseReplay);
        closeAll();
        return;
    }
    first->m_isPressed = true;
    first->m_hasPointerMoved = true;
    if (!window->refresh())
        return;
    const QPointer<MenuWindow> guard(window);
    window->pointTo(window->mapFromGlobal(point));
    if (guard)
        window->openChild(window->m_current, false);
}

void MenuWindow::mouseReleaseEvent(QMouseEvent *event)
{
    if (!refresh())
        return;
    const QPoint point = event->globalPosition().toPoint();
    MenuWindow *first = firstWindow();
    MenuWindow *window = windowAt(point);
    // The end of the click that opened the menu chooses nothing.
    const bool isDragged = (point - first->m_pointerAtOpening).manhattanLength() >=
                           QGuiApplication::styleHints()->startDragDistance();
    if (!window || !(first->m_isPressed || (first->m_hasPointerMoved && isDragged)) || !window->refresh())
        return;
    const int row = window->rowAt(window->mapFromGlobal(point));
    const MenuItem *item = window->itemOf(row);
    if (item && !item->hasSubMenu())
        window->activate(row);
}

void MenuWindow::wheelEvent(QWheelEvent *event)
{
    event->accept();
    const QPoint point = event->globalPosition().toPoint();
    MenuWindow *window = windowAt(point);
    if (!window || !window->refresh() || !window->isScrollable())
        return;
    const int rowHeight = window->m_menu->look().itemHeight;
    window->closeChild();
    window->scrollTo(window->m_offset - event->angleDelta().y() * kWheelRows * rowHeight / kWheelNotch);
    window->pointTo(window->mapFromGlobal(point));
}

/// -1 in the strip above the rows of a menu that is too long, 1 in the one below, else 0.
int MenuWindow::stripAt(QPoint point) const
{
    if (!isScrollable() || !rect().contains(point))
        return 0;
    if (point.y() < viewRect().top())
        return -1;
    return point.y() > viewRect().bottom() ? 1 : 0;
}

void MenuWindow::updateScrolling(QPoint point)
{
    m_scrollDirection = stripAt(point);
    if (m_scrollDirection == 0)
        m_scrollTimer.stop();
    else if (!m_scrollTimer.isActive())
        m_scrollTimer.start(kScrollIntervalMs, this);
}

void MenuWindow::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_scrollTimer.timerId()) {
        scrollTo(m_offset + m_scrollDirection * kScrollStep);
        if (m_offset == 0 || m_offset == greatestOffset())
            m_scrollTimer.stop();
    } else if (event->timerId() == m_subMenuTimer.timerId()) {
        m_subMenuTimer.stop();
        if (!refresh() || (m_child && m_childRow == m_current))
            return;
        const QPointer<MenuWindow> self(this);
        closeChild();
        if (self && m_current >= 0)
            openChild(m_current, false);
    }
}

} // namespace norvane
