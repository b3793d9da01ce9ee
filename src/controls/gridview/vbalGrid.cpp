#include "controls/gridview/vbalGrid.h"

#include "controls/DropTarget.h"
#include "controls/ImageList.h"
#include "controls/gridview/GridAccessible.h"
#include "controls/gridview/GridHeader.h"
#include "controls/gridview/GridPainter.h"

#include <QEvent>
#include <QMetaMethod>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

namespace norvane {

namespace {

constexpr int kWheelMilliseconds = 120;
// Of a very long column not every cell is measured, but those with the longest texts.
constexpr int kMostMeasured = 500;

} // namespace

vbalGrid::vbalGrid(QWidget *parent) : QAbstractScrollArea(parent), m_header(new GridHeader(this))
{
    installGridAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    m_scrolling.setDuration(kWheelMilliseconds);
    m_scrolling.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_scrolling, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { verticalScrollBar()->setValue(value.toInt()); });
    connect(verticalScrollBar(), &QScrollBar::sliderPressed, &m_scrolling, &QVariantAnimation::stop);
    const auto *drops = new DropTarget(
        viewport(), [this] { return isSignalConnected(QMetaMethod::fromSignal(&vbalGrid::Dropped)); });
    connect(drops, &DropTarget::dropped, this, &vbalGrid::Dropped);
    fitRowHeights();
}

vbalGrid::~vbalGrid() = default;

void vbalGrid::changed(Change change, int row, int column)
{
    if (change == Change::Selection)
        emit SelectionChange(SelectedRow(), SelectedCol());
    if (change != Change::Cell && change != Change::Selection && change != Change::Header)
        m_isLaidOut = false;
    if (!m_redraw)
        return;
    switch (change) {
    case Change::Cell:
        if (m_isLaidOut && isVisible())
            viewport()->update(RowIsGroup(row) ? viewport()->rect() : CellBoundary(row, column));
        break;
    case Change::Rows:
        layOutLater();
        tellRows();
        break;
    case Change::Columns:
        tellRows();
        [[fallthrough]];
    case Change::Width:
        layOutLater();
        [[fallthrough]];
    case Change::Header:
        m_header->update();
        break;
    case Change::Selection:
        viewport()->update();
        tellSelection();
        break;
    }
}

void vbalGrid::setRedraw(bool on)
{
    if (on == m_redraw)
        return;
    m_redraw = on;
    viewport()->setUpdatesEnabled(on);
    m_header->setUpdatesEnabled(on);
    if (on) {
        layOut();
        viewport()->update();
        m_header->update();
        tellRows();
    }
}

/// Takes the sizes of rows and columns over to the scroll bars.
void vbalGrid::layOut() const
{
    if (m_isLaidOut)
        return;
    m_isLaidOut = true;
    m_places.clear();
    int left = 0;
    for (const int column : visibleColumns()) {
        m_places.append({column, left, ColumnWidth(column)});
        left += ColumnWidth(column);
    }
    QScrollBar *const vertical = verticalScrollBar();
    QScrollBar *const horizontal = horizontalScrollBar();
    vertical->setSingleStep(DefaultRowHeight());
    horizontal->setSingleStep(DefaultRowHeight());
    // Showing one bar takes room that the other one had, and before the grid is on the screen no event
    // tells that.
    QSize room;
    for (int turn = 0; turn < 3 && room != viewport()->size(); ++turn) {
        room = viewport()->size();
        vertical->setPageStep(room.height());
        vertical->setRange(0, std::max(0, rowsHeight() - room.height()));
        horizontal->setPageStep(room.width());
        horizontal->setRange(0, std::max(0, left - room.width()));
    }
}

void vbalGrid::layOutLater()
{
    m_isLaidOut = false;
    if (m_isLayOutQueued)
        return;
    m_isLayOutQueued = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isLayOutQueued = false;
            if (!m_redraw)
                return;
            layOut();
            viewport()->update();
            m_header->update();
        },
        Qt::QueuedConnection);
}

void vbalGrid::resizeEvent(QResizeEvent *)
{
    const int height = m_hasHeader ? m_header->fullHeight() : 0;
    if (viewportMargins().top() != height)
        setViewportMargins(0, height, 0, 0);
    m_isLaidOut = false;
    layOut();
    const QRect view = viewport()->geometry();
    m_header->setGeometry(view.left(), view.top() - height, view.width(), height);
    m_header->setVisible(m_hasHeader);
}

void vbalGrid::scrollContentsBy(int dx, int dy)
{
    if (!m_redraw)
        return;
    if (m_background.isNull())
        viewport()->scroll(isRightToLeft() ? -dx : dx, dy);
    else
        viewport()->update();
    if (dx != 0)
        m_header->update();
}

void vbalGrid::paintEvent(QPaintEvent *event)
{
    layOut();
    QPainter painter(viewport());
    GridPainter(*this, painter).paint(event->rect());
}

void vbalGrid::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
        fitRowHeights();
        resizeEvent(nullptr);
        [[fallthrough]];
    case QEvent::PaletteChange:
    case QEvent::EnabledChange:
    case QEvent::LayoutDirectionChange:
    case QEvent::ActivationChange:
        lookChanged();
        break;
    default:
        break;
    }
}

void vbalGrid::CellDetails(int row, int column, const QVariant &text, qint16 textAlign, qint32 iconIndex,
                           qint32 backColor, qint32 foreColor, const std::optional<QFont> &font,
                           qint32 indent, qint32 extraIcon, const QVariant &itemData)
{
    setCellContent(row, column,
                   {text, textAlign, iconIndex, backColor, foreColor, font ? fontIndex(*font) : 0, indent,
                    extraIcon, itemData});
}

cGridCell vbalGrid::Cell(int row, int column) const
{
    const CellContent of = cellContent(row, column);
    return {of.text,   of.itemData,  of.align,     of.icon,        of.extraIcon,
            of.indent, of.backColor, of.foreColor, fontOf(of.font)};
}

void vbalGrid::setCell(int row, int column, const cGridCell &cell)
{
    CellDetails(row, column, cell.Text, cell.TextAlign, cell.IconIndex, cell.BackColor, cell.ForeColor,
                cell.Font, cell.Indent, cell.ExtraIconIndex, cell.ItemData);
}

cGridCell vbalGrid::NewCellFormatObject() const
{
    cGridCell cell;
    cell.Font = font();
    return cell;
}

QFont vbalGrid::CellFont(int row, int column) const
{
    return fontOf(cellFont(row, column));
}

void vbalGrid::setCellFont(int row, int column, const QFont &font)
{
    setCellFontIndex(row, column, fontIndex(font));
}

qint32 vbalGrid::fontIndex(const QFont &font)
{
    if (font == this->font())
        return 0;
    qsizetype index = m_fonts.indexOf(font);
    if (index < 0) {
        index = m_fonts.size();
        m_fonts.append(font);
    }
    return static_cast<qint32>(index) + 1;
}

QFont vbalGrid::fontOf(qint32 index) const
{
    return index < 1 ? font() : m_fonts.value(index - 1, font());
}

int vbalGrid::vScrollValue() const
{
    return verticalScrollBar()->value();
}

void vbalGrid::setVScrollValue(int value)
{
    layOut();
    m_scrolling.stop();
    verticalScrollBar()->setValue(value);
}

void vbalGrid::EnsureVisible(int row, int column)
{
    layOut();
    m_scrolling.stop();
    const auto scroll = [](QScrollBar *bar, int begin, int size, int room) {
        if (begin < bar->value() || size > room)
            bar->setValue(begin);
        else if (begin + size > bar->value() + room)
            bar->setValue(begin + size - room);
    };
    scroll(verticalScrollBar(), rowTop(row), RowVisible(row) ? RowHeight(row) : 0, viewport()->height());
    for (const Place &place : m_places) {
        if (place.column == column)
            scroll(horizontalScrollBar(), place.left, place.width, viewport()->width());
    }
}

QRect vbalGrid::onScreen(const QRect &logical) const
{
    return QStyle::visualRect(layoutDirection(), viewport()->rect(), logical);
}

const QVector<vbalGrid::Place> &vbalGrid::places() const
{
    layOut();
    return m_places;
}

int vbalGrid::columnsWidth() const
{
    layOut();
    return m_places.isEmpty() ? 0 : m_places.constLast().left + m_places.constLast().width;
}

std::pair<int, int> vbalGrid::CellFromPoint(QPoint point) const
{
    layOut();
    const int fromStart = isRightToLeft() ? viewport()->width() - 1 - point.x() : point.x();
    const int x = fromStart + horizontalScrollBar()->value();
    std::pair<int, int> cell{rowAt(point.y() + verticalScrollBar()->value()), 0};
    for (const Place &place : m_places) {
        if (x >= place.left && x < place.left + place.width)
            cell.second = place.column;
    }
    return cell;
}

QRect vbalGrid::CellBoundary(int row, int column) const
{
    layOut();
    for (const Place &place : m_places) {
        if (place.column == column && RowVisible(row))
            return onScreen({place.left - horizontalScrollBar()->value(),
                             rowTop(row) - verticalScrollBar()->value(), place.width, RowHeight(row)});
    }
    return {};
}

int vbalGrid::EvaluateTextWidth(int row, int column) const
{
    return GridPainter::neededSize(*this, row, column, QWIDGETSIZE_MAX).width();
}

int vbalGrid::EvaluateTextHeight(int row, int column) const
{
    return GridPainter::neededSize(*this, row, column, ColumnWidth(column)).height();
}

void vbalGrid::AutoWidthColumn(int column)
{
    QVector<std::pair<qsizetype, int>> rows; // by the length of their text, longest first
    for (int row = 1; row <= Rows(); ++row) {
        if (RowVisible(row))
            rows.append({-CellFormattedText(row, column).size(), row});
    }
    const auto measured = std::min<qsizetype>(rows.size(), kMostMeasured);
    std::partial_sort(rows.begin(), rows.begin() + measured, rows.end());
    int width = m_hasHeader ? m_header->neededWidth(column) : 0;
    for (const auto &[length, row] : rows.first(measured))
        width = std::max(width, EvaluateTextWidth(row, column));
    setColumnWidth(column, width);
}

void vbalGrid::AutoHeightRow(int row, int minimumHeight)
{
    int height = minimumHeight < 0 ? DefaultRowHeight() : minimumHeight;
    for (const Place &place : places())
        height = std::max(height, EvaluateTextHeight(row, place.column));
    setRowHeight(row, height);
}

void vbalGrid::clickColumn(int column)
{
    if (m_headerButtons)
        emit ColumnClick(column);
}

bool vbalGrid::startsWidth(int column)
{
    bool cancel = false;
    emit ColumnWidthStart(column, cancel);
    return !cancel;
}

void vbalGrid::endWidth(int column)
{
    int position = 0;
    for (const Place &place : places()) {
        if (place.column == column) {
            emit ColumnWidthChanged(position, column, ColumnWidth(column));
            return;
        }
        ++position;
    }
}

} // namespace norvane
