#include "store/PasswordDialogModel.h"

#include "platform/EventLoop.h"
#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "shell/internal_error.h"
#include "shell/path_rules.h"
#include "store/NoteStore.h"
#include "store/note_database.h"
#include "store/note_schema.h"
#include "store/offer_new_database.h"

namespace norvane {

PasswordDialogModel::PasswordDialogModel(NoteStore &store, Prompts &prompts, EventLoop &events,
                                         const QString &path)
    : m_store(store), m_prompts(prompts), m_events(events), m_path(path),
      m_found(whatIsInFile(store.engine(), store.files(), path))
{
}

QString PasswordDialogModel::toolTip() const
{
    return QStringLiteral("Database: ") + m_path.chopped(kDatabaseFileName.size());
}

PasswordDialogModel::Next PasswordDialogModel::Command1_Click(const QString &text)
{
    if (!PasswordIsValid(m_store.engine(), m_path, text)) {
        m_prompts.messageBox(QStringLiteral("Invalid Password!"), Prompts::kCritical,
                             QStringLiteral("Norvane Security"));
        return Next::SelectText;
    }
    m_password = text;
    if (m_isOther)
        takeDatabase();
    m_events.yield();
    return Next::Hide;
}

PasswordDialogModel::Next PasswordDialogModel::Command2_Click()
{
    m_password.clear();
    return Next::Hide;
}

PasswordDialogModel::Next PasswordDialogModel::Command3_Click()
{
    const QString folder =
        m_prompts.chooseFolder(QStringLiteral("Select Norvane Database Folder:"), folderOf(m_path));
    return folder.isEmpty() ? Next::Stay : choose(withSeparator(folder));
}

PasswordDialogModel::Next PasswordDialogModel::choose(const QString &folder)
{
    const QString path = databaseFileIn(folder);
    if (!m_store.files().exists(path) && !offerNewDatabase(m_store, m_prompts, path))
        return Next::Stay;
    m_path = path;
    m_isOther = true;
    m_found = whatIsInFile(m_store.engine(), m_store.files(), path);
    if (DatabaseHasPassword(m_store.engine(), path))
        return Next::FocusText;
    takeDatabase();
    return Next::Hide;
}

void PasswordDialogModel::takeDatabase()
{
    m_store.DatabaseFolder = folderOf(m_path);
    m_store.DatabaseFile = m_path;
}

} // namespace norvane
