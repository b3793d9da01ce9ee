#include "platform/sqlite/RowSet.h"

#include "platform/RuntimeError.h"
#include "platform/sqlite/Catalogue.h"
#include "platform/sqlite/DatabaseCore.h"
#include "platform/sqlite/values.h"

#include <algorithm>

namespace norvane::dao {

namespace {

/// No version of a file.
constexpr qint64 kUnknown = -1;
/// With more changes than that, all rows are read.
constexpr int kMostChanges = 500;
/// Up to here it is quicker to look for each.
constexpr int kFewChanges = 8;

} // namespace

RowSet::RowSet(std::shared_ptr<DatabaseCore> core, const SelectQuery &query, bool snapshot)
    : m_core(std::move(core)), m_query(query), m_snapshot(snapshot),
      m_source(snapshot ? m_core->newTemporaryTable() : query.source()),
      m_readSql("SELECT " + query.selectList() + " FROM " + m_source + " WHERE rowid=?"),
      m_orderKeySql("SELECT " + query.orderList() + " FROM " + m_source + " WHERE rowid=?")
{
    requery();
}

RowSet::~RowSet()
{
    if (!m_snapshot || !m_core->isOpen() || m_generation != m_core->generation())
        return;
    try {
        connection().run("DROP TABLE IF EXISTS " + m_source);
    } catch (const RuntimeError &) {
        // It ends with the connection.
    }
}

Connection &RowSet::connection() const
{
    return m_core->connection();
}

void RowSet::requery()
{
    Connection &database = connection();
    Transaction transaction(database, Transaction::Kind::Read);
    const qint64 version = database.foreignVersion();
    const bool known = m_generation == m_core->generation() && version == m_foreignVersion;
    m_foreignVersion = kUnknown; // a failure half way is made good by the next requery
    if (!known || !readChanged())
        readAll();
    m_generation = m_core->generation();
    m_foreignVersion = version;
    m_changes = database.changeCount();
    transaction.commit();
}

/// A new password takes a new connection, which has no copy yet.
void RowSet::ensureCopy()
{
    if (m_snapshot && m_generation != m_core->generation())
        requery();
}

void RowSet::readAll()
{
    Connection &database = connection();
    const SqlText where = m_query.where();
    if (m_snapshot) {
        makeCopy();
        copyRows(where);
    }
    m_keys.clear();
    m_ascending = !m_query.isOrdered();
    Statement rows = database.prepare("SELECT rowid FROM " + m_source +
                                      (m_snapshot ? QByteArray() : where.sql) + m_query.orderBy());
    if (!m_snapshot)
        rows.bind(where.values);
    while (rows.step())
        m_keys.push_back(rows.integer(0));
}

/// An empty temporary table with the statement's columns; its key is the row's key in the table.
void RowSet::makeCopy()
{
    const int counted = autoIncrementField(m_query.table());
    const QString keyName = counted < 0 ? QString() : m_query.table().fields[counted].name;
    QByteArray columns;
    for (const FieldDef &field : m_query.storedColumns())
        columns += (columns.isEmpty() ? "" : ",") + quoted(field.name) +
                   (field.name == keyName ? " INTEGER PRIMARY KEY" : "");
    connection().run("DROP TABLE IF EXISTS " + m_source);
    connection().run("CREATE TABLE " + m_source + "(" + columns + ")");
}

void RowSet::copyRows(const SqlText &where)
{
    const int counted = autoIncrementField(m_query.table());
    const QString keyName = counted < 0 ? QString() : m_query.table().fields[counted].name;
    QByteArray columns = "rowid";
    for (const FieldDef &field : m_query.storedColumns())
        if (field.name != keyName)
            columns += "," + quoted(field.name);
    connection().run("INSERT INTO " + m_source + "(" + columns + ") SELECT " + columns + " FROM " +
                         m_query.source() + where.sql,
                     where.values);
}

bool RowSet::readChanged()
{
    const auto changed = connection().changesSince(m_changes, m_query.table().name);
    if (!changed || changed->size() > kMostChanges)
        return false;
    if (changed->size() <= kFewChanges) {
        for (const qint64 key : *changed)
            if (const auto place = std::find(m_keys.begin(), m_keys.end(), key); place != m_keys.end())
                m_keys.erase(place);
    } else {
        std::erase_if(m_keys, [&changed](qint64 key) { return changed->contains(key); });
    }
    for (const qint64 key : *changed)
        if (refreshRow(key))
            insertInOrder(key);
    return true;
}

/// Brings the copy of a row up to date; whether the row belongs to the statement.
bool RowSet::refreshRow(qint64 key)
{
    SqlText where = m_query.where();
    where.sql += " AND rowid=?";
    where.values.append(static_cast<qlonglong>(key));
    if (!m_snapshot)
        return connection().single("SELECT 1 FROM " + m_source + where.sql, where.values).isValid();
    connection().run("DELETE FROM " + m_source + " WHERE rowid=?", {static_cast<qlonglong>(key)});
    copyRows(where);
    return connection()
        .single("SELECT 1 FROM " + m_source + " WHERE rowid=?", {static_cast<qlonglong>(key)})
        .isValid();
}

void RowSet::insertInOrder(qint64 key)
{
    if (!m_query.isOrdered()) {
        if (!m_ascending)
            std::sort(m_keys.begin(), m_keys.end());
        m_ascending = true;
        m_keys.insert(std::lower_bound(m_keys.begin(), m_keys.end(), key), key);
        return;
    }
    const auto mine = orderKey(key);
    const auto place = std::partition_point(m_keys.begin(), m_keys.end(), [&](qint64 other) {
        const auto theirs = orderKey(other);
        return theirs && mine && isBefore(*theirs, *mine);
    });
    m_keys.insert(place, key);
}

std::optional<RowSet::OrderKey> RowSet::orderKey(qint64 key)
{
    Statement row = connection().prepare(m_orderKeySql);
    row.bind({static_cast<qlonglong>(key)});
    if (!row.step())
        return std::nullopt;
    OrderKey result;
    for (int i = 0; i < row.columnCount(); ++i)
        result.append(row.value(i));
    return result;
}

bool RowSet::isBefore(const OrderKey &left, const OrderKey &right) const
{
    const auto &order = m_query.order();
    for (int i = 0; i < left.size(); ++i) {
        const bool descending =
            static_cast<std::size_t>(i) < order.size() && order[static_cast<std::size_t>(i)].descending;
        const QVariant &a = descending ? right[i] : left[i];
        const QVariant &b = descending ? left[i] : right[i];
        if (a.isValid() != b.isValid())
            return !a.isValid(); // Null comes first
        if (!a.isValid())
            continue;
        if (a.typeId() == QMetaType::QString) {
            // Byte by byte, as SQLite sorts.
            const int difference = a.toString().toUtf8().compare(b.toString().toUtf8());
            if (difference != 0)
                return difference < 0;
        } else if (a.toLongLong() != b.toLongLong()) {
            return a.toLongLong() < b.toLongLong();
        }
    }
    return false;
}

int RowSet::find(const SqlText &condition, int from)
{
    ensureCopy();
    Statement rows = connection().prepare("SELECT rowid FROM " + m_source + " WHERE " + condition.sql +
                                          (m_ascending ? " AND rowid>=? ORDER BY rowid" : ""));
    QVector<QVariant> values = condition.values;
    if (m_ascending) {
        if (from >= size())
            return -1;
        values.append(static_cast<qlonglong>(key(from)));
    }
    rows.bind(values);
    QSet<qint64> found;
    while (rows.step()) {
        if (!m_ascending) {
            found.insert(rows.integer(0));
            continue;
        }
        // The table may hold rows that are not ours.
        const int position = positionOf(rows.integer(0), from);
        if (position >= 0)
            return position;
    }
    return firstOf(found, from);
}

int RowSet::positionOf(qint64 key, int from) const
{
    const auto place = std::lower_bound(m_keys.begin() + from, m_keys.end(), key);
    return place != m_keys.end() && *place == key ? static_cast<int>(place - m_keys.begin()) : -1;
}

int RowSet::firstOf(const QSet<qint64> &keys, int from) const
{
    if (keys.isEmpty() || from >= size())
        return -1;
    const qint64 only = *keys.begin();
    const auto place = keys.size() == 1 ? std::find(m_keys.begin() + from, m_keys.end(), only)
                                        : std::find_if(m_keys.begin() + from, m_keys.end(),
                                                       [&keys](qint64 key) { return keys.contains(key); });
    return place == m_keys.end() ? -1 : static_cast<int>(place - m_keys.begin());
}

std::optional<QVector<QVariant>> RowSet::read(qint64 key)
{
    ensureCopy();
    Statement row = connection().prepare(m_readSql);
    row.bind({static_cast<qlonglong>(key)});
    if (!row.step())
        return std::nullopt;
    QVector<QVariant> values;
    const auto &columns = m_query.columns();
    values.reserve(columns.size());
    for (int i = 0; i < columns.size(); ++i)
        values.append(readField(row, i, columns[i].field.type));
    return values;
}

void RowSet::append(qint64 key)
{
    m_ascending = m_ascending && (m_keys.empty() || m_keys.back() < key);
    m_keys.push_back(key);
}

void RowSet::erase(int position)
{
    m_keys.erase(m_keys.begin() + position);
}

} // namespace norvane::dao
