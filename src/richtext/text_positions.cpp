#include "richtext/text_positions.h"

#include <QTextBlock>
#include <QTextCursor>

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

/// What a text has in place of a character of the document; empty: that character.
QStringView inText(QChar character)
{
    switch (character.unicode()) {
    case QChar::ParagraphSeparator:
    case 0xFDD0: // begin and end of a frame: paragraph ends for a reader
    case 0xFDD1:
        return u"\r\n";
    case QChar::LineSeparator:
        return u"\v";
    case QChar::ObjectReplacementCharacter:
        return u" ";
    default:
        return {};
    }
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
    QTextCursor cursor(const_cast<QTextDocument *>(&document)); // a cursor that only reads
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    const QString raw = cursor.selectedText();

    QString text;
    text.reserve(raw.size() + raw.size() / 32);
    qsizetype taken = 0;
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (raw.at(i) < QChar(QChar::LineSeparator))
            continue;
        const QStringView stands = inText(raw.at(i));
        if (stands.isEmpty())
            continue;
        text.append(QStringView(raw).mid(taken, i - taken)).append(stands);
        taken = i + 1;
    }
    return text.append(QStringView(raw).mid(taken));
}

} // namespace norvane
