#pragma once

#include <QByteArrayView>
#include <string_view>

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
    // Destinations; argument: Destination
    Destination,
    ShapePicture,
    NoShapePicture,
    Alternative, ///< of a text in two encodings
    AlternativeUnicode,
    // Characters
    Plain,
    Bold,
    Italic,
    StrikeOut,
    Underline, ///< argument: rtf::Underline
    UnderlineColor,
    Script,   ///< argument: rtf::Script
    Raise,    ///< argument: 1 up, -1 down
    Capitals, ///< argument: rtf::Capitals
    Hidden,
    Protected,
    Font,
    FontSize,
    Color,
    Background,
    Spacing,
    Language,
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
    ParagraphBackground,
    ParagraphForeground,
    ParagraphShading,
    // Lists
    ListNumber,
    ListLevelNumber,
    MarkStyle, ///< of a paragraph's own mark; argument: NumberStyle, -1 as it is, -2 none
    MarkStart,
    MarkFont,
    List, ///< in the table of lists, as the following
    ListIdentity,
    ListOverride,
    ListLevel,
    LevelOverride,
    LevelStyle,
    LevelStart,
    LevelFollow,
    LevelAlignment,
    // Tables
    InTable,
    TableDepth,
    Cell,
    NestedCell,
    Row,
    NestedRow,
    RowDefaults,
    RowLeft,
    RowGap,
    RowHeight,
    RowHeader,
    RowAlignment, ///< argument: rtf::RowAlignment
    RowDirection, ///< argument: 1 right to left
    RowPadding,   ///< argument: rtf::Side
    RowPaddingUnit,
    CellRight,
    CellMerge,         ///< with the cell before
    CellVerticalMerge, ///< argument: rtf::VerticalMerge
    CellAlignment,     ///< argument: rtf::VerticalAlignment
    CellBackground,
    CellForeground,
    CellShading,
    CellPadding, ///< argument: rtf::Side
    CellPaddingUnit,
    // Borders
    ParagraphBorder, ///< argument: rtf::Side, kAllSides or kNoSide
    CellBorder,      ///< argument: rtf::Side or kNoSide
    BorderStyle,     ///< argument: rtf::BorderStyle
    BorderWidth,
    BorderSpace,
    BorderColor,
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
    PictureCrop, ///< argument: rtf::Side
    // Kept and written back; argument of the first: 1 also without a text before it
    KeptInText,
    KeptOfCharacters,
    KeptOfParagraph,
    KeptOfCell,
    KeptOfRow,
    KeptOfDocument,
    KeptOfObject,
    KeptOfField,
};

/// Beside the sides of a box.
inline constexpr int kAllSides = 4;
inline constexpr int kNoSide = 5;
/// Arguments of Word::MarkStyle beside the styles.
inline constexpr int kUnchangedMark = -1;
inline constexpr int kNoMark = -2;

enum class Destination {
    Body,
    Skipped,
    KeptAlone,   ///< kept where it stands
    KeptOfStart, ///< kept: before the text when no text has come yet, else where it stands
    StyleSheet,
    FontTable,
    ColorTable,
    ListTable,
    LevelText,
    LevelNumbers,
    Picture,
    PictureKept, ///< of a picture, and kept with it
    MarkText,    ///< the text of a list mark or number, for readers that know no lists
    Mark,        ///< what the mark of a paragraph is
    MarkBefore,  ///< text before the number of such a mark
    MarkAfter,
    Field,
    FieldInstruction,
    FieldResult,
    Object, ///< an object: its result alone is text
    ObjectClass,
    ObjectData,
    ObjectResult,
    Alternative, ///< a text in two encodings, until the second comes
    NestedRow,   ///< properties of a row of an inner table
};

struct ControlWord
{
    Word word = Word::Unknown;
    int argument = 0;
};

/// Looks a control word up by its letters.
ControlWord controlWord(QByteArrayView letters);
/// The letters that are written for what a word does; empty if there are none.
std::string_view lettersOf(Word word, int argument = 0);

/// Whether a word's parameter is the number of a font, or of a colour, wherever it stands.
bool namesFont(QByteArrayView letters);
bool namesColor(QByteArrayView letters);

} // namespace norvane::rtf
