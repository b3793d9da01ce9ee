#pragma once

#include "richtext/commands/ExtractedFiles.h"

#include <QString>

namespace norvane {

/// What the find dialog remembers from one time to the next.
struct FindState
{
    qint16 matchCase = 0; ///< value of a check box: 0 or 1
    qint16 wholeWord = 0; ///< likewise
    QString text;
    bool cancelled = false; ///< the dialog ended with Cancel
};

/// What all rich text editors of the program share.
struct EditState
{
    QString CurrentURL; ///< the word under the pointer, as of the last mouse move over any of them
    FindState find;
    ExtractedFiles extracted; ///< out of objects that were opened
};

} // namespace norvane
