#pragma once

#include "richtext/rtf/operations.h"

namespace norvane::rtf {

/// Writes a document as rich text in plain ASCII, in the dialect of rich edit components. The same
/// document gives the same bytes; reading them gives the same document.
QByteArray write(const Document &document);

} // namespace norvane::rtf
