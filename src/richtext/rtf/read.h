#pragma once

#include "richtext/rtf/operations.h"

#include <QByteArrayView>
#include <optional>

namespace norvane::rtf {

/// Whether the bytes begin as rich text does: `{\rtf` or `{\urtf`.
bool isRichText(QByteArrayView rtf);

/// Reads rich text. Anything that begins as rich text is read as far as it makes sense: damage,
/// unknown words and what lies beyond the limits (limits.h) never stop it.
/// @return nothing when it does not begin as rich text, or is larger than kMaximumInputBytes
std::optional<Document> read(QByteArrayView rtf);

} // namespace norvane::rtf
