#include "controls/gridview/GridPainter.h"

#include "controls/ImageList.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QTextLayout>

namespace norvane {

namespace {

constexpr int kCellPadding = 4;
constexpr int kIconSpacing = 4;

/// The icons that a cell shows, in their order.
QVector<QIcon> cellIcons(const CellContent &cell, const ImageList *images,
                         const std::function<QIcon(const QString &)> &shellIcons)
{
    QVector<QIcon> icons;
    if (cell.icon >= 0 && images)
        icons.append(images->icon(cell.icon));
    if (cell.extraIcon == kShellIcon && shellIcons)
        icons.append(shellIcons(cell.itemData.toString()));
    else if (cell.extraIcon >= 0 && images)
        icons.append(images->icon(cell.extraIcon));
    icons.removeIf([](const QIcon &icon) { return icon.isNull(); });
    return icons;
}

QSize iconSize(const ImageList *images)
{
    return images ? images->iconSize() : QSize(16, 16);
}

bool wraps(qint16 align)
{
    return (align & kAlignWordBreak) != 0;
}

/// Line breaks would show as a box on the one line of a cell.
QString oneLine(QString text)
{
    for (QChar &unit : text) {
        if (unit == u'\n' || unit == u'\r' || unit == u'\t' || unit == QChar::LineSeparator ||
            unit == QChar::ParagraphSeparator)
            unit = u' ';
    }
    return text;
}

int horizontalAlignment(qint16 align)
{
    switch (align & kAlignHorizontalMask) {
    case kAlignCenter:
        return Qt::AlignHCenter;
    case kAlignRight:
        return Qt::AlignRight;
    default:
        return Qt::AlignLeft;
    }
}

} // namespace

GridPainter::GridPainter(const vbalGrid &grid, QPainter &painter)
    : m_grid(grid), m_painter(painter), m_plain(grid.colors(false)), m_selected(grid.colors(true)),
      m_left(grid.horizontalScrollBar()->value()), m_top(grid.verticalScrollBar()->value())
{
}

void GridPainter::paint(const QRect &exposed)
{
    fillBack(exposed);
    int row = m_grid.rowAt(exposed.top() + m_top);
    for (; row != 0; row = m_grid.visibleRow(row + 1, 1)) {
        if (m_grid.rowTop(row) - m_top > exposed.bottom())
            break;
        drawRow(row, exposed);
    }
    drawFocus();
}

void GridPainter::fillBack(const QRect &exposed)
{
    m_painter.fillRect(exposed, m_plain.back);
    const QSize tile(m_grid.BackgroundPictureWidth(), m_grid.BackgroundPictureHeight());
    if (tile.width() <= 0 || tile.height() <= 0)
        return;
    for (int y = -(m_top % tile.height()); y < m_grid.viewport()->height(); y += tile.height()) {
        for (int x = -(m_left % tile.width()); x < m_grid.viewport()->width(); x += tile.width())
            m_painter.drawPixmap(m_grid.onScreen({QPoint(x, y), tile}), m_grid.BackgroundPicture());
    }
}

void GridPainter::drawRow(int row, const QRect &exposed)
{
    const int top = m_grid.rowTop(row) - m_top;
    const int height = m_grid.RowHeight(row);
    const auto &places = m_grid.places();
    const bool isGroup = m_grid.RowIsGroup(row);
    for (const vbalGrid::Place &place : places) {
        QRect cell(place.left - m_left, top, place.width, height);
        // The text of a group row runs from its column to the end.
        const bool runs = isGroup && place.column == m_grid.RowGroupStartColumn(row);
        if (runs)
            cell.setWidth(m_grid.columnsWidth() - place.left);
        const QRect shown = m_grid.onScreen(cell);
        if (shown.intersects(exposed))
            drawCell(row, place, shown);
        if (runs)
            break;
    }
    if (m_grid.GridLines()) {
        const QRect all = m_grid.onScreen({-m_left, top, m_grid.columnsWidth(), height});
        m_painter.fillRect(all.left(), all.bottom(), all.width(), 1, m_plain.line);
    }
}

void GridPainter::drawCell(int row, const vbalGrid::Place &place, const QRect &cell)
{
    const CellContent content = m_grid.cellContent(row, place.column);
    const bool isSelected = m_grid.CellSelected(row, place.column);
    const QColor paper = isSelected ? m_selected.selectedBack : cellPaper(content.backColor, m_plain.back);
    if (isSelected || (content.backColor >= 0 && paper != m_plain.back))
        m_painter.fillRect(cell, paper);
    QColor ink = m_selected.selectedInk;
    if (!isSelected) {
        ink = m_grid.isEnabled() ? cellColor(content.foreColor, m_plain.ink) : m_plain.ink;
        ink = m_grid.isEnabled() ? readableInk(ink, paper) : ink;
    }

    const QString text = m_grid.CellFormattedText(row, place.column);
    const bool isRightToLeft = m_grid.isRightToLeft();
    QRect room = cell.adjusted(kCellPadding, 0, -kCellPadding, -1);
    room.adjust(isRightToLeft ? 0 : content.indent, 0, isRightToLeft ? -content.indent : 0, 0);
    if (room.width() > 0) {
        const bool isCentered = text.isEmpty() && (content.align & kAlignHorizontalMask) == kAlignCenter;
        // Narrow columns of icons have no room to give away.
        room = drawIcons(row, place.column, isCentered ? cell.adjusted(0, 0, -1, -1) : room, isSelected,
                         isCentered);
        if (!text.isEmpty() && room.width() > 0)
            drawText(text, row, place.column, room, ink);
    }
    if (m_grid.GridLines()) {
        const int end = isRightToLeft ? cell.left() : cell.right();
        m_painter.fillRect(end, cell.top(), 1, cell.height(), m_plain.line);
    }
}

QRect GridPainter::drawIcons(int row, int column, QRect room, bool isSelected, bool isCentered)
{
    const QVector<QIcon> icons =
        cellIcons(m_grid.cellContent(row, column), m_grid.m_images, m_grid.m_shellIcons);
    if (icons.isEmpty())
        return room;
    const QSize size = iconSize(m_grid.m_images);
    QIcon::Mode mode = QIcon::Normal;
    if (!m_grid.isEnabled() && m_grid.DisableIcons())
        mode = QIcon::Disabled;
    else if (isSelected && m_grid.HighlightSelectedIcons())
        mode = QIcon::Selected;
    m_painter.save();
    m_painter.setClipRect(room, Qt::IntersectClip);
    for (const QIcon &icon : icons) {
        QRect place =
            QStyle::alignedRect(m_grid.layoutDirection(), Qt::AlignLeading | Qt::AlignVCenter, size, room);
        if (isCentered)
            place = QStyle::alignedRect(m_grid.layoutDirection(), Qt::AlignCenter, size, room);
        icon.paint(&m_painter, place, Qt::AlignCenter, mode);
        if (m_grid.isRightToLeft())
            room.setRight(place.left() - kIconSpacing);
        else
            room.setLeft(place.right() + kIconSpacing);
    }
    m_painter.restore();
    return room;
}

void GridPainter::drawText(const QString &text, int row, int column, const QRect &room, const QColor &ink)
{
    const qint16 align = m_grid.CellTextAlign(row, column);
    m_painter.setFont(m_grid.CellFont(row, column));
    m_painter.setPen(ink);
    const auto horizontal =
        Qt::AlignAbsolute | QStyle::visualAlignment(m_grid.layoutDirection(),
                                                    static_cast<Qt::Alignment>(horizontalAlignment(align)));
    // Addresses, numbers and foreign titles run as they are written, whatever the desktop's direction.
    const int direction = text.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
    if (wraps(align)) {
        const int flags = static_cast<int>(horizontal | Qt::AlignTop) | direction | Qt::TextWordWrap;
        m_painter.drawText(room, flags, text);
        return;
    }
    // No unit is narrower than a pixel on average, so that what is cut off first does not show.
    const QString shown =
        m_painter.fontMetrics().elidedText(oneLine(text.left(room.width())), Qt::ElideRight, room.width());
    const int flags = static_cast<int>(horizontal | Qt::AlignVCenter) | direction | Qt::TextSingleLine;
    m_painter.drawText(room, flags, shown);
}

void GridPainter::drawFocus()
{
    const int row = m_grid.SelectedRow();
    if (row == 0 || !m_grid.DrawFocusRectangle() || !m_grid.hasFocus() || !m_grid.RowVisible(row))
        return;
    QRect focus(-m_left, m_grid.rowTop(row) - m_top, m_grid.columnsWidth(), m_grid.RowHeight(row) - 1);
    focus = m_grid.onScreen(focus).intersected(m_grid.viewport()->rect().adjusted(-2, -40, 2, 40));
    if (!m_grid.RowMode())
        focus = m_grid.CellBoundary(row, m_grid.SelectedCol()).adjusted(0, 0, -1, -1);
    if (focus.isEmpty())
        return;
    const bool isSelected = m_grid.CellSelected(row, std::max(1, m_grid.SelectedCol()));
    const QColor paper = isSelected ? m_selected.selectedBack : m_plain.back;
    const QColor ink = isSelected ? m_selected.selectedInk : m_plain.ink;
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(QPen(mixed(paper, ink, 0.75), 1, Qt::DotLine));
    m_painter.drawRect(focus.adjusted(0, 0, -1, -1));
}

QSize GridPainter::neededSize(const vbalGrid &grid, int row, int column, int width)
{
    const CellContent content = grid.cellContent(row, column);
    const QVector<QIcon> icons = cellIcons(content, grid.m_images, grid.m_shellIcons);
    const QSize icon = icons.isEmpty() ? QSize(0, 0) : iconSize(grid.m_images);
    const int beside =
        2 * kCellPadding + content.indent + static_cast<int>(icons.size()) * (icon.width() + kIconSpacing);
    const QFontMetrics metrics(grid.CellFont(row, column));
    const QString text = grid.CellFormattedText(row, column);
    QSize needed(metrics.horizontalAdvance(oneLine(text)) + 1, metrics.height());
    if (wraps(content.align))
        needed = metrics
                     .boundingRect(QRect(0, 0, std::max(1, width - beside), QWIDGETSIZE_MAX),
                                   Qt::TextWordWrap, text)
                     .size();
    return {needed.width() + beside, std::max(needed.height(), icon.height()) + 2};
}

} // namespace norvane
