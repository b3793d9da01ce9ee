#pragma once

#include <QStringList>
#include <functional>

namespace norvane {

class FormList;
class NoteStore;
class Prompts;

/// Text of the panel "DBNAME" of the frame's status bar.
/// @param folder ends in a separator
QString databasePanelText(const QString &folder);

/// Opens and closes the note database while the program runs, together with the windows that show
/// it.
class NoteDatabaseSwitch
{
public:
    /// What the frame does; both must be set.
    struct Frame
    {
        std::function<void(const QString &text)> setDatabasePanel;
        /// Unloads `mdiMain`, which is the program's shut-down.
        std::function<void()> unload;
    };
    /// @p store, @p forms and @p prompts must outlive the object.
    NoteDatabaseSwitch(NoteStore &store, FormList &forms, Prompts &prompts, Frame frame);

    /// Makes @p path the open database; where it is not there, "Norvane.DAT" is made in the store's
    /// DatabaseFolder first. An error is shown and ends in CloseNoteDatabase(), which is the
    /// program's shut-down.
    /// @return whether the database is open
    bool OpenNoteDatabase(const QString &path);

    /// Unloads the notes, closes the database, compacts it if that is wanted, unloads the frame.
    void CloseNoteDatabase();

    /// Closes the database and compacts it if that is wanted; its place and password stay in the store.
    void closeAndCompact();

    /// Unloads all windows that hold on to the open database.
    void UnloadDatabaseForms();

private:
    void open(const QString &path);
    void unloadForms(const QStringList &names);

    NoteStore &m_store;
    FormList &m_forms;
    Prompts &m_prompts;
    Frame m_frame;
};

} // namespace norvane
