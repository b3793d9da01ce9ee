#pragma once

#include <QString>

namespace norvane {

struct MenuItem;

/// Fills what follows from the caption: display caption, access key, shortcut text with its key, the
/// header and the column break flags.
///
/// "-" alone is a separator; a "-" in front of more makes a header. A single "|" or "^" asks for a new
/// column (with a line) and goes; a doubled one stands for itself. What stands behind the first Tab is
/// the shortcut text, as it is. The display caption keeps its "&", which the drawing needs; a doubled
/// "&" is the character and no access key.
void applyCaption(MenuItem &item, const QString &caption);

/// A display caption as it is seen.
struct ShownText
{
    QString text;        ///< without the "&" of the access key, a doubled one single
    int underlined = -1; ///< position in text of the access key; -1 without one
};
ShownText shownText(const QString &displayCaption);

} // namespace norvane
