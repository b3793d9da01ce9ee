#pragma once

#include "richtext/links/link_words.h"

#include <QVector>

namespace norvane::links {

struct DocumentScan
{
    QVector<Span> links; ///< in ascending order, apart from one another
    int caret = -1;      ///< where the caret stands afterwards; -1: where it was
};

/// Finds what gets the look of a link in a whole text.
///
/// An e-mail address reaches from the blank or line end before its "@" to behind the letters that
/// follow the first "." after it; without such a "." to the end of the text. Any "<" and ">" within
/// are left out, and what is left is looked for in the text from there on; if it is not there, the
/// "@" alone gets the look. Words with the prefix of a web or mail address reach to the next blank
/// or carriage return; in the last line, which has no carriage return, to the end of the text.
///
/// Takes a time in proportion to the length of the text.
DocumentScan scanDocument(QStringView text);

} // namespace norvane::links
