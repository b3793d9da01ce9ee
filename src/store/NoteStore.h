#pragma once

#include "platform/dao.h"

#include <QString>

namespace norvane {

class FileSystem;

/// The open note database: one workspace, one database, three held recordsets, and the body files
/// beside it.
///
/// The recordsets are nullptr while no database is open. Whoever writes a row of Memos calls
/// requeryNoteIndex(), and requeryNoteSet() where rows were added.
class NoteStore
{
public:
    NoteStore(dao::Engine &engine, FileSystem &files);
    ~NoteStore();

    QString DatabaseFolder; ///< ends in a separator
    QString DatabaseFile;   ///< full path of the open database
    QString DatabasePassword;
    QString programFolder; ///< no separator at the end; holds the temporary file of compacting
    bool CompactOnExit = true;

    dao::Engine &engine() const { return m_engine; }
    FileSystem &files() const { return m_files; }
    dao::Database *database() const { return m_database.get(); }
    /// All columns of Memos by WindowName, updatable.
    dao::Recordset *NoteSet() const { return m_noteSet.get(); }
    /// ID, WindowName, URL, Active, FriendlyName, LocationName, ClassName of Memos: a snapshot.
    dao::Recordset *NoteIndex() const { return m_noteIndex.get(); }
    /// Category by Name.
    dao::Recordset *CategorySet() const { return m_categorySet.get(); }

    /// Opens DatabaseFile with DatabasePassword, repairs it where an earlier build made it, and opens
    /// the three recordsets. Raises what the engine raises, with nothing left open.
    void open();
    /// Closes recordsets, database and workspace. Never raises.
    void close();

    /// Raises 91 when no database is open.
    void checkOpen() const;
    // These, too.
    void requeryNoteIndex();
    void requeryNoteSet();
    /// Grows with every requeryNoteIndex() and every open(): answers kept from NoteIndex are good
    /// as long as it is the same.
    quint64 noteChangeCount() const { return m_noteChangeCount; }

    /// The rich text file of a note; it need not be there.
    QString bodyFile(int id) const;

private:
    void openDatabase();
    void openRecordsets();

    dao::Engine &m_engine;
    FileSystem &m_files;
    std::shared_ptr<dao::Workspace> m_workspace;
    std::unique_ptr<dao::Database> m_database;
    std::unique_ptr<dao::Recordset> m_noteSet;
    std::unique_ptr<dao::Recordset> m_noteIndex;
    std::unique_ptr<dao::Recordset> m_categorySet;
    quint64 m_noteChangeCount = 0;
};

} // namespace norvane
