#pragma once

#include <QString>
#include <QStringList>

namespace norvane {

/// The words of a command line, as its first is the program and the others are arguments. Blanks part
/// them; within double quotes and single quotes they do not. A backslash takes the next character as it
/// stands, within double quotes only a double quote or a backslash, within single quotes none. "~" and
/// "~/" at the beginning of a word without quotes stand for the home folder. Nothing else has a meaning.
///
/// Raises 5 when a quotation mark is not closed.
/// @param home no separator at the end
QStringList commandWords(const QString &line, const QString &home);

/// A path as a person writes it: "~" and "~/" stand for the home folder, and one that does not begin at
/// the root begins there, too.
QString pathFromHome(const QString &path, const QString &home);

} // namespace norvane
