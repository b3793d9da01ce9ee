#pragma once

#include "richtext/rtf/operations.h"

#include <QFont>
#include <QTextBlock>
#include <QTextCharFormat>

namespace norvane {

/// The formats of a text document for those of the operations, and back.

QTextCharFormat textFormat(const rtf::CharacterFormat &format);
/// @param base font of text that names none
rtf::CharacterFormat characterFormat(const QTextCharFormat &format, const QFont &base);

/// Family and size (points) that text of the format has.
QString fontFamilyOf(const QTextCharFormat &format, const QFont &base);
double pointSizeOf(const QTextCharFormat &format, const QFont &base);
/// 0xRRGGBB; nothing for the automatic colour.
std::optional<quint32> colorOf(const QTextCharFormat &format);

/// Without the list of a bulleted paragraph, which applyParagraphFormat() gives.
QTextBlockFormat blockFormat(const rtf::ParagraphFormat &format);
rtf::ParagraphFormat paragraphFormat(const QTextBlock &block);
/// Gives a block its format; a bulleted one joins the list of the block before it.
void applyParagraphFormat(const QTextBlock &block, const rtf::ParagraphFormat &format);

/// How a bullet list looks.
QTextListFormat bulletListFormat();

/// Indent of a bulleted paragraph that has none of its own, in twips.
inline constexpr int kDefaultBulletIndent = 360;

/// Twips for a logical pixel of the screen.
double twipsPerPixel();

} // namespace norvane
