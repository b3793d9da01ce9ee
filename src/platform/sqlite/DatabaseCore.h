#pragma once

#include "platform/dao.h"
#include "platform/sqlite/Connection.h"
#include "platform/sqlite/FileLock.h"

#include <QHash>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace norvane::dao {

/// What a database shares with its recordsets, which may outlive it: the connection while it is
/// open.
class DatabaseCore
{
public:
    DatabaseCore(QString file, bool readOnly, bool exclusive)
        : m_file(std::move(file)), m_readOnly(readOnly), m_exclusive(exclusive)
    {
    }

    const QString &file() const { return m_file; }
    bool readOnly() const { return m_readOnly; }

    /// Opens the connection; the password is proven.
    void connect(const QString &password);
    void disconnect();
    /// Raises 91 when the database is closed.
    Connection &connection() const;
    bool isOpen() const { return m_connection != nullptr; }
    /// Grows with every connect(): temporary tables and change counts of the one before are gone.
    int generation() const { return m_generation; }
    quint64 statementCount() const;

    const QVector<TableDef> &tables() const { return m_tables; }
    void readTables();
    /// The table with this name in any case. Raises 3265.
    const TableDef &table(const QString &name);

    // As Database has them.
    void beginTrans();
    void commitTrans();
    void rollback() noexcept { m_transaction.reset(); }
    void reserveNumbers(const QString &table, int count);
    /// A number for a new record of the table.
    qint64 takeNumber(const QString &table);

    /// A name for a temporary table.
    QByteArray newTemporaryTable() { return "temp.snapshot" + QByteArray::number(++m_temporaryTables); }

    void setProgress(std::function<bool()> goOn) { m_progress = std::move(goOn); }
    /// Whether somebody wants to be told now how a reading goes on.
    bool hasProgress() const { return m_progress && !m_isInProgress; }
    /// Has the caller's events run. Raises 3059 when he has enough; the database may be closed then.
    void tellProgress();

    std::unique_ptr<FileLock> lock;

private:
    const TableDef *findTable(const QString &name) const;

    QString m_file;
    bool m_readOnly;
    bool m_exclusive;
    std::unique_ptr<Connection> m_connection;
    std::optional<Transaction> m_transaction;
    QHash<QString, std::deque<qint64>> m_numbers; ///< given out already, for new records of each table
    QVector<TableDef> m_tables;
    int m_generation = 0;
    int m_temporaryTables = 0;
    std::function<bool()> m_progress;
    bool m_isInProgress = false;
    quint64 m_statementsBefore = 0; ///< of connections that are closed
};

} // namespace norvane::dao
