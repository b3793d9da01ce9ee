#pragma once

#include "richtext/rtf/operations.h"

#include <QTextFormat>
#include <QVariant>
#include <memory>

namespace norvane {

/// A field or an object whose result text is: what is written before it. The same pointer in several
/// formats is the same field.
struct TextWrapper
{
    QByteArray begin; ///< as in rtf::Wrapper
    std::shared_ptr<const TextWrapper> outer;
};

using WrapperPointer = std::shared_ptr<const TextWrapper>;
using PicturePointer = std::shared_ptr<const rtf::Picture>;
/// What is kept and not shown. The same pointer in several formats is one piece: text that is typed
/// behind it takes its format over.
using KeptPointer = std::shared_ptr<const QByteArray>;

/// Properties of our own in text formats: what a text document cannot say by itself. They survive
/// copies of a format and undo, but not HTML.
enum FormatProperty {
    // Characters
    kProtectedProperty = QTextFormat::UserProperty + 1, ///< bool
    kHiddenProperty,                                    ///< bool; shown too small to see
    kHiddenSizeProperty,                                ///< double: points of hidden text
    kUnderlineProperty,                                 ///< int: rtf::Underline that is drawn as another
    kBlackProperty,         ///< bool: black by name; drawn in the ink, which stays readable on the paper
    kSymbolProperty,        ///< QString: the font, which has a character set of its own
    kRaiseProperty,         ///< int, half points
    kLanguageProperty,      ///< int
    kWrapperProperty,       ///< WrapperPointer
    kWrapperNumberProperty, ///< int: tells formats apart quickly
    kPictureProperty,       ///< PicturePointer
    // Characters and paragraphs
    kKeptWordsProperty,  ///< QByteArray: words that are not shown
    kKeptPieceProperty,  ///< KeptPointer: before the first of its characters, or at the paragraph's end
    kKeptNumberProperty, ///< int: tells formats apart quickly
    // Paragraphs
    kListItemProperty = QTextFormat::UserProperty + 100, ///< rtf::ListItem
    kFirstIndentProperty,                                ///< int, twips: of a list's item
    kBordersProperty,                                    ///< rtf::Borders
    kListStartProperty,                                  ///< int: first number of a list out of HTML
    // Tables
    kEdgesProperty,  ///< QList<int>, twips: where columns begin, and the last one ends
    kRowProperty,    ///< rtf::RowFormat without its cells, of the row in which the cell begins
    kCellProperty,   ///< rtf::CellFormat
    kFillerProperty, ///< bool: a cell that fills a row which is shorter than others
    // The document
    kStylesProperty,   ///< QByteArray: rtf::Document::styles
    kPrologueProperty, ///< QByteArray: rtf::Document::prologue
};

} // namespace norvane
