#include "platform/sqlite/RowSet.h"

#include "platform/RuntimeError.h"
#include "platform/sqlite/Catalogue.h"
#include "platform/sqlite/DatabaseCore.h"
#include "platform/sqlite/values.h"

#include <QElapsedTimer>
#include <QtEndian>
#include <algorithm>
#include <cstring>
#include <limits>

namespace norvane::dao {

namespace {

/// No version of a file.
constexpr qint64 kUnknown = -1;
/// With more changes than that, all rows are read.
constexpr int kMostChanges = 500;
/// Up to here it is quicker to look for each.
constexpr int kFewChanges = 8;
constexpr qint64 kPieceMilliseconds = 20;
constexpr qint64 kFirstPiece = 64;

/// A row with what it is ordered by, in a heap of bytes.
struct OrderedRow
{
    quint64 start; ///< the first bytes as a number: most rows differ in these
    qsizetype begin;
    qsizetype size;
    qint64 key;
};

/// Numbers are in the order of the texts' first bytes.
quint64 startOf(QByteArrayView bytes)
{
    quint64 start = 0;
    std::memcpy(&start, bytes.data(), std::min(sizeof start, static_cast<std::size_t>(bytes.size())));
    return qFromBigEndian(start);
}

} // namespace

RowSet::RowSet(std::shared_ptr<DatabaseCore> core, const SelectQuery &query, bool snapshot,
               const RowSet *among)
    : m_core(std::move(core)), m_query(query), m_snapshot(snapshot),
      m_source(snapshot ? m_core->newTemporaryTable() : query.source()),
      m_readSql("SELECT " + query.selectList() + " FROM " + m_source + " WHERE rowid=?"),
      m_orderKeySql("SELECT " + query.orderList() + " FROM " + m_source + " WHERE rowid=?")
{
    read(!snapshot && among && among->isCurrent() ? among : nullptr);
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

std::optional<QSet<int>> RowSet::requery()
{
    return read(nullptr);
}

std::vector<int> RowSet::keys() const
{
    std::vector<int> keys(m_keys.size());
    std::transform(m_keys.begin(), m_keys.end(), keys.begin(),
                   [](qint64 key) { return static_cast<int>(key); });
    return keys;
}

bool RowSet::isInPieces() const
{
    return !m_snapshot && m_core->hasProgress();
}

/// Whether the keys are those that reading them anew would give.
bool RowSet::isCurrent() const
{
    return !m_snapshot && m_generation == m_core->generation() && m_changes == connection().changeCount() &&
           m_foreignVersion == connection().foreignVersion();
}

std::optional<QSet<int>> RowSet::read(const RowSet *among)
{
    std::optional<Transaction> transaction;
    const bool isWhole = !isInPieces();
    if (isWhole)
        transaction.emplace(connection(), Transaction::Kind::Read);
    const qint64 version = connection().foreignVersion();
    const quint64 changes = connection().changeCount();
    const int generation = m_core->generation();
    const bool known = m_generation == generation && version == m_foreignVersion;
    m_foreignVersion = kUnknown; // a failure half way is made good by the next requery
    std::optional<QSet<int>> changed;
    if (among)
        readAmong(*among);
    else if (known)
        changed = readChanged();
    if (!among && !changed)
        readAll();
    m_generation = generation;
    m_changes = changes;
    if (isWhole)
        transaction->commit();
    else if (!changed && generation == m_core->generation() && readChanged())
        m_changes = connection().changeCount(); // with what was written between the pieces
    m_foreignVersion = version;
    return changed;
}

/// A new password takes a new connection, which has no copy yet.
void RowSet::ensureCopy()
{
    if (m_snapshot && m_generation != m_core->generation())
        requery();
}

void RowSet::readAll()
{
    SqlText where = m_query.where();
    if (m_snapshot) {
        makeCopy();
        copyRows(where);
        where = {" WHERE 1", {}};
    }
    qint64 first = std::numeric_limits<qint64>::min();
    qint64 last = std::numeric_limits<qint64>::max();
    if (isInPieces()) {
        first = connection().single("SELECT min(rowid) FROM " + m_source).toLongLong();
        last = connection().single("SELECT max(rowid) FROM " + m_source).toLongLong();
    }
    const QByteArray sql = "SELECT " + m_query.orderList() + " FROM " + m_source + where.sql +
                           " AND rowid BETWEEN ? AND ? ORDER BY rowid";
    const bool isOrdered = m_query.isOrdered();
    QByteArray bytes;
    std::vector<OrderedRow> found;
    inPieces(first, last, [&](qint64 from, qint64 to) {
        Statement rows = connection().prepare(sql);
        rows.bind(where.values + QVector<QVariant>{static_cast<qlonglong>(from), static_cast<qlonglong>(to)});
        const int keyColumn = rows.columnCount() - 1;
        while (rows.step()) {
            const qsizetype begin = bytes.size();
            if (isOrdered)
                appendOrderKey(bytes, rows);
            const quint64 start = isOrdered ? startOf(QByteArrayView(bytes).sliced(begin)) : 0;
            found.push_back({start, begin, bytes.size() - begin, rows.integer(keyColumn)});
        }
    });
    if (isOrdered) {
        const auto orderOf = [&bytes](const OrderedRow &row) {
            return std::string_view(bytes.constData() + row.begin, static_cast<std::size_t>(row.size));
        };
        std::sort(found.begin(), found.end(), [&orderOf](const OrderedRow &left, const OrderedRow &right) {
            return left.start != right.start ? left.start < right.start : orderOf(left) < orderOf(right);
        });
    }
    m_keys.resize(found.size());
    std::transform(found.begin(), found.end(), m_keys.begin(), [](const OrderedRow &row) { return row.key; });
    m_ascending = !isOrdered;
}

/// What the others are ordered by orders these, too.
void RowSet::readAmong(const RowSet &others)
{
    const std::vector<qint64> keys = others.m_keys;
    const bool isAscending = others.m_ascending;
    std::vector<qint64> sought = keys;
    std::sort(sought.begin(), sought.end()); // as they stand in the file
    const SqlText condition = m_query.lastCondition();
    const QByteArray sql = "SELECT 1 FROM " + m_source + " WHERE " + condition.sql + " AND rowid=?";
    const auto keyParameter = static_cast<int>(condition.values.size()) + 1;
    std::vector<qint64> found;
    inPieces(0, static_cast<qint64>(sought.size()) - 1, [&](qint64 from, qint64 to) {
        Statement row = connection().prepare(sql);
        row.bind(condition.values);
        for (qint64 i = from; i <= to; ++i) {
            const qint64 key = sought[static_cast<std::size_t>(i)];
            row.restart(keyParameter, key);
            if (row.step())
                found.push_back(key);
        }
    });
    m_keys.clear();
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(m_keys),
                 [&found](qint64 key) { return std::binary_search(found.begin(), found.end(), key); });
    m_ascending = isAscending;
}

/// Calls for the numbers from @p first to @p last, all at once or for so many at a time as are read in a
/// moment.
void RowSet::inPieces(qint64 first, qint64 last, const ReadPiece &readPiece)
{
    if (!isInPieces()) {
        readPiece(first, last);
        return;
    }
    qint64 size = kFirstPiece;
    for (qint64 from = first;;) {
        QElapsedTimer timer;
        timer.start();
        const qint64 to = last - from < size ? last : from + size - 1;
        {
            // Else each statement of the piece takes the file's lock for itself.
            Transaction transaction(connection(), Transaction::Kind::Read);
            readPiece(from, to);
            transaction.commit();
        }
        if (timer.elapsed() < kPieceMilliseconds / 2)
            size *= 2;
        else if (timer.elapsed() > kPieceMilliseconds)
            size = std::max<qint64>(1, size / 2);
        m_core->tellProgress();
        if (to >= last)
            return;
        from = to + 1;
    }
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

std::optional<QSet<int>> RowSet::readChanged()
{
    const auto changed = connection().changesSince(m_changes, m_query.table().name);
    if (!changed || changed->size() > kMostChanges)
        return std::nullopt;
    if (changed->size() <= kFewChanges) {
        for (const qint64 key : *changed)
            if (const auto place = std::find(m_keys.begin(), m_keys.end(), key); place != m_keys.end())
                m_keys.erase(place);
    } else {
        std::erase_if(m_keys, [&changed](qint64 key) { return changed->contains(key); });
    }
    QSet<int> told;
    for (const qint64 key : *changed) {
        told.insert(static_cast<int>(key));
        if (refreshRow(key))
            insertInOrder(key);
    }
    return told;
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
        return theirs && mine && *theirs < *mine;
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
    appendOrderKey(result, row);
    return result;
}

/// Null comes first, and texts sort byte by byte.
void RowSet::appendOrderKey(QByteArray &bytes, const Statement &row) const
{
    const auto &order = m_query.order();
    for (int i = 0; i < row.columnCount(); ++i) {
        const qsizetype begin = bytes.size();
        if (row.isNull(i)) {
            bytes += '\0';
        } else if (row.isText(i)) {
            bytes += '\2';
            std::string_view text = row.bytes(i);
            for (std::size_t zero; (zero = text.find('\0')) != text.npos; text.remove_prefix(zero + 1)) {
                bytes += QByteArrayView(text.data(), static_cast<qsizetype>(zero + 1));
                bytes += '\1';
            }
            bytes += QByteArrayView(text.data(), static_cast<qsizetype>(text.size()));
            bytes += QByteArrayView("\0", 2); // a text comes before those that it begins
        } else {
            bytes += '\1';
            const auto number = static_cast<quint64>(row.integer(i)) ^ (quint64(1) << 63);
            const quint64 inOrder = qToBigEndian(number);
            bytes.append(reinterpret_cast<const char *>(&inOrder), sizeof inOrder);
        }
        const auto place = static_cast<std::size_t>(i);
        if (place < order.size() && order[place].descending)
            std::transform(bytes.begin() + begin, bytes.end(), bytes.begin() + begin,
                           [](char byte) { return static_cast<char>(~byte); });
    }
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
