#pragma once

#include "exchange/import/KnownLocations.h"
#include "platform/RuntimeError.h"
#include "platform/dao.h"

#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>
#include <memory>
#include <optional>

namespace norvane {

class NoteStore;

/// What became of an import.
struct ImportResult
{
    int imported = 0; ///< notes that stand in the open database now, whole
    int bypassed = 0; ///< notes that stood there already
    bool isStopped = false;
    std::optional<RuntimeError> failure; ///< what ended it
};

/// Copies notes of another database, with their body files, into the open one. Several notes are saved
/// together; what was saved stays, whatever ends the import.
class NoteImport
{
public:
    /// All must outlive the object.
    /// @param folder   of the source, ends in a separator
    /// @param category `CAT_ID` of every imported note; nothing keeps the source's number
    NoteImport(NoteStore &store, dao::Database &source, QString folder, std::optional<int> category);

    /// Imports the notes with these numbers of the source, in this order. Raises nothing.
    ///
    /// @param goOn told now and then, when all is saved, how many of the notes are done; events may run in
    ///             it, and the open database may be closed. False stops the import.
    ImportResult run(const QVector<int> &IDs, const std::function<bool(int done)> &goOn);

private:
    void begin(qsizetype left);
    bool isBatchFull() const;
    void commit();
    void commitQuietly();
    void importNote(int ID);
    int copyNote(const dao::Recordset &S);
    void checkOpen() const;

    NoteStore &m_store;
    dao::Database &m_source;
    QString m_folder;
    std::optional<int> m_category;

    dao::Database *m_target = nullptr;
    std::optional<KnownLocations> m_known;
    quint64 m_knownChanges = 0; ///< of the store, when the locations were read
    std::unique_ptr<dao::Recordset> m_newRows;
    bool m_identical = false;
    ImportResult m_result;

    QElapsedTimer m_batchTime;
    int m_batchNotes = 0;      ///< notes of the present batch
    int m_batchImported = 0;   ///< those of them that were copied
    QStringList m_batchBodies; ///< files that were copied for them
};

} // namespace norvane
