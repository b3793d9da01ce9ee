#include "store/NoteStore.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "store/note_database.h"
#include "store/note_schema.h"

namespace norvane {

namespace {

constexpr int kCachedRecords = 100;
constexpr std::size_t kKeptNoteChanges = 32;

void keepAtHand(dao::Recordset &recordset)
{
    recordset.setCacheSize(kCachedRecords);
    recordset.fillCache();
}

/// Closes what is open and forgets it; a fault while closing leaves nothing to be done.
template <typename Pointer> void closeQuietly(Pointer &object)
{
    if (!object)
        return;
    try {
        object->close();
    } catch (const RuntimeError &) {
        // It is let go below all the same.
    }
    object.reset();
}

} // namespace

NoteStore::NoteStore(dao::Engine &engine, FileSystem &files) : m_engine(engine), m_files(files) {}

NoteStore::~NoteStore()
{
    close();
}

void NoteStore::open()
{
    close();
    try {
        openDatabase();
        openRecordsets();
    } catch (const RuntimeError &) {
        close();
        throw;
    }
    countNoteChange({});
}

void NoteStore::openDatabase()
{
    m_workspace = m_engine.workspace(0);
    m_database =
        m_workspace->openDatabase(DatabaseFile, false, false, QStringLiteral(";pwd=") + DatabasePassword);
    repairNoteDatabase(*m_database);
}

void NoteStore::openRecordsets()
{
    m_noteSet = m_database->openRecordset(QStringLiteral("Select * From Memos order by Windowname"));
    if (m_noteSet->recordCount() > 0) {
        m_noteSet->moveLast();
        m_noteSet->moveFirst();
    }
    keepAtHand(*m_noteSet);

    m_noteIndex = m_database->openRecordset(
        QStringLiteral("Select ID,WindowName,URL,Active,FriendlyName,LocationName,ClassName from Memos"),
        dao::RecordsetType::Snapshot, true);
    keepAtHand(*m_noteIndex);

    m_categorySet = m_database->openRecordset(QStringLiteral("Select * From Category order by Name"));
}

void NoteStore::close()
{
    closeQuietly(m_noteSet);
    closeQuietly(m_noteIndex);
    closeQuietly(m_categorySet);
    closeQuietly(m_database);
    closeQuietly(m_workspace);
}

void NoteStore::checkOpen() const
{
    if (!m_database)
        throw RuntimeError(kErrorNothingThere, QStringLiteral("No note database is open."),
                           QStringLiteral("NoteStore"));
}

void NoteStore::requeryNoteIndex()
{
    checkOpen();
    countNoteChange(m_noteIndex->requeryChanged());
}

void NoteStore::countNoteChange(std::optional<QSet<int>> notes)
{
    ++m_noteChangeCount;
    m_noteChanges.push_back(std::move(notes));
    if (m_noteChanges.size() > kKeptNoteChanges)
        m_noteChanges.pop_front();
}

std::optional<QSet<int>> NoteStore::notesChangedSince(quint64 count) const
{
    QSet<int> notes;
    auto change = m_noteChanges.crbegin();
    for (quint64 at = m_noteChangeCount; at > count; --at, ++change) {
        if (change == m_noteChanges.crend() || !*change)
            return {};
        notes.unite(**change);
    }
    return notes;
}

void NoteStore::requeryNoteSet()
{
    checkOpen();
    m_noteSet->requery();
}

QString NoteStore::bodyFile(int id) const
{
    return bodyFileIn(DatabaseFolder, id);
}

} // namespace norvane
