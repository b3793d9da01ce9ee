#include "richtext/table_conversion.h"

#include "richtext/format_conversion.h"
#include "richtext/format_properties.h"
#include "richtext/rtf/limits.h"

#include <QBrush>
#include <algorithm>

namespace norvane {
namespace {

/// Edges nearer than this, in twips, are meant to be one.
constexpr int kTolerance = 20;
/// Of tables that do not say how wide they are.
constexpr int kUsualWidth = 9'000;

QTextFrameFormat::BorderStyle borderStyle(rtf::BorderStyle style)
{
    switch (style) {
    case rtf::BorderStyle::None:
        return QTextFrameFormat::BorderStyle_None;
    case rtf::BorderStyle::Double:
    case rtf::BorderStyle::Triple:
        return QTextFrameFormat::BorderStyle_Double;
    case rtf::BorderStyle::Dotted:
        return QTextFrameFormat::BorderStyle_Dotted;
    case rtf::BorderStyle::Dashed:
    case rtf::BorderStyle::Wavy:
        return QTextFrameFormat::BorderStyle_Dashed;
    case rtf::BorderStyle::DashDot:
        return QTextFrameFormat::BorderStyle_DotDash;
    case rtf::BorderStyle::DashDotDot:
        return QTextFrameFormat::BorderStyle_DotDotDash;
    case rtf::BorderStyle::Inset:
        return QTextFrameFormat::BorderStyle_Inset;
    case rtf::BorderStyle::Outset:
        return QTextFrameFormat::BorderStyle_Outset;
    case rtf::BorderStyle::Single:
    case rtf::BorderStyle::Thick:
    case rtf::BorderStyle::Hairline:
        break;
    }
    return QTextFrameFormat::BorderStyle_Solid;
}

rtf::BorderStyle styleOf(QTextFrameFormat::BorderStyle style)
{
    switch (style) {
    case QTextFrameFormat::BorderStyle_None:
        return rtf::BorderStyle::None;
    case QTextFrameFormat::BorderStyle_Double:
        return rtf::BorderStyle::Double;
    case QTextFrameFormat::BorderStyle_Dotted:
        return rtf::BorderStyle::Dotted;
    case QTextFrameFormat::BorderStyle_Dashed:
        return rtf::BorderStyle::Dashed;
    case QTextFrameFormat::BorderStyle_DotDash:
        return rtf::BorderStyle::DashDot;
    case QTextFrameFormat::BorderStyle_DotDotDash:
        return rtf::BorderStyle::DashDotDot;
    case QTextFrameFormat::BorderStyle_Inset:
        return rtf::BorderStyle::Inset;
    case QTextFrameFormat::BorderStyle_Outset:
        return rtf::BorderStyle::Outset;
    default:
        return rtf::BorderStyle::Single;
    }
}

/// Pixels, at least one for a line that is there.
double lineWidth(const rtf::Border &border)
{
    if (border.style == rtf::BorderStyle::None)
        return 0;
    const double pixels = border.width / twipsPerPixel();
    const bool isDouble =
        border.style == rtf::BorderStyle::Double || border.style == rtf::BorderStyle::Triple;
    const double thick = border.style == rtf::BorderStyle::Thick ? 2 * pixels : pixels;
    return qMax(isDouble ? 3.0 : 1.0, isDouble ? 3 * pixels : thick);
}

std::vector<int> edgesOf(const rtf::RowFormat &row)
{
    std::vector<int> edges{row.left};
    for (const rtf::CellFormat &cell : row.cells)
        edges.push_back(cell.right);
    return edges;
}

/// The edges of all rows in order, those within the tolerance as one.
QList<int> commonEdges(const std::vector<const rtf::RowFormat *> &rows, int tolerance)
{
    std::vector<int> all;
    for (const rtf::RowFormat *row : rows) {
        const std::vector<int> edges = edgesOf(*row);
        all.insert(all.end(), edges.begin(), edges.end());
    }
    std::sort(all.begin(), all.end());
    QList<int> common;
    for (const int edge : all) {
        if (common.isEmpty() || edge > common.last() + tolerance)
            common.append(edge);
    }
    return common;
}

int columnOf(const QList<int> &edges, int edge)
{
    return int(std::upper_bound(edges.begin(), edges.end(), edge) - edges.begin()) - 1;
}

rtf::Border borderOf(double width, QTextFrameFormat::BorderStyle style, const QBrush &brush)
{
    rtf::Border border;
    if (width <= 0 || style == QTextFrameFormat::BorderStyle_None)
        return border;
    border.style = styleOf(style);
    border.width = qBound(1, qRound(width * twipsPerPixel()), 255);
    if (brush.style() != Qt::NoBrush && brush.color() != QColor(Qt::black))
        border.color = brush.color().rgb() & 0xFFFFFF;
    return border;
}

/// The look of a cell that has no format of ours: out of HTML.
rtf::CellFormat foreignCell(const QTextTableCell &cell, const QTextTableFormat &table)
{
    const QTextTableCellFormat format = cell.format().toTableCellFormat();
    rtf::CellFormat result;
    if (format.background().style() != Qt::NoBrush)
        result.background = format.background().color().rgb() & 0xFFFFFF;
    if (format.verticalAlignment() == QTextCharFormat::AlignMiddle)
        result.alignment = rtf::VerticalAlignment::Middle;
    else if (format.verticalAlignment() == QTextCharFormat::AlignBottom)
        result.alignment = rtf::VerticalAlignment::Bottom;
    const auto pad = [&](rtf::Side side, QTextFormat::Property property, double pixels) {
        if (format.hasProperty(property))
            result.padding[side] = qBound(0, qRound(pixels * twipsPerPixel()), rtf::kMaximumTwips);
    };
    pad(rtf::Side::Top, QTextFormat::TableCellTopPadding, format.topPadding());
    pad(rtf::Side::Left, QTextFormat::TableCellLeftPadding, format.leftPadding());
    pad(rtf::Side::Bottom, QTextFormat::TableCellBottomPadding, format.bottomPadding());
    pad(rtf::Side::Right, QTextFormat::TableCellRightPadding, format.rightPadding());
    const rtf::Border around =
        borderOf(table.border() > 0 ? 1 : 0, QTextFrameFormat::BorderStyle_Solid, table.borderBrush());
    result.borders[rtf::Side::Top] =
        format.hasProperty(QTextFormat::TableCellTopBorder)
            ? borderOf(format.topBorder(), format.topBorderStyle(), format.topBorderBrush())
            : around;
    result.borders[rtf::Side::Left] =
        format.hasProperty(QTextFormat::TableCellLeftBorder)
            ? borderOf(format.leftBorder(), format.leftBorderStyle(), format.leftBorderBrush())
            : around;
    result.borders[rtf::Side::Bottom] =
        format.hasProperty(QTextFormat::TableCellBottomBorder)
            ? borderOf(format.bottomBorder(), format.bottomBorderStyle(), format.bottomBorderBrush())
            : around;
    result.borders[rtf::Side::Right] =
        format.hasProperty(QTextFormat::TableCellRightBorder)
            ? borderOf(format.rightBorder(), format.rightBorderStyle(), format.rightBorderBrush())
            : around;
    return result;
}

/// Where columns begin and the last one ends, of tables that have no edges of ours.
QList<int> foreignEdges(const QTextTable &table)
{
    const QTextTableFormat format = table.format();
    const QList<QTextLength> widths = format.columnWidthConstraints();
    const int share = kUsualWidth / table.columns();
    QList<int> edges{0};
    for (int column = 0; column < table.columns(); ++column) {
        const QTextLength width = column < widths.size() ? widths.at(column) : QTextLength();
        int twips = share;
        if (width.type() == QTextLength::FixedLength && width.rawValue() > 0)
            twips = qRound(width.rawValue() * twipsPerPixel());
        else if (width.type() == QTextLength::PercentageLength && width.rawValue() > 0)
            twips = qRound(width.rawValue() * kUsualWidth / 100);
        const int left = edges.last();
        edges.append(qMax(left + rtf::kLeastCellWidth, qMin(left + twips, rtf::kMaximumTwips)));
    }
    return edges;
}

rtf::CellFormat cellOf(const QTextTableCell &cell, const QTextTableFormat &table)
{
    const QTextCharFormat format = cell.format();
    return format.hasProperty(kCellProperty) ? format.property(kCellProperty).value<rtf::CellFormat>()
                                             : foreignCell(cell, table);
}

} // namespace

TableGrid gridOf(const std::vector<const rtf::RowFormat *> &rows)
{
    TableGrid grid;
    for (const int tolerance : {kTolerance, 0}) {
        grid.edges = commonEdges(rows, tolerance);
        grid.rows.clear();
        bool everyCellHasPlace = true;
        for (const rtf::RowFormat *row : rows) {
            std::vector<TableGrid::Place> places;
            int column = columnOf(grid.edges, row->left);
            for (const rtf::CellFormat &cell : row->cells) {
                const int end = columnOf(grid.edges, cell.right);
                everyCellHasPlace = everyCellHasPlace && end > column;
                places.push_back({column, end - column});
                column = end;
            }
            grid.rows.push_back(std::move(places));
        }
        if (everyCellHasPlace)
            break;
    }
    return grid;
}

QTextTableFormat tableFormat(const TableGrid &grid, const rtf::RowFormat &first, int headerRows)
{
    const double pixel = twipsPerPixel();
    QTextTableFormat format;
    format.setBorder(0);
    format.setCellPadding(0);
    format.setCellSpacing(0);
    format.setBorderCollapse(true);
    format.setHeaderRowCount(headerRows);
    if (grid.edges.first() > 0)
        format.setLeftMargin(grid.edges.first() / pixel);
    if (first.alignment != rtf::RowAlignment::Left)
        format.setAlignment(first.alignment == rtf::RowAlignment::Center ? Qt::AlignHCenter : Qt::AlignRight);
    if (first.rightToLeft)
        format.setLayoutDirection(Qt::RightToLeft);
    QList<QTextLength> widths;
    for (int column = 0; column < grid.columns(); ++column)
        widths.append(QTextLength(QTextLength::FixedLength,
                                  (grid.edges.at(column + 1) - grid.edges.at(column)) / pixel));
    format.setColumnWidthConstraints(widths);
    format.setProperty(kEdgesProperty, QVariant::fromValue(grid.edges));
    return format;
}

QTextTableCellFormat cellFormat(const rtf::CellFormat &cell, const rtf::RowFormat &row)
{
    const double pixel = twipsPerPixel();
    QTextTableCellFormat format;
    format.setProperty(kCellProperty, QVariant::fromValue(cell));
    if (cell.background)
        format.setBackground(QColor(QRgb(*cell.background)));
    if (cell.alignment != rtf::VerticalAlignment::Top)
        format.setVerticalAlignment(cell.alignment == rtf::VerticalAlignment::Middle
                                        ? QTextCharFormat::AlignMiddle
                                        : QTextCharFormat::AlignBottom);
    const auto padding = [&](rtf::Side side, int usual) {
        return cell.padding[side].value_or(row.padding[side].value_or(usual)) / pixel;
    };
    format.setTopPadding(padding(rtf::Side::Top, 0));
    format.setBottomPadding(padding(rtf::Side::Bottom, 0));
    format.setLeftPadding(padding(rtf::Side::Left, row.gap));
    format.setRightPadding(padding(rtf::Side::Right, row.gap));

    const auto brush = [](const rtf::Border &border) {
        return QBrush(QColor(QRgb(border.color.value_or(0))));
    };
    const rtf::Border &top = cell.borders[rtf::Side::Top];
    const rtf::Border &left = cell.borders[rtf::Side::Left];
    const rtf::Border &bottom = cell.borders[rtf::Side::Bottom];
    const rtf::Border &right = cell.borders[rtf::Side::Right];
    format.setTopBorder(lineWidth(top));
    format.setTopBorderStyle(borderStyle(top.style));
    format.setTopBorderBrush(brush(top));
    format.setLeftBorder(lineWidth(left));
    format.setLeftBorderStyle(borderStyle(left.style));
    format.setLeftBorderBrush(brush(left));
    format.setBottomBorder(lineWidth(bottom));
    format.setBottomBorderStyle(borderStyle(bottom.style));
    format.setBottomBorderBrush(brush(bottom));
    format.setRightBorder(lineWidth(right));
    format.setRightBorderStyle(borderStyle(right.style));
    format.setRightBorderBrush(brush(right));
    return format;
}

bool isFiller(const QTextTableCell &cell)
{
    return cell.format().boolProperty(kFillerProperty);
}

rtf::RowFormat rowFormat(const QTextTable &table, int row, int firstColumn, int lastColumn)
{
    const QTextTableFormat format = table.format();
    QList<int> edges = format.property(kEdgesProperty).value<QList<int>>();
    if (edges.size() != table.columns() + 1)
        edges = foreignEdges(table);

    rtf::RowFormat result;
    QVector<rtf::CellFormat> cells;
    bool hasRow = false;
    int left = edges.at(firstColumn);
    for (int column = firstColumn; column <= lastColumn;) {
        const QTextTableCell cell = table.cellAt(row, column);
        const int end = qMin(cell.column() + cell.columnSpan(), lastColumn + 1);
        if (!hasRow && cell.row() == row && cell.format().hasProperty(kRowProperty)) {
            result = cell.format().property(kRowProperty).value<rtf::RowFormat>();
            hasRow = true;
        }
        if (!isFiller(cell)) {
            rtf::CellFormat own = cellOf(cell, format);
            own.right = edges.at(end);
            own.merge = cell.row() < row     ? rtf::VerticalMerge::Continued
                        : cell.rowSpan() > 1 ? rtf::VerticalMerge::First
                                             : rtf::VerticalMerge::None;
            cells.append(own);
        } else if (cells.isEmpty()) {
            left = edges.at(end);
        }
        column = end;
    }
    if (cells.isEmpty()) { // nothing but fillers: a row has a cell
        left = edges.at(firstColumn);
        cells.append(rtf::CellFormat());
        cells.last().right = edges.at(lastColumn + 1);
    }
    if (!hasRow) {
        result.header = row < format.headerRowCount();
        result.gap = qRound(format.cellPadding() * twipsPerPixel());
    }
    result.left = left;
    result.cells = cells;
    return result;
}

} // namespace norvane
