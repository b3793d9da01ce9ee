#include "store/NoteDatabaseSwitch.h"

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "shell/Forms.h"
#include "shell/internal_error.h"
#include "store/NoteStore.h"
#include "store/note_database.h"
#include "store/note_schema.h"

namespace norvane {

QString databasePanelText(const QString &folder)
{
    return QStringLiteral(" Database Path: ") + folder.toUpper();
}

NoteDatabaseSwitch::NoteDatabaseSwitch(NoteStore &store, FormList &forms, Prompts &prompts, Frame frame)
    : m_store(store), m_forms(forms), m_prompts(prompts), m_frame(std::move(frame))
{
}

bool NoteDatabaseSwitch::OpenNoteDatabase(const QString &path)
{
    try {
        open(path);
        return true;
    } catch (const RuntimeError &error) {
        showInternalError(m_prompts, QStringLiteral("Norvane Database Failed."), error);
    }
    CloseNoteDatabase();
    return false;
}

void NoteDatabaseSwitch::open(const QString &path)
{
    m_store.close();
    if (!m_store.files().exists(path))
        CreateNoteDatabase(m_store.engine(), m_store.files(), databaseFileIn(m_store.DatabaseFolder));
    m_store.DatabaseFile = path;
    m_store.open();
    m_store.CategorySet()->requery();
    m_frame.setDatabasePanel(databasePanelText(m_store.DatabaseFolder));
}

void NoteDatabaseSwitch::CloseNoteDatabase()
{
    unloadForms({QStringLiteral("frmSticky"), QStringLiteral("frmOpen")});
    closeAndCompact();
    m_frame.unload();
}

void NoteDatabaseSwitch::closeAndCompact()
{
    m_store.close();
    if (m_store.CompactOnExit)
        CompactNoteDatabase(m_store.engine(), m_store.files(), m_store.DatabaseFile, m_store.programFolder,
                            m_store.DatabasePassword);
}

void NoteDatabaseSwitch::UnloadDatabaseForms()
{
    unloadForms({QStringLiteral("frmSearch"), QStringLiteral("frmOpen"), QStringLiteral("frmProperty"),
                 QStringLiteral("frmEditor2"), QStringLiteral("frmEditor"), QStringLiteral("frmSticky")});
}

void NoteDatabaseSwitch::unloadForms(const QStringList &names)
{
    for (Form *form : m_forms.all()) {
        // One form's unload may have taken another along.
        if (m_forms.contains(form) && names.contains(form->formName(), Qt::CaseInsensitive))
            form->unload();
    }
}

} // namespace norvane
