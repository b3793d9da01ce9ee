#include "platform/sqlite/FinishedRecordset.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/DatabaseCore.h"
#include "platform/sqlite/open_recordset.h"
#include "platform/sqlite/values.h"

namespace norvane::dao {

FinishedRecordset::FinishedRecordset(std::shared_ptr<DatabaseCore> core, std::unique_ptr<SelectQuery> query,
                                     bool forwardOnly)
    : m_core(std::move(core)), m_query(std::move(query)), m_forwardOnly(forwardOnly)
{
    readAll();
}

FinishedRecordset::~FinishedRecordset() = default;

bool FinishedRecordset::bof() const
{
    checkOpen();
    return m_position < 0 || m_rowCount == 0;
}

bool FinishedRecordset::eof() const
{
    checkOpen();
    return m_position >= m_rowCount;
}

bool FinishedRecordset::noMatch() const
{
    checkOpen();
    return false;
}

void FinishedRecordset::moveFirst()
{
    checkBothWays();
    m_position = 0;
    checkCurrent();
}

void FinishedRecordset::moveLast()
{
    checkBothWays();
    m_position = m_rowCount - 1;
    checkCurrent();
}

void FinishedRecordset::moveNext()
{
    if (eof())
        checkCurrent();
    ++m_position;
}

void FinishedRecordset::movePrevious()
{
    checkBothWays();
    if (bof())
        checkCurrent();
    --m_position;
}

void FinishedRecordset::findFirst(const QString & /*condition*/)
{
    raiseInvalid();
}
void FinishedRecordset::findNext(const QString & /*condition*/)
{
    raiseInvalid();
}

QVariant FinishedRecordset::field(const QString &name) const
{
    checkOpen();
    const auto column = static_cast<std::size_t>(m_query->columnIndex(name));
    checkCurrent();
    const auto width = static_cast<std::size_t>(m_query->columns().size());
    return m_values[static_cast<std::size_t>(m_position) * width + column];
}

QStringList FinishedRecordset::fieldNames() const
{
    checkOpen();
    return m_query->columnNames();
}

void FinishedRecordset::addNew()
{
    raiseReadOnly();
}
void FinishedRecordset::edit()
{
    raiseReadOnly();
}
void FinishedRecordset::setField(const QString & /*name*/, const QVariant & /*value*/)
{
    raiseReadOnly();
}
void FinishedRecordset::update()
{
    raiseReadOnly();
}
void FinishedRecordset::cancelUpdate()
{
    raiseReadOnly();
}
void FinishedRecordset::remove()
{
    raiseReadOnly();
}

void FinishedRecordset::requery()
{
    checkOpen();
    readAll();
}

int FinishedRecordset::recordCount() const
{
    checkOpen();
    return m_rowCount;
}

void FinishedRecordset::setCacheSize(int /*records*/)
{
    checkOpen();
}
void FinishedRecordset::fillCache()
{
    checkOpen();
}

void FinishedRecordset::setFilter(const QString &condition)
{
    checkOpen();
    m_filter = condition;
}

QString FinishedRecordset::filter() const
{
    checkOpen();
    return m_filter;
}

std::unique_ptr<Recordset> FinishedRecordset::openRecordset(RecordsetType type)
{
    checkOpen();
    auto query = std::make_unique<SelectQuery>(*m_query);
    if (!m_filter.trimmed().isEmpty())
        query->addFilter(m_filter);
    return openRows(m_core, std::move(query), type, true);
}

void FinishedRecordset::close()
{
    m_values.clear();
    m_core.reset();
}

void FinishedRecordset::checkOpen() const
{
    if (!m_core)
        throw RuntimeError(kErrorNothingThere, QStringLiteral("The recordset is closed."));
    m_core->connection();
}

void FinishedRecordset::checkBothWays() const
{
    checkOpen();
    if (m_forwardOnly)
        raiseInvalid();
}

void FinishedRecordset::checkCurrent() const
{
    if (m_position < 0 || m_position >= m_rowCount)
        throw RuntimeError(kErrorNoCurrentRecord, QStringLiteral("There is no current record."));
}

void FinishedRecordset::readAll()
{
    const SqlText where = m_query->where();
    Statement rows = m_core->connection().prepare(
        "SELECT " + m_query->selectList() + " FROM " + m_query->source() + where.sql +
        (m_query->isAggregate() ? QByteArray() : m_query->orderBy()));
    rows.bind(where.values);
    m_values.clear();
    m_rowCount = 0;
    m_position = 0;
    const auto &columns = m_query->columns();
    for (; rows.step(); ++m_rowCount)
        for (int i = 0; i < columns.size(); ++i)
            m_values.push_back(readField(rows, i, columns[i].field.type));
}

void FinishedRecordset::raiseReadOnly() const
{
    checkOpen();
    throw RuntimeError(kErrorReadOnly, QStringLiteral("The records cannot be changed. They are read-only."));
}

void FinishedRecordset::raiseInvalid() const
{
    checkOpen();
    throw RuntimeError(kErrorInvalidOperation, QStringLiteral("These records can only be walked forward."));
}

} // namespace norvane::dao
