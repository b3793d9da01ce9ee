#pragma once

#include <QTextFormat>

namespace norvane {

/// Properties of our own in text formats: what a text document cannot say by itself. They survive
/// copies of a format and undo, but not HTML.
enum FormatProperty {
    // Characters
    kProtectedProperty = QTextFormat::UserProperty + 1, ///< bool
    kHiddenProperty,                                    ///< bool; shown too small to see
    kHiddenSizeProperty,                                ///< double: points of hidden text
    kUnderlineProperty,                                 ///< int: rtf::Underline that is drawn as another
    kBlackProperty,  ///< bool: black by name; drawn in the ink, which stays readable on the paper
    kSymbolProperty, ///< bool: the font has a character set of its own
    // Pictures
    kPictureBytesProperty,    ///< QByteArray
    kPictureKindProperty,     ///< int: rtf::PictureKind
    kPictureMapModeProperty,  ///< int
    kPictureWidthProperty,    ///< int, as the picture states it
    kPictureHeightProperty,   ///< int
    kPictureOriginalProperty, ///< QByteArray: the group that it stands for
    // Paragraphs
    kLeftIndentProperty = QTextFormat::UserProperty + 100, ///< int, twips: of a bulleted paragraph
    kFirstIndentProperty,                                  ///< int, twips: of a bulleted paragraph
    kLineSpacingProperty,                                  ///< int: as in rtf::ParagraphFormat
};

} // namespace norvane
