#pragma once

#include "platform/RuntimeError.h"
#include "platform/sqlite/LocalDates.h"
#include "platform/sqlite/Statement.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QVector>
#include <deque>
#include <memory>
#include <optional>
#include <unordered_map>

struct sqlite3;

namespace norvane::dao {

/// An error of SQLite, with its own code beside our number.
class SqliteError : public RuntimeError
{
public:
    SqliteError(int number, const QString &description, int code)
        : RuntimeError(number, description), m_code(code)
    {
    }
    int code() const noexcept { return m_code; }

private:
    int m_code;
};

/// One open SQLite connection: its settings, its limits, its statements and what it wrote.
///
/// Used by one thread; no transaction stays open between two calls of its users.
class Connection
{
public:
    enum class Mode {
        ReadWrite,
        ReadOnly,
        /// Neither locks nor rolls anything back: harmless beside a journal that is still needed.
        Immutable,
    };

    /// Opens the file. @p password is not proven before the first read.
    Connection(const QString &path, Mode mode, const QString &password);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// A statement of the cache, reset when it goes out of scope.
    Statement prepare(const QByteArray &sql);
    /// Runs a statement to its end; returns how many rows it changed.
    int run(const QByteArray &sql, const QVector<QVariant> &values = {});
    /// The first column of the first row, an invalid value when there is no row.
    QVariant single(const QByteArray &sql, const QVector<QVariant> &values = {});

    /// Statements that follow may take as long as they need.
    void setPatient() { m_patient = true; }

    quint64 statementCount() const { return m_statementCount; }
    bool readOnly() const { return m_mode != Mode::ReadWrite; }
    qint64 lastInsertId() const;
    bool isInTransaction() const;

    /// A number that changes when another connection has changed the file.
    qint64 foreignVersion();

    /// A row of a table of the file that this connection wrote.
    struct Change
    {
        QString table;
        qint64 key = 0;
    };
    /// How many changes there were so far; a place in their row.
    quint64 changeCount() const { return m_changesBefore + m_changes.size(); }
    /// The rows of @p table changed since @p place, each once; nothing when they are no longer known.
    std::optional<QSet<qint64>> changesSince(quint64 place, const QString &table) const;

    /// Raises a SqliteError for the connection's last failure.
    [[noreturn]] void raise(int code) const;

private:
    friend class Statement;
    void configure(const QString &password);
    void noteStatement();
    static int onProgress(void *self);
    static void onChange(void *self, int operation, const char *database, const char *table, long long key);

    Mode m_mode;
    sqlite3 *m_handle = nullptr;
    std::unordered_map<std::string, std::unique_ptr<PreparedStatement>> m_statements;
    quint64 m_statementCount = 0;
    quint64 m_useCount = 0;
    bool m_patient = false;
    qint64 m_deadline = 0;
    LocalDates m_localDates;
    std::deque<Change> m_changes;
    quint64 m_changesBefore = 0; ///< changes dropped from the front of m_changes
};

/// Begins a transaction that is rolled back unless commit() was reached. Inside another one it is a part
/// of that, and rolled back alone.
class Transaction
{
public:
    enum class Kind { Read, Write };
    Transaction(Connection &connection, Kind kind);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;
    void commit();

private:
    Connection &m_connection;
    bool m_isInner;
    bool m_open = true;
};

} // namespace norvane::dao
