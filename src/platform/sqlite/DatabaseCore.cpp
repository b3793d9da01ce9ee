#include "platform/sqlite/DatabaseCore.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/Catalogue.h"

#include <QScopedValueRollback>

namespace norvane::dao {

void DatabaseCore::connect(const QString &password)
{
    m_connection = std::make_unique<Connection>(
        m_file, m_readOnly ? Connection::Mode::ReadOnly : Connection::Mode::ReadWrite, password);
    ++m_generation;
    try {
        if (!m_readOnly)
            m_connection->run("PRAGMA journal_mode=DELETE");
        readTables();
    } catch (const RuntimeError &) {
        disconnect();
        throw;
    }
}

void DatabaseCore::disconnect()
{
    m_statementsBefore = statementCount();
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
