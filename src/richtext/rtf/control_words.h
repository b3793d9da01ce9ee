#pragma once

#include <QByteArrayView>

namespace norvane::rtf {

/// What a control word does; words that do alike are one, told apart by their argument.
enum class Word {
    Unknown,
    // The document
    CodePage, ///< argument: code page, 0 for the word's parameter
    Utf8,
    DefaultFont,
    // Text
    Character, ///< argument: UTF-16 unit
    Unicode,
    UnicodeSkip,
    ParagraphEnd,
    SectionEnd,
    PageBreak,
    Cell,
    Row,
    // Destinations; argument: Destination
    Destination,
    Unpacked, ///< a destination whose text is that of the text around it
    ShapePicture,
    NoShapePicture,
    Alternative, ///< of a text in two encodings
    AlternativeUnicode,
    ListNumber, ///< argument: 1 a bullet, 0 anything else
    // Characters
    Plain,
    Bold,
    Italic,
    StrikeOut,
    Underline, ///< argument: rtf::Underline
    Script,    ///< argument: rtf::Script
    Capitals,  ///< argument: rtf::Capitals
    Hidden,
    Protected,
    Font,
    FontSize,
    Color,
    Background,
    // Paragraphs
    ParagraphDefaults,
    Alignment, ///< argument: rtf::Alignment
    LeftIndent,
    RightIndent,
    FirstIndent,
    SpaceBefore,
    SpaceAfter,
    LineSpacing,
    LineSpacingMultiple,
    Direction, ///< argument: 1 right to left
    PageBreakBefore,
    Tab,
    TabKind, ///< argument: rtf::TabKind
    // Font table
    FontCharset,
    FontCodePage,
    // Colour table; argument: bits to shift by
    ColorPart,
    // Pictures
    PictureKind, ///< argument: rtf::PictureKind
    PictureWidth,
    PictureHeight,
    PictureGoalWidth,
    PictureGoalHeight,
    PictureScaleX,
    PictureScaleY,
};

enum class Destination {
    Body,
    Skipped,
    FontTable,
    ColorTable,
    Picture,
    Marker,      ///< the text of a list mark or number
    ListNumber,  ///< what the mark is
    Object,      ///< an object: its result alone is text
    Alternative, ///< a text in two encodings, until the second comes
};

struct ControlWord
{
    Word word = Word::Unknown;
    int argument = 0;
};

/// Looks a control word up by its letters.
ControlWord controlWord(QByteArrayView letters);

} // namespace norvane::rtf
