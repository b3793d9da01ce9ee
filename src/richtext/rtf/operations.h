#pragma once

#include "richtext/rtf/formats.h"

#include <memory>
#include <variant>
#include <vector>

/// A rich text document as a flat list of operations, in reading order: what the interpreter of RTF
/// emits, what the writer takes, what a text document is filled from. Plain values, no windows.
namespace norvane::rtf {

enum class PictureKind : quint8 { Png, Jpeg, Dib, Wmf, Emf, Mac };

/// An object of another program that stands in the text: shown as a picture, kept for the program.
/// It is never run or loaded by reading a document.
struct EmbeddedObject
{
    QString className;             ///< as the file states it: "Package", "Excel.Sheet.8"
    QByteArray data;               ///< what the object's program wrote; for its shape see package_object.h
    QByteArray words = "\\objemb"; ///< kind and size, KeptWords
    QByteArray kept;               ///< further groups of the object (kept_pieces.h)

    bool operator==(const EmbeddedObject &) const = default;
};

struct Picture
{
    PictureKind kind = PictureKind::Png;
    int mapMode = 8; ///< of a metafile
    int width = 0;   ///< as the picture states it: pixels, or 0.01 mm of a metafile
    int height = 0;
    int displayWidth = 0; ///< twips; 0: the picture's natural size
    int displayHeight = 0;
    Sides<int> crop;  ///< twips that are cut away at each side, before scaling
    QByteArray bytes; ///< empty: there is nothing to show
    QByteArray kept;  ///< further groups of the picture (kept_pieces.h)
    /// What the picture stands for and what is written in its place (kept_pieces.h); empty if none.
    QByteArray original;
    std::shared_ptr<const EmbeddedObject> object; ///< that the picture shows; nullptr if none

    bool operator==(const Picture &other) const;
};

/// Text of one format. Holds no paragraph ends; U+2028 breaks a line within the paragraph.
struct TextRun
{
    QString text;
    int format = 0; ///< index into Document::characterFormats
};

/// Ends a paragraph and gives it its format. Text behind the last one has no paragraph format.
struct ParagraphEnd
{
    int paragraphFormat = 0; ///< index into Document::paragraphFormats
    int format = 0;          ///< of the paragraph mark: index into Document::characterFormats
};

struct PictureRun
{
    std::shared_ptr<const Picture> picture; ///< never nullptr
    int format = 0;                         ///< index into Document::characterFormats
};

/// What stands at this place and is not shown: a footnote, a bookmark, a comment. It comes before a
/// text, a picture, or the end of a paragraph or cell, or last of all.
struct KeptPiece
{
    QByteArray bytes; ///< see kept_pieces.h
};

/// Tables lie between paragraphs. Their rows follow each other, each made of the contents of its
/// cells, each ended by a CellEnd, and of a RowEnd: as many cells as its format has.
struct TableBegin
{
};

/// Ends the last paragraph of a cell, and the cell.
struct CellEnd
{
    int paragraphFormat = 0;
    int format = 0;
};

struct RowEnd
{
    int rowFormat = 0; ///< index into Document::rowFormats
};

struct TableEnd
{
};

using Operation =
    std::variant<TextRun, ParagraphEnd, PictureRun, KeptPiece, TableBegin, CellEnd, RowEnd, TableEnd>;

/// What stands around text and is not shown: a field or an object, whose result the text is.
struct Wrapper
{
    /// The group from its begin to where the result begins, both braces of which are open.
    QByteArray begin;
    int outer = -1; ///< the wrapper around this one; -1 if none

    bool operator==(const Wrapper &) const = default;
};

struct Document
{
    FormatPool<CharacterFormat> characterFormats;
    FormatPool<ParagraphFormat> paragraphFormats;
    FormatPool<RowFormat> rowFormats;
    std::vector<Operation> operations;
    std::vector<Wrapper> wrappers;
    QString defaultFont; ///< family of text that names none; may be empty
    QByteArray styles;   ///< the style sheet (kept_pieces.h); empty if none
    QByteArray prologue; ///< everything else before the text that is kept (kept_pieces.h)

    /// The text alone, a paragraph's or cell's end as "\n".
    QString plainText() const;
};

} // namespace norvane::rtf
