#include "richtext/ParagraphPainter.h"

#include "richtext/format_conversion.h"
#include "richtext/format_properties.h"
#include "richtext/rtf/list_numbers.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextTable>
#include <optional>

namespace norvane {
namespace {

constexpr double kGap = 3; ///< pixels at least between a mark and its text

/// Where the painting of a part of the document begins: a row of a table begins with its first cell.
QTextBlock firstBlock(const QTextDocument &document, double top)
{
    const int position = document.documentLayout()->hitTest(QPointF(0, top), Qt::FuzzyHit);
    const QTextBlock block = document.findBlock(qMax(0, position));
    QTextTable *outermost = nullptr;
    for (QTextFrame *frame = QTextCursor(block).currentFrame(); frame; frame = frame->parentFrame()) {
        if (auto *table = qobject_cast<QTextTable *>(frame))
            outermost = table;
    }
    if (!outermost)
        return block;
    const QTextTableCell cell = outermost->cellAt(block.position());
    return cell.isValid() ? document.findBlock(outermost->cellAt(cell.row(), 0).firstPosition()) : block;
}

bool isInTable(const QTextBlock &block)
{
    return QTextCursor(block).currentTable();
}

QTextCharFormat firstFormat(const QTextBlock &block)
{
    const auto first = block.begin();
    return first.atEnd() ? block.charFormat() : first.fragment().charFormat();
}

Qt::PenStyle penStyle(rtf::BorderStyle style)
{
    switch (style) {
    case rtf::BorderStyle::Dotted:
        return Qt::DotLine;
    case rtf::BorderStyle::Dashed:
        return Qt::DashLine;
    case rtf::BorderStyle::DashDot:
        return Qt::DashDotLine;
    case rtf::BorderStyle::DashDotDot:
        return Qt::DashDotDotLine;
    default:
        return Qt::SolidLine;
    }
}

bool isDouble(rtf::BorderStyle style)
{
    return style == rtf::BorderStyle::Double || style == rtf::BorderStyle::Triple;
}

/// A line at one side of a box.
void paintBorder(QPainter &painter, const rtf::Border &border, rtf::Side side, const QRectF &box,
                 const QColor &ink)
{
    if (border.style == rtf::BorderStyle::None)
        return;
    const double width = qMax(1.0, border.width / twipsPerPixel());
    QPen pen(border.color && *border.color != 0 ? QColor(QRgb(*border.color)) : ink, width,
             penStyle(border.style), Qt::FlatCap);
    painter.setPen(pen);
    const int lines = isDouble(border.style) ? 2 : 1;
    for (int line = 0; line < lines; ++line) {
        const double out = line * 2 * width;
        const QRectF around = box.adjusted(-out, -out, out, out);
        switch (side) {
        case rtf::Side::Top:
            painter.drawLine(around.topLeft(), around.topRight());
            break;
        case rtf::Side::Left:
            painter.drawLine(around.topLeft(), around.bottomLeft());
            break;
        case rtf::Side::Bottom:
            painter.drawLine(around.bottomLeft(), around.bottomRight());
            break;
        case rtf::Side::Right:
            painter.drawLine(around.topRight(), around.bottomRight());
            break;
        }
    }
}

/// Paragraphs of equal borders stand in one box.
bool shareBox(const QTextBlock &one, const QTextBlock &other)
{
    if (!one.isValid() || !other.isValid())
        return false;
    const QTextBlockFormat left = one.blockFormat();
    const QTextBlockFormat right = other.blockFormat();
    return left.property(kBordersProperty) == right.property(kBordersProperty) &&
           left.leftMargin() == right.leftMargin() && left.rightMargin() == right.rightMargin();
}

void paintBorders(QPainter &painter, const QTextBlock &block, const QRectF &lines, const QColor &ink)
{
    const auto borders = block.blockFormat().property(kBordersProperty).value<rtf::Borders>();
    const double pixel = twipsPerPixel();
    const bool joinsAbove = shareBox(block.previous(), block);
    const bool joinsBelow = shareBox(block, block.next());
    const double below =
        joinsBelow ? block.blockFormat().bottomMargin() + block.next().blockFormat().topMargin() : 0;
    const auto space = [&](rtf::Side side) { return borders[side].space / pixel; };
    const QRectF box =
        lines.adjusted(-space(rtf::Side::Left), joinsAbove ? 0 : -space(rtf::Side::Top),
                       space(rtf::Side::Right), below + (joinsBelow ? 0 : space(rtf::Side::Bottom)));
    for (const rtf::Side side : rtf::kSides) {
        const bool isInside =
            (side == rtf::Side::Top && joinsAbove) || (side == rtf::Side::Bottom && joinsBelow);
        if (!isInside)
            paintBorder(painter, borders[side], side, box, ink);
    }
}

} // namespace

void ParagraphPainter::count(const QTextDocument &document)
{
    if (m_document == &document && m_revision == document.revision())
        return;
    m_document = &document;
    m_revision = document.revision();
    m_marks.clear();
    // Many paragraphs share few formats: look at each once.
    const rtf::ParagraphFormat noItem;
    QHash<int, std::optional<rtf::ParagraphFormat>> items;
    rtf::ListCounter counter;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        auto known = items.find(block.blockFormatIndex());
        if (known == items.end()) {
            const bool isItem = block.blockFormat().hasProperty(kListItemProperty);
            known = items.insert(block.blockFormatIndex(),
                                 isItem ? std::optional(paragraphFormat(block)) : std::nullopt);
        }
        const std::vector<int> &numbers = counter.next(*known ? **known : noItem);
        if (*known)
            m_marks.insert(block.blockNumber(), rtf::markText((*known)->item, numbers));
    }
}

QString ParagraphPainter::markOf(const QTextBlock &block)
{
    count(*block.document());
    return m_marks.value(block.blockNumber());
}

void ParagraphPainter::paint(QPainter &painter, const QTextDocument &document, const QRectF &clip,
                             const QColor &ink)
{
    count(document);
    QAbstractTextDocumentLayout *layout = document.documentLayout();
    painter.save();
    for (QTextBlock block = firstBlock(document, clip.top()); block.isValid(); block = block.next()) {
        const QRectF lines = layout->blockBoundingRect(block);
        if (lines.top() > clip.bottom() && !isInTable(block))
            break;
        if (lines.bottom() < clip.top() || lines.top() > clip.bottom() || block.layout()->lineCount() == 0)
            continue;
        if (block.blockFormat().hasProperty(kBordersProperty))
            paintBorders(painter, block, lines.translated(block.layout()->boundingRect().left(), 0), ink);
        if (block.blockFormat().hasProperty(kListItemProperty))
            paintMark(painter, block, lines.topLeft(), ink);
    }
    painter.restore();
}

void ParagraphPainter::paintMark(QPainter &painter, const QTextBlock &block, const QPointF &origin,
                                 const QColor &ink)
{
    const QTextBlockFormat format = block.blockFormat();
    const auto item = format.property(kListItemProperty).value<rtf::ListItem>();
    QString text = m_marks.value(block.blockNumber());
    if (text.isEmpty())
        return;
    const rtf::ListLevel &level = *item.format();
    // Some writers forget that the sign of that number was one of the font Symbol.
    if (level.style == rtf::kBulletSign && text == u"\u00B7")
        text = u"\u2022"_qs;
    const QTextCharFormat characters = firstFormat(block);
    QFont font = characters.font();
    font.setUnderline(false);
    if (!level.font.isEmpty() && !isShownByOthers(level.font, level.symbol))
        font.setFamilies({level.font});
    if (QPaintDevice *device = block.document()->documentLayout()->paintDevice())
        font = QFont(font, device);

    const QTextLine line = block.layout()->lineAt(0);
    const QRectF textRect = line.naturalTextRect().translated(origin);
    const double room = firstLineRoom(format.intProperty(kFirstIndentProperty)) / twipsPerPixel();
    const double width = QFontMetricsF(font).horizontalAdvance(text);
    const bool isRightToLeft = block.textDirection() == Qt::RightToLeft;
    // The mark begins where the first line does, unless it would run into the text.
    double offset = room;
    if (level.alignment == 1)
        offset += width / 2;
    else if (level.alignment == 2)
        offset += width;
    offset = qMax(offset, width + kGap);
    const double x = isRightToLeft ? textRect.right() + offset - width : qMax(0.0, textRect.left() - offset);
    painter.setFont(font);
    painter.setPen(characters.foreground().style() == Qt::NoBrush ? ink : characters.foreground().color());
    painter.drawText(QPointF(x, origin.y() + line.y() + line.ascent()), text);
}

} // namespace norvane
