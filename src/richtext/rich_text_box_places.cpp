// The places of RichTextBox: selection, finding, what stands where on the screen, printing.

#include "richtext/RichTextBox.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextLayout>

namespace norvane {
namespace {

[[noreturn]] void raiseInvalidCall(const QString &description)
{
    throw RuntimeError(kErrorInvalidCall, description, QStringLiteral("RichTextBox"));
}

/// Whether a point of a document is on the text of a block's line, where its nearest place is.
bool isOnLine(const QTextBlock &block, int position, const QPointF &point)
{
    const QTextLayout *layout = block.layout();
    const QTextLine line = layout->lineForTextPosition(position - block.position());
    if (!line.isValid())
        return false;
    const QRectF blockRect = block.document()->documentLayout()->blockBoundingRect(block);
    const QPointF origin = blockRect.topLeft() - layout->boundingRect().topLeft();
    const auto holds = [&](const QTextLine &candidate) {
        return candidate.isValid() && candidate.naturalTextRect().translated(origin).contains(point);
    };
    // The end of a line and the begin of the next one are the same place.
    return holds(line) || (line.lineNumber() > 0 && holds(layout->lineAt(line.lineNumber() - 1)));
}

} // namespace

int RichTextBox::SelStart() const
{
    return textPosition(*document(), selectedRange(textCursor()).from);
}

void RichTextBox::setSelStart(int position)
{
    if (position < 0)
        raiseInvalidCall(QStringLiteral("A position in a text is not below 0."));
    QTextCursor cursor = textCursor();
    cursor.setPosition(documentPosition(*document(), position));
    setTextCursor(cursor);
}

int RichTextBox::SelLength() const
{
    return textPosition(*document(), selectedRange(textCursor()).to) - SelStart();
}

void RichTextBox::setSelLength(int length)
{
    if (length < 0)
        raiseInvalidCall(QStringLiteral("The length of a selection is not below 0."));
    QTextCursor cursor = textCursor();
    const int from = cursor.selectionStart();
    const int end = int(qMin(qint64(SelStart()) + length, qint64(textLength())));
    cursor.setPosition(from);
    cursor.setPosition(documentPosition(*document(), end), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

int RichTextBox::Find(const QString &text, int start, int end, int options)
{
    const QString &all = plainText();
    const int from = start >= 0 ? start : SelStart() + SelLength();
    const qsizetype to = end >= 0 ? qMin(qsizetype(end), all.size()) : all.size();
    if (text.isEmpty() || from > to)
        return -1;
    const auto sensitivity = options & kMatchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const auto isInWord = [&all](qsizetype position) {
        return position >= 0 && position < all.size() &&
               (all.at(position).isLetterOrNumber() || all.at(position) == u'_');
    };
    for (qsizetype found = all.indexOf(text, from, sensitivity); found >= 0 && found + text.size() <= to;
         found = all.indexOf(text, found + 1, sensitivity)) {
        if (options & kWholeWord && (isInWord(found - 1) || isInWord(found + text.size())))
            continue;
        if (!(options & kNoHighlight)) {
            QTextCursor cursor = textCursor();
            cursor.setPosition(documentPosition(*document(), int(found)));
            cursor.setPosition(documentPosition(*document(), int(found + text.size())),
                               QTextCursor::KeepAnchor);
            setTextCursor(cursor);
        }
        return int(found);
    }
    return -1;
}

int RichTextBox::textLength() const
{
    return document()->characterCount() - 1 + document()->blockCount() - 1;
}

int RichTextBox::CharFromPos(const QPoint &point) const
{
    const QPointF place = point + QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const int position = document()->documentLayout()->hitTest(place, Qt::FuzzyHit);
    if (position < 0)
        return textLength();
    const QTextBlock block = document()->findBlock(position);
    const int end = block.position() + block.length() - 1;
    return textPosition(*document(), isOnLine(block, position, place) ? position : end);
}

links::Piece RichTextBox::paragraphAround(int position) const
{
    const QTextBlock block = document()->findBlock(documentPosition(*document(), position));
    const int begin = qMax(0, block.position() - 1);
    const int end = block.position() + block.length() - 1;
    const QString text = textBetween(*document(), begin, end);
    return {text + u'\r', textPosition(*document(), begin)};
}

links::Piece RichTextBox::textBefore(int position, int behind) const
{
    const int caret = documentPosition(*document(), position);
    const QTextBlock block = document()->findBlock(caret);
    const int begin = block.previous().isValid() ? block.previous().position() : 0;
    const int end = qMin(caret + behind, document()->characterCount() - 1);
    return {textBetween(*document(), begin, end), textPosition(*document(), begin)};
}

QString RichTextBox::storedLinkAt(int position) const
{
    QTextCursor cursor(document());
    // A cursor tells the format of the character before it.
    cursor.setPosition(qMin(documentPosition(*document(), position) + 1, document()->characterCount() - 1));
    return cursor.charFormat().anchorHref();
}

void RichTextBox::SelPrint(QPagedPaintDevice &device) const
{
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) {
        printAll(device);
        return;
    }
    // As a child it finds its pictures where the document does.
    QTextDocument selection(document());
    selection.setDefaultFont(document()->defaultFont());
    QTextCursor(&selection).insertFragment(cursor.selection());
    selection.print(&device);
}

void RichTextBox::printAll(QPagedPaintDevice &device) const
{
    document()->print(&device);
}

} // namespace norvane
