#include "platform/sqlite/FinishedRecordset.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/DatabaseCore.h"
#include "platform/sqlite/values.h"

namespace norvane::dao {

FinishedRecordset::FinishedRecordset(std::shared_ptr<DatabaseCore> core, std::unique_ptr<SelectQuery> query,
                                     bool forwardOnly)
    : QueryRecordset(std::move(core), std::move(query), true), m_forwardOnly(forwardOnly)
{
    readAll();
}

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
    const auto column = static_cast<std::size_t>(query().columnIndex(name));
    checkCurrent();
    const auto width = static_cast<std::size_t>(query().columns().size());
    return m_values[static_cast<std::size_t>(m_position) * width + column];
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

void FinishedRecordset::close()
{
    m_values.clear();
    QueryRecordset::close();
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
        raiseNoCurrentRecord();
}

void FinishedRecordset::readAll()
{
    const SqlText where = query().where();
    Statement rows =
        core().connection().prepare("SELECT " + query().selectList() + " FROM " + query().source() +
                                    where.sql + (query().isAggregate() ? QByteArray() : query().orderBy()));
    rows.bind(where.values);
    m_values.clear();
    m_rowCount = 0;
    m_position = 0;
    const auto &columns = query().columns();
    for (; rows.step(); ++m_rowCount)
        for (int i = 0; i < columns.size(); ++i)
            m_values.push_back(readField(rows, i, columns[i].field.type));
}

void FinishedRecordset::raiseInvalid() const
{
    checkOpen();
    throw RuntimeError(kErrorInvalidOperation, QStringLiteral("These records can only be walked forward."));
}

} // namespace norvane::dao
