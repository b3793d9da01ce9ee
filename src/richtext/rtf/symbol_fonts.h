#pragma once

#include <QString>

namespace norvane::rtf {

/// Fonts with signs in place of letters number their signs their own way. Text in them is kept as
/// the Unicode characters that look alike, where there are such, so that it shows without the font;
/// other signs are U+F020 to U+F0FF, by their number. Both ways give each sign one character.

/// The character for a sign of that number, 0x20 to 0xFF.
char16_t symbolCharacter(const QString &font, unsigned char number);
/// The number of the sign for a character; 0 when the font has none.
unsigned char symbolNumber(const QString &font, char16_t character);

} // namespace norvane::rtf
