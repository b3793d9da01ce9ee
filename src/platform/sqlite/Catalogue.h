#pragma once

#include "platform/dao.h"

#include <QVector>

namespace norvane::dao {

class Connection;

/// Newer files are not opened.
constexpr int kSchemaVersion = 1;
/// "NRVN": tells our files from those of other programs.
constexpr int kApplicationId = 0x4e52564e;

/// Makes the catalogue's own tables in an empty file.
void createCatalogue(Connection &connection);

/// The tables of the file as they were appended.
QVector<TableDef> readTableDefs(Connection &connection);

/// Makes the table and notes its definition, in one transaction. Raises 13 for a definition that
/// does not hold together, 3022 for a name that is there already.
void appendTableDef(Connection &connection, const TableDef &table);

/// Notes the new setting. The table itself knows nothing of it.
void writeAllowZeroLength(Connection &connection, const QString &table, const QString &field, bool allow);

/// The position of the field whose values the engine counts up, which is also the table's key; -1
/// when there is none.
int autoIncrementField(const TableDef &table);

} // namespace norvane::dao
