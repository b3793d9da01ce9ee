#pragma once

#include <QString>

namespace norvane {

// The few rules by which the program puts native paths together.

/// The character between the parts of a native path.
QChar pathSeparator();

/// What an absolute path starts with where there are no drives: one separator; else empty.
QString pathRoot();

/// @p folder ending in exactly the separator that it had, or in a new one. Empty stays empty.
QString withSeparator(const QString &folder);

/// @p folder without one separator at its end; a lone separator (the root) stays.
QString withoutSeparator(const QString &folder);

/// The part of @p path up to and with its last separator; empty when it has none.
QString folderOf(const QString &path);

} // namespace norvane
