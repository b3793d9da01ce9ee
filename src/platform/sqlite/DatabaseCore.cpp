#include "platform/sqlite/DatabaseCore.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/Catalogue.h"

#include <QScopedValueRollback>
#include <limits>

namespace norvane::dao {

void DatabaseCore::connect(const QString &password)
{
    m_connection = std::make_unique<Connection>(
        m_file, m_readOnly ? Connection::Mode::ReadOnly : Connection::Mode::ReadWrite, password);
    ++m_generation;
    try {
        if (!m_readOnly)
            m_connection->run("PRAGMA journal_mode=DELETE");
        else if (m_exclusive)
            m_connection->run("PRAGMA locking_mode=EXCLUSIVE"); // of a reader: nobody writes meanwhile
        readTables();
    } catch (const RuntimeError &) {
        disconnect();
        throw;
    }
}

void DatabaseCore::disconnect()
{
    m_statementsBefore = statementCount();
    m_transaction.reset();
    m_connection.reset();
}

Connection &DatabaseCore::connection() const
{
    if (!m_connection)
        throw RuntimeError(kErrorNothingThere, QStringLiteral("The database is not open."));
    return *m_connection;
}

quint64 DatabaseCore::statementCount() const
{
    return m_statementsBefore + (m_connection ? m_connection->statementCount() : 0);
}

void DatabaseCore::beginTrans()
{
    m_transaction.emplace(connection(), Transaction::Kind::Write);
}

void DatabaseCore::commitTrans()
{
    if (!m_transaction || !connection().isInTransaction())
        throw RuntimeError(kErrorNothingThere, QStringLiteral("There is no transaction to commit."));
    m_transaction->commit();
    m_transaction.reset();
}

/// Moves the table's counter on, so that no other program gives out the same numbers.
void DatabaseCore::reserveNumbers(const QString &table, int count)
{
    const QString &name = this->table(table).name;
    std::deque<qint64> &numbers = m_numbers[name];
    const qint64 missing = count - static_cast<qint64>(numbers.size());
    if (missing <= 0)
        return;
    Transaction transaction(connection(), Transaction::Kind::Write);
    const auto more = static_cast<qlonglong>(missing);
    if (connection().run("UPDATE sqlite_sequence SET seq=seq+? WHERE name=?", {more, name}) == 0)
        connection().run("INSERT INTO sqlite_sequence(name, seq) VALUES (?, ?)", {name, more});
    const qint64 last =
        connection().single("SELECT seq FROM sqlite_sequence WHERE name=?", {name}).toLongLong();
    if (last > std::numeric_limits<qint32>::max())
        throw RuntimeError(kErrorOverflow,
                           QStringLiteral("Overflow: the numbers of '%1' are used up.").arg(name));
    transaction.commit();
    for (qint64 number = last - missing + 1; number <= last; ++number)
        numbers.push_back(number);
}

qint64 DatabaseCore::takeNumber(const QString &table)
{
    reserveNumbers(table, 1);
    std::deque<qint64> &numbers = m_numbers[this->table(table).name];
    const qint64 number = numbers.front();
    numbers.pop_front();
    return number;
}

void DatabaseCore::tellProgress()
{
    if (!hasProgress())
        return;
    const QScopedValueRollback<bool> isIn(m_isInProgress, true);
    const std::function<bool()> goOn = m_progress; // it may put another in its place
    if (!goOn())
        throw RuntimeError(kErrorCancelled, QStringLiteral("The query was stopped."));
}

void DatabaseCore::readTables()
{
    m_tables = readTableDefs(connection());
}

const TableDef &DatabaseCore::table(const QString &name)
{
    if (const TableDef *found = findTable(name))
        return *found;
    readTables(); // another program may have made it
    if (const TableDef *found = findTable(name))
        return *found;
    throw RuntimeError(kErrorItemNotFound, QStringLiteral("There is no table '%1'.").arg(name));
}

const TableDef *DatabaseCore::findTable(const QString &name) const
{
    for (const TableDef &table : m_tables)
        if (table.name.compare(name, Qt::CaseInsensitive) == 0)
            return &table;
    return nullptr;
}

} // namespace norvane::dao
