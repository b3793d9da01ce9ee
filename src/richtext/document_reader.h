#pragma once

#include "richtext/rtf/operations.h"

#include <QTextDocument>

namespace norvane {

/// The operations of a text document between two of its positions. The document's last paragraph
/// end is given when @p to lies behind the last character and @p withLastEnd is set.
rtf::Document readDocument(const QTextDocument &document, int from, int to, bool withLastEnd);
/// The whole document.
rtf::Document readDocument(const QTextDocument &document);

} // namespace norvane
