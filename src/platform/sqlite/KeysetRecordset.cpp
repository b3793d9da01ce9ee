#include "platform/sqlite/KeysetRecordset.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/DatabaseCore.h"
#include "platform/sqlite/Parser.h"

#include <algorithm>

namespace norvane::dao {

namespace {

constexpr int kCacheSize = 32;
constexpr int kLargestCache = 1200;

} // namespace

KeysetRecordset::KeysetRecordset(std::shared_ptr<DatabaseCore> core, std::unique_ptr<SelectQuery> query,
                                 RecordsetType type, bool readOnly, const RowSet *among)
    : QueryRecordset(std::move(core), std::move(query), readOnly || type == RecordsetType::Snapshot),
      m_rows(std::make_unique<RowSet>(sharedCore(), this->query(), type == RecordsetType::Snapshot, among)),
      m_cacheSize(kCacheSize)
{
}

bool KeysetRecordset::bof() const
{
    checkOpen();
    return !m_currentDeleted && (m_position < 0 || m_rows->size() == 0);
}

bool KeysetRecordset::eof() const
{
    checkOpen();
    return !m_currentDeleted && m_position >= m_rows->size();
}

bool KeysetRecordset::noMatch() const
{
    checkOpen();
    return m_noMatch;
}

void KeysetRecordset::moveFirst()
{
    checkNotEmpty();
    moveTo(0);
}

void KeysetRecordset::moveLast()
{
    checkNotEmpty();
    moveTo(m_rows->size() - 1);
}

void KeysetRecordset::moveNext()
{
    if (eof())
        checkCurrent();
    moveTo(m_currentDeleted ? m_position : m_position + 1);
    m_walking = true;
}

void KeysetRecordset::movePrevious()
{
    if (bof())
        checkCurrent();
    moveTo(m_position - 1);
}

void KeysetRecordset::findFirst(const QString &condition)
{
    checkOpen();
    find(condition, 0);
}

void KeysetRecordset::findNext(const QString &condition)
{
    checkOpen();
    find(condition, m_currentDeleted ? m_position : m_position + 1);
}

QVariant KeysetRecordset::field(const QString &name) const
{
    checkOpen();
    const int column = query().columnIndex(name);
    if (m_edit)
        return m_edit->value(column, core());
    checkCurrent();
    return currentRow()[column];
}

void KeysetRecordset::addNew()
{
    checkUpdatable();
    m_edit = std::make_unique<EditBuffer>(query());
}

void KeysetRecordset::edit()
{
    checkUpdatable();
    checkCurrent();
    m_cache.remove(m_rows->key(m_position)); // what is edited is what stands there now
    m_edit = std::make_unique<EditBuffer>(query(), m_rows->key(m_position), currentRow());
}

void KeysetRecordset::setField(const QString &name, const QVariant &value)
{
    checkUpdatable();
    const int column = query().columnIndex(name);
    if (!m_edit)
        throw RuntimeError(kErrorUpdateWithoutEdit,
                           QStringLiteral("A field was changed without AddNew or Edit before it."));
    m_edit->setValue(column, value);
}

void KeysetRecordset::update()
{
    checkUpdatable();
    if (!m_edit)
        throw RuntimeError(kErrorUpdateWithoutEdit,
                           QStringLiteral("Update without AddNew or Edit before it."));
    const qint64 key = m_edit->write(core());
    if (m_edit->isNew()) {
        const bool behind = m_rows->size() > 0 && !m_currentDeleted && m_position >= m_rows->size();
        m_rows->append(key);
        if (behind)
            m_position = m_rows->size();
    }
    m_edit.reset();
}

void KeysetRecordset::cancelUpdate()
{
    checkOpen();
    if (!m_edit)
        throw RuntimeError(kErrorUpdateWithoutEdit, QStringLiteral("There is nothing to cancel."));
    m_edit.reset();
}

void KeysetRecordset::remove()
{
    checkUpdatable();
    checkCurrent();
    m_edit.reset();
    const auto key = static_cast<qlonglong>(m_rows->key(m_position));
    const int removed = core().connection().run("DELETE FROM " + query().source() + " WHERE rowid=?", {key});
    m_rows->erase(m_position);
    m_currentDeleted = true;
    if (removed == 0)
        checkCurrent(); // someone else was first
}

void KeysetRecordset::requery()
{
    (void)requeryChanged();
}

std::optional<QSet<int>> KeysetRecordset::requeryChanged()
{
    checkOpen();
    m_edit.reset();
    m_cache.clear();
    const auto changed = m_rows->requery();
    m_noMatch = false;
    moveTo(0);
    return changed;
}

std::vector<int> KeysetRecordset::keys() const
{
    checkOpen();
    return m_rows->keys();
}

int KeysetRecordset::recordCount() const
{
    checkOpen();
    return m_rows->size();
}

void KeysetRecordset::setCacheSize(int records)
{
    checkOpen();
    m_cacheSize = std::clamp(records, 1, kLargestCache);
}

void KeysetRecordset::fillCache()
{
    checkOpen();
    if (m_position >= 0 && m_position < m_rows->size())
        readAhead();
}

void KeysetRecordset::close()
{
    m_edit.reset();
    m_rows.reset();
    QueryRecordset::close();
}

void KeysetRecordset::checkCurrent() const
{
    if (m_currentDeleted)
        throw RuntimeError(kErrorRecordDeleted, QStringLiteral("The record is deleted."));
    if (m_position < 0 || m_position >= m_rows->size())
        raiseNoCurrentRecord();
}

void KeysetRecordset::checkNotEmpty() const
{
    checkOpen();
    if (m_rows->size() == 0)
        raiseNoCurrentRecord();
}

/// A move drops what was not updated.
void KeysetRecordset::moveTo(int position)
{
    m_edit.reset();
    m_currentDeleted = false;
    m_walking = false;
    m_position = position;
}

void KeysetRecordset::find(const QString &condition, int from)
{
    const int found =
        m_rows->find(sqlCondition(parseCondition(condition), query().columns()), std::max(from, 0));
    m_noMatch = found < 0;
    if (!m_noMatch)
        moveTo(found);
}

const KeysetRecordset::Row &KeysetRecordset::currentRow() const
{
    const quint64 changes = core().connection().changeCount();
    if (m_cacheChanges != changes || m_cacheGeneration != core().generation())
        m_cache.clear();
    m_cacheChanges = changes;
    m_cacheGeneration = core().generation();
    const qint64 key = m_rows->key(m_position);
    auto found = m_cache.constFind(key);
    if (found == m_cache.constEnd()) {
        if (m_walking)
            readAhead();
        else if (auto row = m_rows->read(key)) {
            m_cache.clear();
            m_cache.insert(key, *row);
        }
        found = m_cache.constFind(key);
    }
    if (found == m_cache.constEnd())
        throw RuntimeError(kErrorRecordDeleted, QStringLiteral("The record is deleted."));
    return *found;
}

/// Reads the rows from the current one on in one go: whoever walks needs them all.
void KeysetRecordset::readAhead() const
{
    m_cache.clear();
    Transaction transaction(core().connection(), Transaction::Kind::Read);
    const int end = std::min(m_rows->size(), m_position + m_cacheSize);
    for (int i = m_position; i < end; ++i)
        if (auto row = m_rows->read(m_rows->key(i)))
            m_cache.insert(m_rows->key(i), *row);
    transaction.commit();
}

} // namespace norvane::dao
