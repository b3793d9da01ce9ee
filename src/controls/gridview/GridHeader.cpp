#include "controls/gridview/GridHeader.h"

#include "controls/ImageList.h"
#include "controls/gridview/vbalGrid.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionHeader>
#include <QStylePainter>

namespace norvane {

namespace {

constexpr int kGrip = 5;          // how near to an end of a header counts
constexpr int kLeastDragged = 12; // a column is not dragged away to nothing
constexpr int kFlatPadding = 4;

} // namespace

GridHeader::GridHeader(vbalGrid *grid) : QWidget(grid), m_grid(grid)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
}

int GridHeader::fullHeight() const
{
    if (m_grid->HeaderHeight() > 0)
        return m_grid->HeaderHeight();
    QStyleOptionHeader option;
    option.initFrom(this);
    option.text = QStringLiteral("Ay");
    const int ofStyle = style()->sizeFromContents(QStyle::CT_HeaderSection, &option, {}, this).height();
    return std::max(ofStyle, fontMetrics().height() + 6);
}

QRect GridHeader::section(int column) const
{
    for (const vbalGrid::Place &place : m_grid->places()) {
        if (place.column == column)
            return QStyle::visualRect(
                layoutDirection(), rect(),
                {place.left - m_grid->horizontalScrollBar()->value(), 0, place.width, height()});
    }
    return {};
}

QStyleOptionHeader GridHeader::option(int column) const
{
    QStyleOptionHeader option;
    option.initFrom(this);
    option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    option.state |= QStyle::State_Horizontal | QStyle::State_Raised;
    option.orientation = Qt::Horizontal;
    option.section = column;
    option.rect = section(column);
    const qint16 align = m_grid->ColumnAlign(column) & kAlignHorizontalMask;
    option.textAlignment = Qt::AlignVCenter | (align == kAlignCenter  ? Qt::AlignHCenter
                                               : align == kAlignRight ? Qt::AlignRight
                                                                      : Qt::AlignLeft);
    option.text = m_grid->ColumnHeader(column);
    if (m_grid->headerImageList())
        option.icon = m_grid->headerImageList()->icon(m_grid->ColumnImage(column));
    option.iconAlignment = Qt::AlignVCenter;
    if (m_grid->ColumnSortOrder(column) == kSortAscending)
        option.sortIndicator = QStyleOptionHeader::SortDown;
    else if (m_grid->ColumnSortOrder(column) == kSortDescending)
        option.sortIndicator = QStyleOptionHeader::SortUp;
    const auto &places = m_grid->places();
    option.position = places.size() == 1                ? QStyleOptionHeader::OnlyOneSection
                      : places.first().column == column ? QStyleOptionHeader::Beginning
                      : places.last().column == column  ? QStyleOptionHeader::End
                                                        : QStyleOptionHeader::Middle;
    const bool canClick = m_grid->HeaderButtons() && isEnabled();
    if (canClick && m_pressed == column && !m_isDragged && columnAt(mapFromGlobal(QCursor::pos())) == column)
        option.state |= QStyle::State_Sunken;
    if (canClick && m_grid->HeaderHotTrack() && m_hovered == column && m_pressed == 0)
        option.state |= QStyle::State_MouseOver;
    return option;
}

int GridHeader::neededWidth(int column) const
{
    QStyleOptionHeader shown = option(column);
    shown.sortIndicator = QStyleOptionHeader::SortDown;
    return style()->sizeFromContents(QStyle::CT_HeaderSection, &shown, {}, this).width() + kFlatPadding;
}

void GridHeader::paintEvent(QPaintEvent *event)
{
    QStylePainter painter(this);
    painter.fillRect(rect(), palette().button());
    if (!m_grid->HeaderFlat()) {
        QStyleOptionHeader empty;
        empty.initFrom(this);
        empty.state |= QStyle::State_Horizontal | QStyle::State_Raised;
        empty.position = QStyleOptionHeader::End;
        painter.drawControl(QStyle::CE_HeaderEmptyArea, empty);
    }
    for (const vbalGrid::Place &place : m_grid->places()) {
        QStyleOptionHeader shown = option(place.column);
        if (!shown.rect.intersects(event->rect()) || place.width == 0)
            continue;
        if (!m_grid->HeaderFlat())
            painter.drawControl(QStyle::CE_HeaderSection, shown);
        const bool isSorted = shown.sortIndicator != QStyleOptionHeader::None;
        QRect room = shown.rect.adjusted(kFlatPadding, 0, -kFlatPadding, 0);
        if (isSorted) {
            QStyleOptionHeader arrow = shown;
            arrow.rect = style()->subElementRect(QStyle::SE_HeaderArrow, &shown, this);
            painter.drawPrimitive(QStyle::PE_IndicatorHeaderArrow, arrow);
            if (isRightToLeft())
                room.setLeft(arrow.rect.right() + kFlatPadding);
            else
                room.setRight(arrow.rect.left() - kFlatPadding);
        }
        shown.rect = room;
        const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
        // Where there is room for the arrow alone, a slice of an icon says nothing.
        if (!shown.icon.isNull() && !(isSorted && room.width() < size)) {
            // An icon without text stands where the text would.
            const bool onRight = m_grid->ColumnImageOnRight(place.column);
            if (shown.text.isEmpty() && !isSorted)
                room = option(place.column).rect;
            Qt::Alignment side = onRight ? Qt::AlignRight : Qt::AlignLeft;
            if (shown.text.isEmpty())
                side = shown.textAlignment & Qt::AlignHorizontal_Mask;
            const QRect icon =
                QStyle::alignedRect(layoutDirection(), side | Qt::AlignVCenter, {size, size}, room);
            painter.setClipRect(room);
            shown.icon.paint(&painter, icon, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
            painter.setClipping(false);
            if (onRight != isRightToLeft())
                shown.rect.setRight(icon.left() - kFlatPadding);
            else
                shown.rect.setLeft(icon.right() + kFlatPadding);
        }
        if (shown.text.isEmpty() || shown.rect.width() <= 0)
            continue;
        const QString text =
            fontMetrics().elidedText(shown.text.simplified(), Qt::ElideRight, shown.rect.width());
        const auto align = QStyle::visualAlignment(layoutDirection(), shown.textAlignment);
        style()->drawItemText(&painter, shown.rect, static_cast<int>(align) | Qt::TextSingleLine, palette(),
                              isEnabled(), text, QPalette::ButtonText);
    }
    if (m_isDragged)
        drawDropMark(painter);
}

void GridHeader::drawDropMark(QPainter &painter) const
{
    const int order = dropOrder();
    const auto &places = m_grid->places();
    int x = m_grid->columnsWidth();
    for (const vbalGrid::Place &place : places) {
        if (m_grid->ColumnOrder(place.column) == order)
            x = m_grid->ColumnOrder(m_pressed) < order ? place.left + place.width : place.left;
    }
    x -= m_grid->horizontalScrollBar()->value();
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), {x - 1, 0, 3, height()}),
                     palette().highlight());
}

int GridHeader::along(QPoint point) const
{
    const int fromStart = isRightToLeft() ? width() - 1 - point.x() : point.x();
    return fromStart + m_grid->horizontalScrollBar()->value();
}

int GridHeader::columnAt(QPoint point) const
{
    const int x = along(point);
    for (const vbalGrid::Place &place : m_grid->places()) {
        if (x >= place.left && x < place.left + place.width)
            return place.column;
    }
    return 0;
}

int GridHeader::endAt(QPoint point) const
{
    const int x = along(point);
    int found = 0;
    // The last one that ends there, so that a column without width can be had back.
    for (const vbalGrid::Place &place : m_grid->places()) {
        if (std::abs(x - (place.left + place.width)) < kGrip)
            found = place.column;
    }
    return found;
}

int GridHeader::dropOrder() const
{
    const auto &places = m_grid->places();
    const int x = along(m_draggedTo);
    if (x < 0)
        return m_grid->ColumnOrder(places.first().column);
    const int over = columnAt(m_draggedTo);
    return m_grid->ColumnOrder(over != 0 ? over : places.last().column);
}

void GridHeader::hover(QPoint point)
{
    const int end = endAt(point);
    if (end != m_askedEnd) {
        m_askedEnd = end;
        m_mayChange = end != 0 && m_grid->startsWidth(end);
    }
    if (m_mayChange)
        setCursor(Qt::SplitHCursor);
    else
        unsetCursor();
    const int over = m_mayChange ? 0 : columnAt(point);
    if (over == m_hovered)
        return;
    m_hovered = over;
    update();
}

void GridHeader::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint point = event->position().toPoint();
    m_askedEnd = 0;
    hover(point);
    m_pressedAt = m_draggedTo = point;
    m_isDragged = false;
    if (m_mayChange) {
        m_sized = m_askedEnd;
        for (const vbalGrid::Place &place : m_grid->places()) {
            if (place.column == m_sized)
                m_grip = place.left + place.width - along(point);
        }
    } else {
        m_pressed = columnAt(point);
        update();
    }
}

void GridHeader::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint point = event->position().toPoint();
    if (m_sized != 0) {
        for (const vbalGrid::Place &place : m_grid->places()) {
            if (place.column == m_sized) {
                m_grid->setColumnWidth(m_sized, std::max(kLeastDragged, along(point) + m_grip - place.left));
                break;
            }
        }
    } else if (m_pressed != 0) {
        m_draggedTo = point;
        if (m_grid->HeaderDragReOrderColumns() &&
            (point - m_pressedAt).manhattanLength() >= QApplication::startDragDistance())
            m_isDragged = true;
        update();
    } else {
        hover(point);
    }
}

void GridHeader::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint point = event->position().toPoint();
    const int sized = std::exchange(m_sized, 0);
    const int order = m_isDragged ? dropOrder() : 0;
    const int pressed = std::exchange(m_pressed, 0);
    m_isDragged = false;
    update();
    if (sized != 0)
        m_grid->endWidth(sized);
    else if (pressed != 0 && order != 0)
        m_grid->dropColumn(pressed, order);
    else if (pressed != 0 && rect().contains(point) && columnAt(point) == pressed)
        m_grid->clickColumn(pressed);
}

void GridHeader::mouseDoubleClickEvent(QMouseEvent *event)
{
    m_askedEnd = 0;
    hover(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !m_mayChange) {
        mousePressEvent(event); // a quick second click sorts once more
        return;
    }
    m_grid->AutoWidthColumn(m_askedEnd);
    m_grid->endWidth(m_askedEnd);
}

void GridHeader::leaveEvent(QEvent *)
{
    m_hovered = 0;
    m_askedEnd = 0;
    update();
}

} // namespace norvane
