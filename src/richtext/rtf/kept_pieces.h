#pragma once

#include "richtext/rtf/ColorTable.h"
#include "richtext/rtf/FontTable.h"

#include <QByteArray>
#include <functional>
#include <optional>

namespace norvane::rtf {

/// Pieces of rich text that are kept and written back in another document than the one they came
/// from, perhaps. Fonts and colours, which a file refers to by number, are named in them; encoded
/// text is Unicode and binary data hexadecimal digits. All of a piece is plain ASCII, and what is
/// kept once is kept again as it is.

/// What the numbers and bytes at the place of a piece mean.
struct KeptContext
{
    const FontTable &fonts;
    const ColorTable &colors;
    CodePages &codePages;
    int documentCodePage = kWesternCodePage;
    int font = kNoFont;
    int unicodeSkip = 1;
};

/// Makes a piece of groups as they stand in a file. Nothing when they cannot be kept: their braces
/// do not match, or there is binary data that has no other form.
std::optional<QByteArray> keptPiece(QByteArrayView groups, const KeptContext &context);

/// The numbers that the fonts and colours of a piece have where it is written.
struct KeptNumbers
{
    std::function<int(const QString &font, bool symbol)> font;
    std::function<int(std::optional<quint32> color)> color;
};

/// A piece as it is written.
QByteArray writtenPiece(const QByteArray &piece, const KeptNumbers &numbers);

} // namespace norvane::rtf
