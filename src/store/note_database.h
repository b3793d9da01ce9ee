#pragma once

#include "platform/RuntimeError.h"
#include "platform/dao.h"

#include <QString>
#include <optional>

namespace norvane {

class FileSystem;
class Prompts;

/// Whether the file is there and another process holds it for itself.
bool DatabaseIsLocked(const dao::Engine &engine, const QString &path);

/// Says that the database of a folder is locked, in a box.
/// @param folder ends in a separator
void tellDatabaseIsLocked(Prompts &prompts, const QString &folder);

/// Whether the file opens only with a password. A file that cannot be opened at all counts as one
/// with a password.
bool DatabaseHasPassword(dao::Engine &engine, const QString &path);

/// Whether the file opens with @p password.
bool PasswordIsValid(dao::Engine &engine, const QString &path, const QString &password);

/// Why the file does not open with @p password, read-only; nothing when it does.
std::optional<RuntimeError> openingFault(dao::Engine &engine, const QString &path, const QString &password);

/// Makes a closed database as small as it can be: compacts it into "Norvane.tmp" in
/// @p programFolder and puts the verified copy in its place. An error ends it quietly, with the
/// database as it was and no temporary file.
/// @param programFolder no separator at the end
/// @return whether the database was compacted
bool CompactNoteDatabase(dao::Engine &engine, FileSystem &files, const QString &path,
                         const QString &programFolder, const QString &password);

/// Makes an open database what this build expects: adds a table that is not there since the program
/// was killed while it made the database, and lets Memos.WindowName hold the empty text, which files
/// of earlier builds refuse. Writes only when something is to be changed.
void repairNoteDatabase(dao::Database &database);

} // namespace norvane
