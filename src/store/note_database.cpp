#include "store/note_database.h"

#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "shell/internal_error.h"
#include "shell/path_rules.h"
#include "store/note_schema.h"

#include <algorithm>

namespace norvane {

namespace {

void removeIfThere(FileSystem &files, const QString &path)
{
    if (files.exists(path))
        files.remove(path);
}

} // namespace

bool DatabaseIsLocked(const dao::Engine &engine, const QString &path)
{
    return engine.isLocked(path);
}

void tellDatabaseIsLocked(Prompts &prompts, const QString &folder)
{
    prompts.messageBox(QStringLiteral("Can not start Norvane database.\r\nDatabase located in '%1' is "
                                      "currently locked by another user.")
                           .arg(folder),
                       Prompts::kCritical, kApplicationTitle.toString());
}

bool DatabaseHasPassword(dao::Engine &engine, const QString &path)
{
    return !PasswordIsValid(engine, path, QString());
}

bool PasswordIsValid(dao::Engine &engine, const QString &path, const QString &password)
{
    return !openingFault(engine, path, password);
}

std::optional<RuntimeError> openingFault(dao::Engine &engine, const QString &path, const QString &password)
{
    try {
        const std::shared_ptr<dao::Workspace> workspace = engine.workspace(0);
        workspace->openDatabase(path, false, true, QStringLiteral(";Pwd=") + password)->close();
    } catch (const RuntimeError &error) {
        return error;
    }
    return std::nullopt;
}

bool CompactNoteDatabase(dao::Engine &engine, FileSystem &files, const QString &path,
                         const QString &programFolder, const QString &password)
{
    const QString temporary = programFolder + pathSeparator() + QStringLiteral("Norvane.tmp");
    bool compacted = false;
    try {
        removeIfThere(files, temporary);
        engine.compactDatabase(path, temporary, password);
        engine.replaceDatabase(temporary, path);
        compacted = true;
    } catch (const RuntimeError &) {
        // The database is as it was; only the temporary file may have to go.
    }
    try {
        removeIfThere(files, temporary);
    } catch (const RuntimeError &) {
        // The next compacting removes it first.
    }
    return compacted;
}

void repairNoteDatabase(dao::Database &database)
{
    const QVector<dao::TableDef> present = database.tableDefs();
    for (const dao::TableDef &table : {categoryTable(), memosTable()}) {
        const bool isThere =
            std::any_of(present.begin(), present.end(), [&table](const dao::TableDef &other) {
                return other.name.compare(table.name, Qt::CaseInsensitive) == 0;
            });
        if (!isThere)
            database.appendTable(table);
    }
    database.setAllowZeroLength(QStringLiteral("Memos"), QStringLiteral("WindowName"), true);
}

} // namespace norvane
