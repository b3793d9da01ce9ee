#pragma once

#include "richtext/rtf/operations.h"

#include <QFont>
#include <QString>

namespace norvane {

/// HTML of other programs as a piece of a document. Nothing that it only names is fetched: such a
/// picture is the words that stand for it. A page's white ground and its ink stay there: the text is in
/// the ink of its new paper.
/// @param font of text that names none
/// @param width pixels that tables without a width of their own are laid out in
rtf::Document documentOfHtml(const QString &html, const QFont &font, int width);

} // namespace norvane
