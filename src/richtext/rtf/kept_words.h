#pragma once

#include "richtext/rtf/Tokenizer.h"

#include <QByteArray>

namespace norvane::rtf {

/// Words of a format that are not shown and are written back: as they are written, each once, in
/// the order of their letters.

/// Puts a word in place of the one of the same letters.
/// @param isSwitch its parameter 0 takes it out
void setKeptWord(QByteArray &kept, const Token &word, bool isSwitch);
/// Takes out the word of these letters.
void removeKeptWord(QByteArray &kept, QByteArrayView letters);

} // namespace norvane::rtf
