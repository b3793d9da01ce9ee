#include "platform/sqlite/Connection.h"

#include "platform/errors.h"
#include "platform/sqlite/text_functions.h"

#include <QUrl>
#include <cerrno>
#include <chrono>
#include <limits>
#include <sqlite3.h>

namespace norvane::dao {

namespace {

constexpr int kBusyMilliseconds = 5'000;
/// A condition that takes longer is hostile or hopeless.
constexpr qint64 kStatementMilliseconds = 10'000;
constexpr int kProgressInstructions = 10'000;
constexpr std::size_t kCachedStatements = 64;
constexpr std::size_t kKnownChanges = 4096;
constexpr int kLongestValue = 256 * 1024 * 1024;

qint64 milliseconds()
{
    using namespace std::chrono;
    return duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count();
}

struct ErrorText
{
    int number;
    QString text;
};

ErrorText translated(int code, int systemError, const char *message)
{
    if (systemError == ENOSPC || systemError == EDQUOT || systemError == EFBIG)
        code = SQLITE_FULL;
    switch (code & 0xff) {
    case SQLITE_FULL:
        return {kErrorDiskFull, QStringLiteral("The disk is full. Free some room and try again.")};
    case SQLITE_READONLY:
        return {kErrorReadOnly, QStringLiteral("The database cannot be changed. It is read-only.")};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {kErrorLocked, QStringLiteral("The database is in use by another program. Try again later.")};
    case SQLITE_NOTADB:
        return {kErrorFormat, QStringLiteral("The file is not a database of this program.")};
    case SQLITE_CORRUPT:
        return {kErrorFormat,
                QStringLiteral("The database is damaged: a part of the file is missing or changed.")};
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_IOERR:
        return {kErrorFileAccess,
                QStringLiteral("The database file or its folder cannot be read or written.")};
    case SQLITE_TOOBIG:
        return {kErrorFieldTooLong, QStringLiteral("A text is too long.")};
    case SQLITE_CONSTRAINT:
        if (code == SQLITE_CONSTRAINT_NOTNULL)
            return {kErrorRequired, QStringLiteral("A required field has no value.")};
        return {kErrorDuplicate, QStringLiteral("A record with this value is there already.")};
    case SQLITE_INTERRUPT:
        return {kErrorSyntax, QStringLiteral("The condition takes too long.")};
    default:
        return {kErrorSyntax,
                QStringLiteral("The statement cannot be run: %1.").arg(QString::fromUtf8(message))};
    }
}

} // namespace

Connection::Connection(const QString &path, Mode mode, const QString &password) : m_mode(mode)
{
    QByteArray name = "file://" + QUrl::toPercentEncoding(path, "/");
    if (mode == Mode::Immutable)
        name += "?immutable=1";
    const int flags =
        (mode == Mode::ReadWrite ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY) | SQLITE_OPEN_URI;
    const int code = sqlite3_open_v2(name.constData(), &m_handle, flags, nullptr);
    try {
        if (code != SQLITE_OK)
            raise(code);
        configure(password);
    } catch (const RuntimeError &) {
        m_statements.clear();
        sqlite3_close(m_handle);
        throw;
    }
}

Connection::~Connection()
{
    m_statements.clear();
    sqlite3_close(m_handle);
}

void Connection::configure(const QString &password)
{
    sqlite3_extended_result_codes(m_handle, 1);
    if (const QByteArray key = password.toUtf8(); !key.isEmpty()) {
        if (const int code = sqlite3_key(m_handle, key.constData(), static_cast<int>(key.size()));
            code != SQLITE_OK)
            raise(code);
    }
    sqlite3_busy_timeout(m_handle, kBusyMilliseconds);
    sqlite3_progress_handler(m_handle, kProgressInstructions, &Connection::onProgress, this);
    sqlite3_update_hook(m_handle, &Connection::onChange, this);
    sqlite3_limit(m_handle, SQLITE_LIMIT_LENGTH, kLongestValue);
    sqlite3_limit(m_handle, SQLITE_LIMIT_ATTACHED, 1); // VACUUM attaches its target
    sqlite3_limit(m_handle, SQLITE_LIMIT_TRIGGER_DEPTH, 1);
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr); // numbering writes sqlite_sequence
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    registerTextFunctions(m_handle);
    run("PRAGMA temp_store=MEMORY");
    run("PRAGMA synchronous=EXTRA");
    run("PRAGMA cell_size_check=ON");
}

Statement Connection::prepare(const QByteArray &sql)
{
    const std::string key = sql.toStdString();
    const auto found = m_statements.find(key);
    if (found != m_statements.end() && !found->second->busy) {
        found->second->lastUse = ++m_useCount;
        return Statement(*this, *found->second);
    }
    if (found == m_statements.end() && m_statements.size() >= kCachedStatements) {
        auto oldest = m_statements.end();
        for (auto it = m_statements.begin(); it != m_statements.end(); ++it)
            if (!it->second->busy &&
                (oldest == m_statements.end() || it->second->lastUse < oldest->second->lastUse))
                oldest = it;
        if (oldest != m_statements.end())
            m_statements.erase(oldest);
    }
    auto prepared = std::make_unique<PreparedStatement>();
    const char *tail = nullptr;
    const int code =
        sqlite3_prepare_v2(m_handle, sql.constData(), static_cast<int>(sql.size()), &prepared->handle, &tail);
    if (code != SQLITE_OK)
        raise(code);
    prepared->lastUse = ++m_useCount;
    // A statement that is in use twice at once gets a second, short-lived place.
    const std::string place = found == m_statements.end() ? key : key + " --" + std::to_string(m_useCount);
    return Statement(*this, *(m_statements[place] = std::move(prepared)));
}

int Connection::run(const QByteArray &sql, const QVector<QVariant> &values)
{
    Statement statement = prepare(sql);
    statement.bind(values);
    while (statement.step()) {
    }
    return sqlite3_changes(m_handle);
}

QVariant Connection::single(const QByteArray &sql, const QVector<QVariant> &values)
{
    Statement statement = prepare(sql);
    statement.bind(values);
    return statement.step() ? statement.value(0) : QVariant();
}

qint64 Connection::lastInsertId() const
{
    return sqlite3_last_insert_rowid(m_handle);
}

bool Connection::isInTransaction() const
{
    return sqlite3_get_autocommit(m_handle) == 0;
}

qint64 Connection::foreignVersion()
{
    return single("PRAGMA data_version").toLongLong();
}

std::optional<QSet<qint64>> Connection::changesSince(quint64 place, const QString &table) const
{
    if (place < m_changesBefore)
        return std::nullopt;
    QSet<qint64> keys;
    for (auto it = m_changes.begin() + static_cast<std::ptrdiff_t>(place - m_changesBefore);
         it != m_changes.end(); ++it)
        if (it->table == table)
            keys.insert(it->key);
    return keys;
}

void Connection::raise(int code) const
{
    const int extended = m_handle ? sqlite3_extended_errcode(m_handle) : code;
    const bool same = (extended & 0xff) == (code & 0xff);
    const bool input = (code & 0xff) == SQLITE_IOERR || (code & 0xff) == SQLITE_CANTOPEN;
    const int systemError = m_handle && input ? sqlite3_system_errno(m_handle) : 0;
    const ErrorText error = translated(same ? extended : code, systemError,
                                       m_handle ? sqlite3_errmsg(m_handle) : sqlite3_errstr(code));
    throw SqliteError(error.number, error.text, code & 0xff);
}

void Connection::noteStatement()
{
    ++m_statementCount;
    m_deadline = m_patient ? std::numeric_limits<qint64>::max() : milliseconds() + kStatementMilliseconds;
}

int Connection::onProgress(void *self)
{
    return milliseconds() > static_cast<const Connection *>(self)->m_deadline ? 1 : 0;
}

void Connection::onChange(void *self, int /*operation*/, const char *database, const char *table,
                          long long key)
{
    if (qstrcmp(database, "main") != 0)
        return;
    auto &connection = *static_cast<Connection *>(self);
    connection.m_changes.push_back({QString::fromUtf8(table), key});
    if (connection.m_changes.size() > kKnownChanges) {
        connection.m_changes.pop_front();
        ++connection.m_changesBefore;
    }
}

Transaction::Transaction(Connection &connection, Kind kind)
    : m_connection(connection), m_isInner(connection.isInTransaction())
{
    if (m_isInner)
        connection.run("SAVEPOINT part");
    else
        connection.run(kind == Kind::Write ? "BEGIN IMMEDIATE" : "BEGIN");
}

Transaction::~Transaction()
{
    if (!m_open)
        return;
    try {
        if (m_isInner)
            m_connection.run("ROLLBACK TO part");
        m_connection.run(m_isInner ? "RELEASE part" : "ROLLBACK");
    } catch (const RuntimeError &) {
        // The failure that brought us here has rolled back already.
    }
}

void Transaction::commit()
{
    m_connection.run(m_isInner ? "RELEASE part" : "COMMIT");
    m_open = false;
}

} // namespace norvane::dao
