#pragma once

#include <QString>

namespace norvane {

class WindowSystem;

/// Without the blanks at both ends. Only blanks count, no other white space.
QString trimBlanks(const QString &text);

/// The part before the first NUL; the whole text when it holds none.
QString TrimAtNull(const QString &text);

/// A title without the application suffixes and URL schemes that it always loses, wherever in the
/// text they stand.
QString StripTitleSuffix(const QString &title);

/// The title that a note is called by and compared by: StripTitleSuffix(), then without what the
/// desktop's own programs put at its end. Wherever `LocationName`, `FriendlyName` or `StrippedTitle`
/// is made or compared, it is made here. The second step never empties a text.
QString strippedTitle(const WindowSystem &windows, const QString &title);

} // namespace norvane
