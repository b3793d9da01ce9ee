#include "store/NoteStore.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "store/note_database.h"

namespace norvane {

namespace {

constexpr int kCachedRecords = 100;

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
    ++m_noteChangeCount;
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
    m_noteIndex->requery();
    ++m_noteChangeCount;
}

void NoteStore::requeryNoteSet()
{
    checkOpen();
    m_noteSet->requery();
}

QString NoteStore::bodyFile(int id) const
{
    return DatabaseFolder + QStringLiteral("Norvane_%1").arg(id, 8, 10, QChar(u'0'));
}

} // namespace norvane
