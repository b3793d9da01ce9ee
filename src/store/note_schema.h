#pragma once

#include "platform/dao.h"

namespace norvane {

class FileSystem;

/// Name of the database file in its folder.
inline constexpr QStringView kDatabaseFileName = u"Norvane.DAT";

/// Path of the database in a folder.
/// @param folder ends in a separator
QString databaseFileIn(const QString &folder);

/// Path of the rich text file of a note; it need not be there.
/// @param folder of the database, ends in a separator
QString bodyFileIn(const QString &folder, int ID);

/// Definition of table Category, in field order.
dao::TableDef categoryTable();

/// Definition of table Memos, in field order. No field has the ordinal position 21: files of
/// earlier builds skip it too.
dao::TableDef memosTable();

/// Makes a new, empty note database with both tables.
///
/// Raises what the engine raises: the file is there already, its folder is missing or read-only,
/// the disk is full. Nothing is left behind then: a database without its tables would stand in the
/// way of every later start.
void makeNoteDatabase(dao::Engine &engine, FileSystem &files, const QString &path);

/// The same, but a file that cannot be made gives false and no error; an error while the tables are
/// made is raised.
bool CreateNoteDatabase(dao::Engine &engine, FileSystem &files, const QString &path);

} // namespace norvane
