#include "browser/CategoryBar.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace norvane {

CategoryBar::CategoryBar(QWidget *parent) : QTabBar(parent)
{
    setObjectName(QStringLiteral("tbCat"));
    setAccessibleName(tr("Categories"));
    setShape(QTabBar::RoundedSouth);
    setExpanding(false);
    setDrawBase(false);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideNone);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QTabBar::currentChanged, this, &CategoryBar::tabClick);
}

void CategoryBar::setTabs(const QVector<CategoryTab> &tabs)
{
    const QString selected = tabData(currentIndex()).toString();
    {
        const QSignalBlocker quiet(this);
        while (count() > 0)
            removeTab(0);
        for (const CategoryTab &tab : tabs)
            setTabData(addTab(tab.caption), tab.key);
        for (int index = 0; index < count(); ++index) {
            if (tabData(index) == selected)
                setCurrentIndex(index);
        }
    }
    updateGeometry(); // a hidden bar keeps the height of its last tabs
    if (tabData(currentIndex()).toString() != selected)
        emit tabClick();
}

int CategoryBar::filter() const
{
    return filterOfKey(tabData(currentIndex()).toString());
}

QString CategoryBar::filterName() const
{
    return nameOfCaption(tabText(currentIndex()));
}

void CategoryBar::selectFilter(int filter)
{
    for (int index = 0; index < count(); ++index) {
        if (tabData(index) == keyOfFilter(filter)) {
            if (index == currentIndex())
                emit tabClick();
            else
                setCurrentIndex(index);
            return;
        }
    }
}

void CategoryBar::setBarStyle(int style)
{
    m_style = style == kTabs ? kTabs : kButtons;
    update();
}

QSize CategoryBar::minimumSizeHint() const
{
    // Else many or long names would hold the window open.
    return {fontMetrics().averageCharWidth() * 12, QTabBar::minimumSizeHint().height()};
}

void CategoryBar::paintEvent(QPaintEvent *event)
{
    if (m_style == kTabs) {
        QTabBar::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    for (int index = 0; index < count(); ++index) {
        const QRect tab = tabRect(index);
        if (!event->rect().intersects(tab))
            continue;
        QStyleOptionToolButton option;
        option.initFrom(this);
        option.rect = tab.adjusted(1, 1, -1, -1);
        option.text = tabText(index);
        option.toolButtonStyle = Qt::ToolButtonTextOnly;
        option.subControls = QStyle::SC_ToolButton;
        option.state.setFlag(QStyle::State_AutoRaise);
        option.state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
        option.state.setFlag(QStyle::State_MouseOver,
                             underMouse() && tab.contains(mapFromGlobal(QCursor::pos())));
        option.state.setFlag(QStyle::State_On, index == currentIndex());
        option.state.setFlag(QStyle::State_Raised, index != currentIndex());
        painter.drawComplexControl(QStyle::CC_ToolButton, option);
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.rect = option.rect.adjusted(3, 3, -3, -3);
            painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
        }
    }
}

void CategoryBar::mouseReleaseEvent(QMouseEvent *event)
{
    QTabBar::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton)
        emit menuAsked(event->globalPosition().toPoint(),
                       event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier));
}

void CategoryBar::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept(); // the button's release opens the menu
    if (event->reason() == QContextMenuEvent::Keyboard)
        emit menuAsked(mapToGlobal(tabRect(currentIndex()).center()), false);
}

} // namespace norvane
