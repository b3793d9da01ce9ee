#pragma once

#include <QTextCursor>
#include <optional>

namespace norvane {

/// What the characters and paragraphs of a selection have in common; std::nullopt where they differ.
struct SelectionFormat
{
    std::optional<int> alignment; ///< 0 left, 1 right, 2 centre, 3 justified
    std::optional<bool> bold;
    std::optional<bool> bullet;
    std::optional<int> charOffset; ///< twips above the line; negative: below
    std::optional<quint32> color;  ///< blue-green-red; the automatic colour is 0
    std::optional<QString> fontName;
    std::optional<double> fontSize; ///< points
    std::optional<bool> italic;
    std::optional<bool> isProtected;
    std::optional<int> rightIndent; ///< twips
    std::optional<bool> strikeThru;
    std::optional<int> tabCount;
    std::optional<bool> underline;
};

/// Looks at each run and paragraph of the selection once.
/// @param insertion format of the next typed character: what counts when nothing is selected
SelectionFormat selectionFormatOf(const QTextCursor &selection, const QTextCharFormat &insertion);

} // namespace norvane
