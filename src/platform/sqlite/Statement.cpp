#include "platform/sqlite/Statement.h"

#include "platform/sqlite/Connection.h"
#include "platform/sqlite/values.h"

#include <sqlite3.h>

namespace norvane::dao {

PreparedStatement::~PreparedStatement()
{
    sqlite3_finalize(handle);
}

Statement::Statement(Connection &connection, PreparedStatement &prepared)
    : m_connection(connection), m_prepared(&prepared)
{
    prepared.busy = true;
}

Statement::Statement(Statement &&other) noexcept
    : m_connection(other.m_connection), m_prepared(std::exchange(other.m_prepared, nullptr)),
      m_started(other.m_started)
{
}

Statement::~Statement()
{
    if (!m_prepared)
        return;
    sqlite3_reset(m_prepared->handle);
    sqlite3_clear_bindings(m_prepared->handle);
    m_prepared->busy = false;
}

void Statement::bind(const QVector<QVariant> &values)
{
    sqlite3_stmt *handle = m_prepared->handle;
    int index = 0;
    for (const QVariant &value : values) {
        ++index;
        int code = SQLITE_OK;
        switch (value.typeId()) {
        case QMetaType::UnknownType:
            code = sqlite3_bind_null(handle, index);
            break;
        case QMetaType::Bool:
            code = sqlite3_bind_int(handle, index, value.toBool() ? -1 : 0);
            break;
        case QMetaType::Int:
        case QMetaType::Short:
        case QMetaType::LongLong:
            code = sqlite3_bind_int64(handle, index, value.toLongLong());
            break;
        case QMetaType::Double:
            code = sqlite3_bind_double(handle, index, value.toDouble());
            break;
        default: {
            const QByteArray text =
                (value.typeId() == QMetaType::QDateTime ? storedDate(value.toDateTime()) : value.toString())
                    .toUtf8();
            code =
                sqlite3_bind_text64(handle, index, text.constData(), static_cast<sqlite3_uint64>(text.size()),
                                    SQLITE_TRANSIENT, SQLITE_UTF8);
        }
        }
        if (code != SQLITE_OK)
            m_connection.raise(code);
    }
}

void Statement::restart(int parameter, qint64 number)
{
    sqlite3_reset(m_prepared->handle);
    if (const int code = sqlite3_bind_int64(m_prepared->handle, parameter, number); code != SQLITE_OK)
        m_connection.raise(code);
}

bool Statement::step()
{
    if (!std::exchange(m_started, true))
        m_connection.noteStatement();
    const int code = sqlite3_step(m_prepared->handle);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        m_connection.raise(code);
    return false;
}

int Statement::columnCount() const
{
    return sqlite3_column_count(m_prepared->handle);
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_prepared->handle, column) == SQLITE_NULL;
}

bool Statement::isText(int column) const
{
    return sqlite3_column_type(m_prepared->handle, column) == SQLITE_TEXT;
}

qint64 Statement::integer(int column) const
{
    return sqlite3_column_int64(m_prepared->handle, column);
}

double Statement::real(int column) const
{
    return sqlite3_column_double(m_prepared->handle, column);
}

QString Statement::text(int column) const
{
    const std::string_view all = bytes(column);
    return QString::fromUtf8(all.data(), static_cast<qsizetype>(all.size()));
}

std::string_view Statement::bytes(int column) const
{
    // The text first: asking for its length may convert it.
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_prepared->handle, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(m_prepared->handle, column))};
}

QVariant Statement::value(int column) const
{
    switch (sqlite3_column_type(m_prepared->handle, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return static_cast<qlonglong>(integer(column));
    case SQLITE_FLOAT:
        return real(column);
    default:
        return text(column);
    }
}

LocalDates &Statement::localDates() const
{
    return m_connection.m_localDates;
}

} // namespace norvane::dao
