#pragma once

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

} // namespace norvane
