#include "options/settings/DatabaseChange.h"

#include "options/settings/RecentFolders.h"
#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "platform/WatchTimer.h"
#include "shell/internal_error.h"
#include "shell/settings_keys.h"
#include "store/NoteDatabaseSwitch.h"
#include "store/NoteStore.h"
#include "store/PasswordDialogModel.h"
#include "store/note_database.h"
#include "store/note_schema.h"
#include "store/offer_new_database.h"
#include "watcher/WatchSettings.h"

namespace norvane {

DatabaseChange::Outcome DatabaseChange::changeTo(const QString &folder, bool asDefault)
{
    NoteStore &store = m_parts.store;
    if (folder.toUpper() == store.DatabaseFolder.toUpper())
        return Outcome::Same;
    const QString file = databaseFileIn(folder);
    if (!store.files().exists(file) && !offerNewDatabase(store, m_parts.prompts, file))
        return Outcome::Stopped;
    if (isLocked(folder))
        return Outcome::Stopped;
    if (!ask(m_parts.prompts,
             QStringLiteral("Norvane database path has been changed.\r\nAre you sure you want to proceed?"),
             Prompts::kExclamation))
        return Outcome::Declined;
    QString password;
    if (DatabaseHasPassword(store.engine(), file) && !askForPassword(file, password))
        return Outcome::Stopped;
    // The last question: a Yes gives the editors' changes up.
    if (!opens(file, password) || !m_parts.editorsMayClose())
        return Outcome::Stopped;

    if (asDefault)
        settings::save(m_parts.settings, settings::kDatabase, folder);
    RecentFolders(m_parts.settings).AddMRU(folder);
    // What these windows save belongs to the old database.
    m_parts.databases.UnloadDatabaseForms();
    m_parts.timer.setInterval(0);
    m_parts.databases.closeAndCompact();
    store.DatabasePassword = password;
    store.DatabaseFolder = folder;
    if (!m_parts.databases.OpenNoteDatabase(file))
        return Outcome::Failed;
    m_parts.timer.setInterval(m_parts.watch.WatchInterval);
    return Outcome::Changed;
}

bool DatabaseChange::isLocked(const QString &folder) const
{
    if (!DatabaseIsLocked(m_parts.store.engine(), databaseFileIn(folder)))
        return false;
    tellDatabaseIsLocked(m_parts.prompts, folder);
    return true;
}

bool DatabaseChange::askForPassword(const QString &file, QString &password) const
{
    PasswordDialogModel model(m_parts.store, m_parts.prompts, m_parts.events, file);
    m_parts.askPassword(model);
    password = model.password();
    return PasswordIsValid(m_parts.store.engine(), file, password);
}

/// Looks whether the new database would do before the old one is given up: once that is closed, a failure
/// is the end of the program. Nothing is written into it yet.
bool DatabaseChange::opens(const QString &file, const QString &password) const
{
    try {
        const auto workspace = m_parts.store.engine().workspace(0);
        const auto database = workspace->openDatabase(file, false, false, QStringLiteral(";pwd=") + password);
        // One that is missing will be made when it is opened for good.
        for (const dao::TableDef &table : database->tableDefs())
            database->openRecordset(QStringLiteral("select count(*) as Rows from ") + table.name,
                                    dao::RecordsetType::ForwardOnly);
        return true;
    } catch (const RuntimeError &error) {
        m_parts.prompts.messageBox(QStringLiteral("Can not start Norvane database.\r\n") +
                                       error.description(),
                                   Prompts::kCritical, kApplicationTitle.toString());
        return false;
    }
}

} // namespace norvane
