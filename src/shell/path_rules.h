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

/// A title as the name of a file: each of the characters @p taken and each control character a blank, and cut
/// so that the name and an extension find room in a folder. May be blank all through.
QString fileNameFrom(const QString &title, QStringView taken);

/// A title as the proposal for a document's name: blanks in place of what paths and names have a use for.
/// Without dots: the first one tells the kind of a document.
QString proposedFileName(const QString &title);

} // namespace norvane
