#pragma once

#include <QString>
#include <QStringList>

namespace norvane {

/// The length of an address's scheme with its colon; 0 for what is no address. A single letter is
/// none, so that "C:\" is not taken for one.
qsizetype schemeLength(const QString &location);

/// Whether a location is an address: it has a scheme, or begins with "www.".
bool isAddress(const QString &location);

/// The name of the type of a path or address by its text alone, in the session's language where
/// the shared MIME database has it. See Shell::typeName().
QString typeNameOf(const QString &location);
/// See Shell::typeKey() and Shell::iconNames().
QString typeKeyOf(const QString &location);
QStringList iconNamesOf(const QString &location);

/// What typeNameOf() calls a program.
QString applicationTypeName();
/// What typeNameOf() calls a path without an extension.
QString fileTypeName();

} // namespace norvane
