#pragma once

#include "platform/sqlite/SelectQuery.h"

#include <QSet>
#include <QVector>
#include <memory>
#include <optional>
#include <vector>

namespace norvane::dao {

class Connection;
class DatabaseCore;
class Statement;

/// The keys of the rows of a statement in their order, and where their values are read.
///
/// A dynaset reads the table; a snapshot reads a copy of the selected columns in a temporary table
/// in memory, which nobody writes. Reading anew costs by what this program changed since; after a
/// change by another program all rows are read.
///
/// While somebody wants to hear of the progress, a dynaset is read piece by piece.
class RowSet
{
public:
    /// @param among rows that hold all of this statement's: its last condition is the one that they lack
    RowSet(std::shared_ptr<DatabaseCore> core, const SelectQuery &query, bool snapshot,
           const RowSet *among = nullptr);
    ~RowSet();
    RowSet(const RowSet &) = delete;
    RowSet &operator=(const RowSet &) = delete;

    int size() const { return static_cast<int>(m_keys.size()); }
    qint64 key(int position) const { return m_keys[static_cast<std::size_t>(position)]; }

    /// The rows that may have changed; nothing when all were read.
    std::optional<QSet<int>> requery();
    std::vector<int> keys() const;
    /// The position of the first row from @p from on that satisfies the condition; -1 when there is
    /// none.
    int find(const SqlText &condition, int from);
    /// The values of the selected columns; nothing when the row is deleted.
    std::optional<QVector<QVariant>> read(qint64 key);

    void append(qint64 key);
    void erase(int position);

private:
    /// What a row is ordered by, as bytes: a row comes before another when its bytes do.
    using OrderKey = QByteArray;
    using ReadPiece = std::function<void(qint64 first, qint64 last)>;

    Connection &connection() const;
    void ensureCopy();
    bool isInPieces() const;
    bool isCurrent() const;
    std::optional<QSet<int>> read(const RowSet *among);
    void readAll();
    void readAmong(const RowSet &others);
    void inPieces(qint64 first, qint64 last, const ReadPiece &readPiece);
    std::optional<QSet<int>> readChanged();
    void makeCopy();
    void copyRows(const SqlText &where);
    bool refreshRow(qint64 key);
    void insertInOrder(qint64 key);
    std::optional<OrderKey> orderKey(qint64 key);
    void appendOrderKey(QByteArray &bytes, const Statement &row) const;
    int positionOf(qint64 key, int from) const;
    int firstOf(const QSet<qint64> &keys, int from) const;

    std::shared_ptr<DatabaseCore> m_core;
    const SelectQuery &m_query;
    bool m_snapshot;
    QByteArray m_source; ///< the table, or the copy
    QByteArray m_readSql;
    QByteArray m_orderKeySql;
    std::vector<qint64> m_keys;
    bool m_ascending = true; ///< whether m_keys are in the order of their numbers

    int m_generation = 0;
    quint64 m_changes = 0;
    qint64 m_foreignVersion = 0;
};

} // namespace norvane::dao
