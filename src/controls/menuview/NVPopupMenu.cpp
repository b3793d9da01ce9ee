#include "controls/menuview/NVPopupMenu.h"

#include "controls/ImageList.h"
#include "controls/menuview/MenuWindow.h"
#include "shell/Twips.h"

#include <QEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWidget>

namespace norvane {

NVPopupMenu::NVPopupMenu(QObject *parent) : QObject(parent)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    m_look.mayUseGradients = !screen || screen->depth() >= kBitsForGradient;
    m_look.itemHeight = menuItemHeight(m_metrics.textHeight());
}

NVPopupMenu::~NVPopupMenu()
{
    blockSignals(true); // whoever listens may be going, too
    DestroySubClass();
    closePopup();
}

void NVPopupMenu::setHwndOwner(QWidget *owner)
{
    const bool wasSubclassed = m_isSubclassed;
    DestroySubClass();
    m_owner = owner;
    if (wasSubclassed)
        CreateSubClass();
}

void NVPopupMenu::setImageList(const ImageList *images)
{
    m_images = images;
    lookChanged();
}

void NVPopupMenu::setBackgroundPicture(const QPixmap &picture)
{
    m_look.background = picture.copy();
    lookChanged();
}

void NVPopupMenu::setGradientHighlight(bool on)
{
    m_look.gradientHighlight = on;
    lookChanged();
}

void NVPopupMenu::setHeaderStyle(MenuHeaderStyle style)
{
    m_look.headerStyle = style;
    lookChanged();
}

void NVPopupMenu::setHighlightCheckedItems(bool on)
{
    m_look.highlightCheckedItems = on;
    lookChanged();
}

void NVPopupMenu::setTickIconIndex(int icon)
{
    m_look.tickIcon = icon;
    lookChanged();
}

void NVPopupMenu::setOptionIconIndex(int icon)
{
    m_look.optionIcon = icon;
    lookChanged();
}

void NVPopupMenu::lookChanged()
{
    changed(Change::Look);
}

void NVPopupMenu::CreateSubClass()
{
    m_isSubclassed = true;
    if (m_owner)
        m_owner->installEventFilter(this);
}

void NVPopupMenu::DestroySubClass()
{
    m_isSubclassed = false;
    if (m_owner)
        m_owner->removeEventFilter(this);
}

bool NVPopupMenu::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ApplicationFontChange:
    case QEvent::FontChange:
    case QEvent::StyleChange:
        followSettings();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void NVPopupMenu::followSettings()
{
    if (m_metrics.isCurrent())
        return;
    m_metrics.ClearUp();
    m_metrics.GetMetrics();
    m_look.itemHeight = menuItemHeight(m_metrics.textHeight());
    changed(Change::Size);
}

void NVPopupMenu::changed(Change change)
{
    if (m_window)
        m_window->noteChange(change != Change::Look);
}

QRect NVPopupMenu::toScreen(const QRectF &twips) const
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const Twips measure =
        screen ? Twips(screen->logicalDotsPerInchX(), screen->logicalDotsPerInchY()) : Twips();
    const QRect pixels = measure.toPixels(twips);
    return {m_owner->mapToGlobal(pixels.topLeft()), pixels.size()};
}

int NVPopupMenu::ShowPopupMenu(double x, double y, const QRectF &exclude, bool keepLeft)
{
    return ShowPopupMenuAtIndex(x, y, 0, exclude, keepLeft);
}

int NVPopupMenu::ShowPopupMenuAtIndex(double x, double y, int lIndex, const QRectF &exclude, bool keepLeft)
{
    if (!m_owner)
        return 0;
    const QRect excluded = exclude.isEmpty() ? QRect() : toScreen(exclude);
    return show(subMenu(lIndex), toScreen(QRectF(x, y, 0, 0)).topLeft(), excluded, keepLeft);
}

int NVPopupMenu::ShowPopupAbsolute(int lLeftPixel, int lTopPixel, const QRect &exclude, bool keepLeft)
{
    return show(rootMenu(), {lLeftPixel, lTopPixel}, exclude, keepLeft);
}

int NVPopupMenu::show(MenuHandle menu, QPoint corner, const QRect &exclude, bool keepLeft)
{
    if (m_loop || !m_owner || itemsOf(menu).isEmpty())
        return 0;
    followSettings();
    const QPointer<NVPopupMenu> self(this);
    const QPointer<QWidget> owner(m_owner);
    QEventLoop loop;
    m_loop = &loop;
    m_chosenId = 0;
    emit EnterMenuLoop();
    if (self && openMenu(menu) && self && owner) {
        m_window = new MenuWindow(*this, menu, nullptr);
        connect(owner, &QObject::destroyed, m_window, &MenuWindow::closeAll);
        m_window->openAt(*owner, corner, exclude, !keepLeft);
        // Opening may have come to nothing by now, through what it told others.
        if (self && owner && m_window && m_window->isVisible())
            loop.exec();
    }
    // The owner may have taken this object with it.
    if (!self)
        return 0;
    closePopup();
    m_loop = nullptr;
    emit ExitMenuLoop();
    if (!self)
        return 0;
    const int chosen = m_chosenId != 0 && owner ? ItemForID(m_chosenId) : 0;
    if (chosen != 0 && m_isSubclassed)
        emit Click(chosen);
    return chosen;
}

bool NVPopupMenu::openMenu(MenuHandle menu)
{
    const QPointer<NVPopupMenu> self(this);
    const int parent = menu == rootMenu() ? 0 : ItemForID(menu);
    emit InitPopupMenu(parent);
    return self && !itemsOf(menu).isEmpty();
}

MenuWidths NVPopupMenu::measureMenu(MenuHandle menu)
{
    const QPointer<NVPopupMenu> self(this);
    const QVector<int> indexes = itemsOf(menu);
    const MenuWidths widths = menuWidths(items(), indexes, m_look.itemHeight, m_metrics);
    for (const int index : indexes) {
        const MenuItem *current = item(index);
        if (!current) // a host has removed items while it was asked
            break;
        const bool isRow = !current->isSeparator() && !current->Header;
        int width = isRow ? widths.row : kMenuRowWidth;
        int height = menuRowHeight(*current, m_look.itemHeight);
        if (current->OwnerDraw && isRow) {
            emit MeasureItem(index, width, height);
            if (!self)
                break;
        }
        setMeasured(index, width, height);
        setShortcutColumn(index, widths.shortcutColumn);
    }
    return widths;
}

void NVPopupMenu::drawRow(QPainter &painter, MenuPainter &menuPainter, int index, const MenuRow &row)
{
    const MenuItem *current = item(index);
    if (!current)
        return;
    const QPointer<NVPopupMenu> self(this);
    const MenuItem drawn = *current;
    bool doDefault = true;
    if (drawn.OwnerDraw) {
        const QRect &rect = row.rect;
        painter.save();
        emit DrawItem(&painter, index, rect.left(), rect.top(), rect.right() + 1, rect.bottom() + 1,
                      row.selected && !drawn.isPassive(), drawn.Checked, !drawn.Enabled, doDefault);
        painter.restore();
        if (!self)
            return;
    }
    if (doDefault) {
        menuPainter.paintBackground(painter, row);
        menuPainter.paintItem(painter, drawn, row);
    }
}

void NVPopupMenu::noteHighlight(int index)
{
    const MenuItem *current = item(index);
    if (current)
        emit ItemHighlight(index, current->isPassive(), current->Enabled);
    else
        emit MenuExit();
}

void NVPopupMenu::choose(int index)
{
    const MenuItem *current = item(index);
    if (!current || !m_loop)
        return;
    m_chosenId = current->id;
    closePopup();
}

void NVPopupMenu::closePopup()
{
    if (m_window && m_window->isVisible())
        m_window->closeAll(); // it calls noteClosed
    else if (m_window)
        m_window->deleteLater(); // it has come to nothing, and may still be at it
    m_window.clear();
}

void NVPopupMenu::noteClosed()
{
    m_window.clear();
    const QPointer<NVPopupMenu> self(this);
    emit MenuExit();
    if (self && m_loop)
        m_loop->quit();
}

void NVPopupMenu::EmulateMenuClick(qint32 ID)
{
    const int index = ItemForID(ID);
    const MenuItem *current = item(index);
    if (current && current->Enabled && !current->isPassive() && !current->hasSubMenu() && m_isSubclassed)
        emit Click(index);
}

} // namespace norvane
