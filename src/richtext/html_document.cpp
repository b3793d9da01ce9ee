#include "richtext/html_document.h"

#include "richtext/document_reader.h"
#include "richtext/format_conversion.h"
#include "richtext/format_properties.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <algorithm>
#include <optional>

namespace norvane {
namespace {

/// A text document that loads nothing.
class Page : public QTextDocument
{
protected:
    QVariant loadResource(int type, const QUrl &) override
    {
        // An empty answer would let the base class, and the layout, look for files.
        if (type != ImageResource)
            return QString(u""_qs);
        QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
        nothing.fill(Qt::transparent);
        return nothing;
    }
};

bool isWhite(const QTextFormat &format)
{
    return format.hasProperty(QTextFormat::BackgroundBrush) && format.background().style() != Qt::NoBrush &&
           format.background().color() == QColor(Qt::white);
}

/// Black, white or nearly so on no ground of its own: the ink of the page. On another paper it might
/// not be seen.
bool isInk(const QTextCharFormat &format)
{
    constexpr int kDark = 0x50;
    constexpr int kLight = 0xE0;
    constexpr int kColorless = 0x10;
    if (format.foreground().style() == Qt::NoBrush || format.background().style() != Qt::NoBrush ||
        format.isAnchor())
        return false;
    const QColor color = format.foreground().color();
    const auto [least, most] = std::minmax({color.red(), color.green(), color.blue()});
    return most - least <= kColorless && (most <= kDark || least >= kLight);
}

/// Takes away what is the page's and not the text's; whether there was anything.
bool takeFromPage(QTextCharFormat &format)
{
    const QTextCharFormat before = format;
    if (isWhite(format))
        format.clearBackground();
    if (isInk(format))
        format.clearForeground();
    format.clearProperty(QTextFormat::TextUnderlineColor);
    return format != before;
}

/// A stretch of the page whose format is to be another.
struct Change
{
    int from = 0;
    int to = 0;
    QTextCharFormat format;
    std::optional<QString> text; ///< in its place
};

/// Pictures that are not here, and what words have of the page.
QList<Change> changesOf(const QTextDocument &page)
{
    QList<Change> changes;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            QTextCharFormat format = fragment.charFormat();
            const bool isOfPage = takeFromPage(format);
            const QTextImageFormat image = format.toImageFormat();
            const bool isAway =
                image.isValid() && !image.name().startsWith(u"data:image/", Qt::CaseInsensitive);
            if (!isOfPage && !isAway)
                continue;
            Change change{fragment.position(), fragment.position() + fragment.length(), format, {}};
            if (isAway) {
                change.text = image.stringProperty(QTextFormat::ImageAltText).simplified();
                QTextCharFormat words = format;
                for (const int property :
                     {int(QTextFormat::ObjectType), int(QTextFormat::ImageName), int(QTextFormat::ImageWidth),
                      int(QTextFormat::ImageHeight), int(QTextFormat::ImageAltText)})
                    words.clearProperty(property);
                change.format = words;
            }
            changes.append(change);
        }
    }
    return changes;
}

void apply(QTextDocument &page, const QList<Change> &changes)
{
    QTextCursor cursor(&page);
    for (auto change = changes.crbegin(); change != changes.crend(); ++change) { // positions before stay
        cursor.setPosition(change->from);
        cursor.setPosition(change->to, QTextCursor::KeepAnchor);
        if (change->text)
            cursor.insertText(*change->text, change->format);
        else
            cursor.setCharFormat(change->format);
    }
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        if (!isWhite(format))
            continue;
        format.clearBackground();
        QTextCursor(block).setBlockFormat(format);
    }
}

/// Numbers with which ordered lists begin, where all of them can be told apart.
void setListStarts(QTextDocument &page, const QString &html)
{
    static const QRegularExpression tag(QStringLiteral("<ol\\b[^>]*>"),
                                        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression start(QStringLiteral("\\bstart\\s*=\\s*[\"']?([0-9]{1,5})\\b"),
                                          QRegularExpression::CaseInsensitiveOption);
    if (!html.contains(start))
        return;
    QList<int> starts;
    for (auto found = tag.globalMatch(html); found.hasNext();) {
        const QRegularExpressionMatch number = start.match(found.next().captured());
        starts.append(number.hasMatch() ? number.captured(1).toInt() : 1);
    }
    QList<QTextList *> lists;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        QTextList *list = block.textList();
        const auto isNumbered = [](int style) {
            return style <= QTextListFormat::ListDecimal && style >= QTextListFormat::ListUpperRoman;
        };
        if (list && list->itemNumber(block) == 0 && isNumbered(list->format().style()))
            lists.append(list);
    }
    if (lists.size() != starts.size())
        return;
    for (qsizetype i = 0; i < lists.size(); ++i) {
        QTextListFormat format = lists.at(i)->format();
        format.setProperty(kListStartProperty, starts.at(i));
        lists.at(i)->setFormat(format);
    }
}

/// Where the columns of a table lie in the page's layout, in pixels; empty when that cannot be told.
QList<double> columnsOf(const QTextTable &table, const QAbstractTextDocumentLayout &layout)
{
    QList<double> columns(table.columns() + 1, -1);
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            const QTextBlock block = cell.firstCursorPosition().block();
            if (columns.at(column) < 0 && cell.column() == column && cell.row() == row && !block.textList() &&
                block.blockFormat().leftMargin() == 0)
                columns[column] =
                    layout.blockBoundingRect(block).left() - cell.format().toTableCellFormat().leftPadding();
        }
    }
    const QRectF frame = layout.frameBoundingRect(const_cast<QTextTable *>(&table));
    columns.last() = frame.right();
    for (qsizetype i = 0; i + 1 < columns.size(); ++i) {
        if (columns.at(i) < 0 || columns.at(i + 1) <= columns.at(i))
            return {};
    }
    return columns;
}

void setColumnWidths(QTextFrame &frame, const QAbstractTextDocumentLayout &layout)
{
    const QList<QTextFrame *> children = frame.childFrames();
    for (QTextFrame *child : children) {
        setColumnWidths(*child, layout);
        auto *table = qobject_cast<QTextTable *>(child);
        const QList<double> columns = table ? columnsOf(*table, layout) : QList<double>();
        if (columns.isEmpty())
            continue;
        QList<int> edges;
        for (const double column : columns)
            edges.append(qRound((column - columns.first()) * twipsPerPixel()));
        QTextTableFormat format = table->format();
        format.setProperty(kEdgesProperty, QVariant::fromValue(edges));
        table->setFormat(format);
    }
}

void clearWhiteCells(QTextFrame &frame)
{
    const QList<QTextFrame *> children = frame.childFrames();
    for (QTextFrame *child : children) {
        clearWhiteCells(*child);
        auto *table = qobject_cast<QTextTable *>(child);
        for (int row = 0; table && row < table->rows(); ++row) {
            for (int column = 0; column < table->columns(); ++column) {
                QTextTableCell cell = table->cellAt(row, column);
                QTextCharFormat format = cell.format();
                if (!isWhite(format))
                    continue;
                format.clearBackground();
                cell.setFormat(format);
            }
        }
    }
}

} // namespace

rtf::Document documentOfHtml(const QString &html, const QFont &font, int width)
{
    Page page;
    page.setUndoRedoEnabled(false);
    page.setDefaultFont(font);
    page.setDocumentMargin(0);
    page.setHtml(html);
    apply(page, changesOf(page));
    clearWhiteCells(*page.rootFrame());
    setListStarts(page, html);
    page.setTextWidth(qMax(1, width));
    setColumnWidths(*page.rootFrame(), *page.documentLayout());

    // Words go into the paragraph at the caret; a list's item, a heading or the like stays one.
    const QTextBlock last = page.lastBlock();
    const bool isOwn = last.textList() || last.blockFormat().headingLevel() > 0 ||
                       last.blockFormat().background().style() != Qt::NoBrush;
    return isOwn ? readDocument(page) : readDocument(page, 0, page.characterCount() - 1, false);
}

} // namespace norvane
