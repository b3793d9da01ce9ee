#include "exchange/import/start_import.h"

#include "platform/FileSystem.h"
#include "shell/internal_error.h"
#include "store/NoteStore.h"
#include "store/PasswordDialogModel.h"
#include "store/note_database.h"
#include "store/note_schema.h"

namespace norvane {

std::optional<ImportPlace> startImport(const StartImportParts &parts, const QString &folder,
                                       const QString &databaseBox)
{
    dao::Engine &engine = parts.store.engine();
    if (folder.isEmpty()) {
        tell(parts.prompts, QStringLiteral("Database path is invalid."));
        return {};
    }
    const QString file = databaseFileIn(folder);
    if (!parts.store.files().exists(file)) {
        tell(parts.prompts, QStringLiteral("Norvane database not found."));
        return {};
    }
    if (DatabaseIsLocked(engine, file)) {
        tellDatabaseIsLocked(parts.prompts, databaseBox);
        return {};
    }
    if (!DatabaseHasPassword(engine, file))
        return ImportPlace{folder, {}};
    PasswordDialogModel model(parts.store, parts.prompts, parts.events, file);
    parts.askPassword(model);
    if (!PasswordIsValid(engine, file, model.password()))
        return {};
    return ImportPlace{folder, model.password()};
}

} // namespace norvane
