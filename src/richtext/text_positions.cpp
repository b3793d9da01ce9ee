#include "richtext/text_positions.h"

#include <QTextBlock>
#include <QTextTable>

namespace norvane {
namespace {

/// Each paragraph end before a block counts once more in the text than in the document.
int textPositionOf(const QTextBlock &block)
{
    return block.position() + block.blockNumber();
}

QTextBlock blockAt(const QTextDocument &document, int textPosition)
{
    int low = 0;
    int high = document.blockCount() - 1;
    while (low < high) {
        const int middle = low + (high - low + 1) / 2;
        if (textPositionOf(document.findBlockByNumber(middle)) <= textPosition)
            low = middle;
        else
            high = middle - 1;
    }
    return document.findBlockByNumber(low);
}

/// Appends a part of a block's text as a text has it.
void appendText(QString &text, QStringView part)
{
    qsizetype taken = 0;
    for (qsizetype i = 0; i < part.size(); ++i) {
        const QChar character = part.at(i);
        if (character != QChar::LineSeparator && character != QChar::ObjectReplacementCharacter)
            continue;
        text.append(part.mid(taken, i - taken)).append(character == QChar::LineSeparator ? u'\v' : u' ');
        taken = i + 1;
    }
    text.append(part.mid(taken));
}

} // namespace

int documentPosition(const QTextDocument &document, int textPosition)
{
    if (textPosition <= 0)
        return 0;
    const QTextBlock block = blockAt(document, textPosition);
    const int offset = textPosition - textPositionOf(block);
    return block.position() + qMin(offset, block.length() - 1);
}

int textPosition(const QTextDocument &document, int documentPosition)
{
    const QTextBlock block = document.findBlock(documentPosition);
    return block.isValid() ? documentPosition + block.blockNumber() : 0;
}

QString textBetween(const QTextDocument &document, int from, int to)
{
    // Block by block: a cursor would take cells of tables whole.
    QString text;
    text.reserve(qMax(0, to - from) + (to - from) / 32);
    for (QTextBlock block = document.findBlock(from); block.isValid(); block = block.next()) {
        const int begin = qMax(from, block.position());
        const int end = block.position() + block.length() - 1;
        if (begin < qMin(end, to))
            appendText(text, QStringView(block.text()).mid(begin - block.position(), qMin(end, to) - begin));
        if (to <= end)
            break;
        if (from <= end)
            text.append(u"\r\n");
    }
    return text;
}

QVector<Range> selectedRanges(const QTextCursor &cursor)
{
    const QTextTable *table = cursor.hasComplexSelection() ? cursor.currentTable() : nullptr;
    if (!table)
        return {{cursor.selectionStart(), cursor.selectionEnd()}};
    int row = 0;
    int rows = 0;
    int column = 0;
    int columns = 0;
    cursor.selectedTableCells(&row, &rows, &column, &columns);
    QVector<Range> ranges;
    for (int line = row; line < row + rows; ++line) {
        for (int place = column; place < column + columns;) {
            const QTextTableCell cell = table->cellAt(line, place);
            if (cell.row() == line)
                ranges.append({cell.firstPosition(), cell.lastPosition()});
            place = qMax(place + 1, cell.column() + cell.columnSpan());
        }
    }
    return ranges;
}

Range selectedRange(const QTextCursor &cursor)
{
    const QVector<Range> ranges = selectedRanges(cursor);
    return {ranges.first().from, ranges.last().to};
}

} // namespace norvane
