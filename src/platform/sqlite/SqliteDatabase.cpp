#include "platform/sqlite/SqliteDatabase.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/Catalogue.h"
#include "platform/sqlite/DatabaseCore.h"
#include "platform/sqlite/database_file.h"
#include "platform/sqlite/file_copy.h"
#include "platform/sqlite/open_recordset.h"

namespace norvane::dao {

namespace {

/// Keeps the database for itself; shared again at the end.
class Alone
{
public:
    explicit Alone(FileLock &lock) : m_lock(lock) { lock.change(FileLock::Kind::Alone); }
    ~Alone() { m_lock.share(); }
    Alone(const Alone &) = delete;
    Alone &operator=(const Alone &) = delete;

private:
    FileLock &m_lock;
};

} // namespace

SqliteDatabase::SqliteDatabase(const QString &path, bool exclusive, bool readOnly, const QString &password)
    : m_path(path), m_password(password), m_exclusive(exclusive)
{
    const QString file = existingFile(path);
    if (!readOnly)
        dao::checkWritable(file);
    auto lock = FileLock::take(file, exclusive ? FileLock::Kind::Alone : FileLock::Kind::Shared, readOnly);
    proveDatabase(file, password);
    if (readOnly)
        m_copy = copyToRead(file, password);
    m_core = std::make_shared<DatabaseCore>(m_copy ? copyIn(*m_copy) : file, readOnly, exclusive);
    m_core->lock = std::move(lock);
    m_core->connect(password);
}

SqliteDatabase::~SqliteDatabase()
{
    SqliteDatabase::close();
}

std::unique_ptr<Recordset> SqliteDatabase::openRecordset(const QString &sql, RecordsetType type,
                                                         bool readOnly)
{
    m_core->connection();
    return openRows(m_core, std::make_unique<SelectQuery>(*m_core, sql), type, readOnly);
}

QVector<TableDef> SqliteDatabase::tableDefs() const
{
    m_core->readTables();
    return m_core->tables();
}

void SqliteDatabase::appendTable(const TableDef &table)
{
    checkWritable();
    appendTableDef(m_core->connection(), table);
    m_core->readTables();
}

void SqliteDatabase::setAllowZeroLength(const QString &table, const QString &field, bool allow)
{
    checkWritable();
    const TableDef &definition = m_core->table(table);
    for (const FieldDef &each : definition.fields) {
        if (each.name.compare(field, Qt::CaseInsensitive) != 0)
            continue;
        if (each.allowZeroLength != allow) {
            writeAllowZeroLength(m_core->connection(), definition.name, each.name, allow);
            m_core->readTables();
        }
        return;
    }
    throw RuntimeError(kErrorItemNotFound, QStringLiteral("There is no field '%1' here.").arg(field));
}

void SqliteDatabase::newPassword(const QString &oldPassword, const QString &newPassword)
{
    checkWritable();
    if (oldPassword != m_password)
        throw RuntimeError(kErrorNotAPassword, QStringLiteral("Not a valid password."));
    if (newPassword == oldPassword)
        return;
    const QString file = m_core->file();
    std::optional<Alone> alone;
    if (!m_exclusive)
        alone.emplace(*m_core->lock);
    m_core->disconnect();
    removeAbandoned(file);
    try {
        TemporaryFile copy(temporaryName(file));
        writeCompactedCopy(file, m_password, copy.name(), newPassword);
        renameOver(copy.name(), file);
        copy.release();
    } catch (const RuntimeError &) {
        m_core->connect(m_password);
        throw;
    }
    m_password = newPassword;
    m_core->connect(m_password);
}

void SqliteDatabase::beginTrans()
{
    checkWritable();
    m_core->beginTrans();
}

void SqliteDatabase::commitTrans()
{
    m_core->commitTrans();
}

void SqliteDatabase::rollback() noexcept
{
    m_core->rollback();
}

void SqliteDatabase::reserveNumbers(const QString &table, int count)
{
    checkWritable();
    m_core->reserveNumbers(table, count);
}

void SqliteDatabase::setProgress(std::function<bool()> goOn)
{
    m_core->setProgress(std::move(goOn));
}

quint64 SqliteDatabase::statementCount() const
{
    return m_core->statementCount();
}

void SqliteDatabase::close()
{
    m_core->disconnect();
    m_core->lock.reset();
}

void SqliteDatabase::checkWritable() const
{
    m_core->connection();
    if (m_core->readOnly())
        throw RuntimeError(kErrorReadOnly,
                           QStringLiteral("The database cannot be changed. It is read-only."));
}

} // namespace norvane::dao
