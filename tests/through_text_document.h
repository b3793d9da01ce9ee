#pragma once

#include "richtext/PictureStore.h"
#include "richtext/document_builder.h"
#include "richtext/document_reader.h"

#include <QTextDocument>

namespace norvane {

/// What a text document that is filled with a document gives back.
inline rtf::Document throughTextDocument(const rtf::Document &document)
{
    QTextDocument text;
    QTextCursor cursor(&text);
    PictureStore pictures;
    buildDocument(document, cursor, pictures, Extent::WholeDocument);
    return readDocument(text);
}

} // namespace norvane
