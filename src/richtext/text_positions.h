#pragma once

#include <QTextCursor>
#include <QTextDocument>

namespace norvane {

/// Text positions count a paragraph end as two units (CR LF); the document's positions count it as
/// one. These map one to the other in logarithmic time.

/// The document's position of a text position. Between CR and LF is the paragraph's end; below 0 is
/// 0, beyond the end is the end.
int documentPosition(const QTextDocument &document, int textPosition);
/// The text position of a position of the document.
int textPosition(const QTextDocument &document, int documentPosition);
/// The document's text between two of its positions, paragraph ends as CR LF, pictures as a blank.
QString textBetween(const QTextDocument &document, int from, int to);

/// A part of a document, in its positions.
struct Range
{
    int from = 0;
    int to = 0;
};

/// What a cursor has selected: one part, or each of the selected cells of a table. Without a selection
/// it is one part that is empty.
QVector<Range> selectedRanges(const QTextCursor &cursor);
/// The text from the first of these parts to the last; between cells of a column it has the cells
/// beside them, too.
Range selectedRange(const QTextCursor &cursor);

} // namespace norvane
