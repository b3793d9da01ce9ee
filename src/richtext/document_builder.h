#pragma once

#include "richtext/rtf/operations.h"

#include <QTextCursor>

namespace norvane {

class PictureStore;

enum class Extent {
    WholeDocument, ///< the last paragraph end is the document's own
    Piece,         ///< a pasted piece keeps its last paragraph end
};

/// Puts a document at the cursor, in place of its selection, as one edit. The cursor goes behind it.
/// What a whole document keeps beside its text (styles, headers) stays with the text document; a
/// piece leaves that as it is.
/// @param pictures keeps the pictures that the text refers to
void buildDocument(const rtf::Document &source, QTextCursor &cursor, PictureStore &pictures, Extent extent);

} // namespace norvane
