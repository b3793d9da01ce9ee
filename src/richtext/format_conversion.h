#pragma once

#include "richtext/rtf/operations.h"

#include <QFont>
#include <QTextBlock>
#include <QTextCharFormat>

namespace norvane {

/// The formats of a text document for those of the operations, and back.

/// Without the wrapper, which the document holds.
QTextCharFormat textFormat(const rtf::CharacterFormat &format);
/// @param base font of text that names none
rtf::CharacterFormat characterFormat(const QTextCharFormat &format, const QFont &base);

/// Whether the signs of a font are all characters that any font may have. Fonts that desktops have
/// in its place number their signs another way, and would show nothing.
bool isShownByOthers(const QString &font, bool isSymbol);

/// Family and size (points) that text of the format has.
QString fontFamilyOf(const QTextCharFormat &format, const QFont &base);
double pointSizeOf(const QTextCharFormat &format, const QFont &base);
/// 0xRRGGBB; nothing for the automatic colour.
std::optional<quint32> colorOf(const QTextCharFormat &format);

QTextBlockFormat blockFormat(const rtf::ParagraphFormat &format);
rtf::ParagraphFormat paragraphFormat(const QTextBlock &block);
/// Gives a block its format. What it keeps and does not show stays with it.
void applyParagraphFormat(const QTextBlock &block, const rtf::ParagraphFormat &format);

/// Twips between the mark of a list's item and the text of its first line.
int firstLineRoom(int firstIndent);

/// Indent of a bulleted paragraph that has none of its own, in twips.
inline constexpr int kDefaultBulletIndent = 360;

/// Twips for a logical pixel of the screen.
double twipsPerPixel();

} // namespace norvane
