#include "exchange/import/NoteImport.h"

#include "exchange/import/identical_note.h"
#include "platform/FileSystem.h"
#include "platform/errors.h"
#include "store/NoteStore.h"
#include "store/note_row.h"
#include "store/note_schema.h"

#include <algorithm>
#include <limits>

namespace norvane {

namespace {

/// A batch ends with the first of the two: a save takes a sync of the disk, and the user wants to be asked.
constexpr int kBatchNotes = 200;
constexpr qint64 kBatchMilliseconds = 150;

/// The counters of an import are 16-bit numbers.
void count(int &counter)
{
    if (++counter > std::numeric_limits<qint16>::max())
        throw RuntimeError(kErrorOverflow, QStringLiteral("Overflow: too many notes for one import."));
}

void removeQuietly(FileSystem &files, const QString &path)
{
    try {
        if (files.exists(path))
            files.remove(path);
    } catch (const RuntimeError &) {
        // It belongs to no note, and its number is not given out again.
    }
}

} // namespace

NoteImport::NoteImport(NoteStore &store, dao::Database &source, QString folder, std::optional<int> category)
    : m_store(store), m_source(source), m_folder(std::move(folder)), m_category(category)
{
}

ImportResult NoteImport::run(const QVector<int> &IDs, const std::function<bool(int)> &goOn)
{
    m_result = {};
    m_identical = false;
    m_batchNotes = 0;
    m_batchImported = 0;
    m_batchBodies.clear();
    m_target = m_store.database();
    try {
        m_store.checkOpen();
        m_newRows = openNoteRows(m_store, QStringLiteral("false"));
        for (qsizetype done = 0; done < IDs.size(); ++done) {
            if (m_batchNotes == 0)
                begin(IDs.size() - done);
            importNote(IDs[done]);
            ++m_batchNotes;
            if (!isBatchFull())
                continue;
            commit();
            if (!goOn(static_cast<int>(done + 1))) {
                m_result.isStopped = true;
                break;
            }
        }
        commit();
    } catch (const RuntimeError &error) {
        m_result.failure = error;
        commitQuietly();
    }
    m_newRows.reset();
    m_known.reset();
    return m_result;
}

void NoteImport::begin(qsizetype left)
{
    checkOpen();
    if (!m_known || m_knownChanges != m_store.noteChangeCount())
        m_known.emplace(*m_target);
    m_knownChanges = m_store.noteChangeCount();
    // Durable before there are files of these names: no other note must ever get one of them.
    m_target->reserveNumbers(QStringLiteral("Memos"),
                             static_cast<int>(std::min<qsizetype>(left, kBatchNotes)));
    m_target->beginTrans();
    m_batchTime.start();
}

bool NoteImport::isBatchFull() const
{
    return m_batchNotes >= kBatchNotes || m_batchTime.elapsed() >= kBatchMilliseconds;
}

/// Saves the batch: its rows are there only when its files are.
void NoteImport::commit()
{
    if (m_batchNotes == 0)
        return;
    m_store.files().sync(m_batchBodies);
    m_target->commitTrans();
    m_batchNotes = 0;
    m_batchImported = 0;
    m_batchBodies.clear();
}

/// Saves what can be saved of a batch that has failed, or leaves nothing of it.
void NoteImport::commitQuietly()
{
    if (!m_target || m_store.database() != m_target)
        return;
    try {
        m_batchNotes = std::max(m_batchNotes, m_batchImported);
        commit();
    } catch (const RuntimeError &) {
        for (const QString &body : std::as_const(m_batchBodies))
            removeQuietly(m_store.files(), body);
        m_result.imported -= m_batchImported;
    }
    m_target->rollback();
}

void NoteImport::importNote(int ID)
{
    const auto S =
        m_source.openRecordset(QStringLiteral("select * from Memos where ID=") + QString::number(ID));
    const QString URL = S->field(QStringLiteral("URL")).toString();
    const auto T = m_known->notesWith(URL);
    m_identical = !T->eof() && isIdenticalNote(*T, *S, m_identical);
    if (m_identical) {
        count(m_result.bypassed);
        return;
    }
    const int newID = copyNote(*S);
    if (S->field(QStringLiteral("URL")).isValid())
        m_known->add(URL, newID);
}

/// @return the number of the new note
int NoteImport::copyNote(const dao::Recordset &S)
{
    FileSystem &files = m_store.files();
    const QStringList names = m_newRows->fieldNames();
    const QStringList sourceNames = S.fieldNames();
    m_newRows->addNew();
    for (qsizetype i = 1; i < names.size(); ++i) {
        if (i >= sourceNames.size())
            throw RuntimeError(kErrorItemNotFound, QStringLiteral("The source has fewer fields."));
        m_newRows->setField(names[i], S.field(sourceNames[i]));
    }
    if (m_category)
        m_newRows->setField(QStringLiteral("CAT_ID"), *m_category);
    const int ID = m_newRows->field(QStringLiteral("ID")).toInt();

    // The file first: what cannot be copied whole leaves no note behind.
    const QString sourceBody = bodyFileIn(m_folder, S.field(QStringLiteral("ID")).toInt());
    const QString body = m_store.bodyFile(ID);
    const bool hasBody = files.exists(sourceBody);
    if (hasBody)
        files.copy(sourceBody, body);
    try {
        m_newRows->update();
    } catch (const RuntimeError &) {
        removeQuietly(files, body);
        throw;
    }
    if (hasBody)
        m_batchBodies.append(body);
    ++m_batchImported;
    count(m_result.imported);
    return ID;
}

void NoteImport::checkOpen() const
{
    if (m_store.database() != m_target)
        throw RuntimeError(kErrorNothingThere, QStringLiteral("The note database was closed."));
}

} // namespace norvane
