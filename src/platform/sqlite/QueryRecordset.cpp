#include "platform/sqlite/QueryRecordset.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/DatabaseCore.h"
#include "platform/sqlite/open_recordset.h"

namespace norvane::dao {

QueryRecordset::QueryRecordset(std::shared_ptr<DatabaseCore> core, std::unique_ptr<SelectQuery> query,
                               bool readOnly)
    : m_core(std::move(core)), m_query(std::move(query)), m_readOnly(readOnly)
{
}

QueryRecordset::~QueryRecordset() = default;

QStringList QueryRecordset::fieldNames() const
{
    checkOpen();
    return m_query->columnNames();
}

void QueryRecordset::addNew()
{
    checkUpdatable();
}
void QueryRecordset::edit()
{
    checkUpdatable();
}
void QueryRecordset::setField(const QString & /*name*/, const QVariant & /*value*/)
{
    checkUpdatable();
}
void QueryRecordset::update()
{
    checkUpdatable();
}
void QueryRecordset::cancelUpdate()
{
    checkUpdatable();
}
void QueryRecordset::remove()
{
    checkUpdatable();
}

std::optional<QSet<int>> QueryRecordset::requeryChanged()
{
    requery();
    return std::nullopt;
}

std::vector<int> QueryRecordset::keys() const
{
    checkOpen();
    return {};
}

void QueryRecordset::setCacheSize(int /*records*/)
{
    checkOpen();
}
void QueryRecordset::fillCache()
{
    checkOpen();
}

void QueryRecordset::setFilter(const QString &condition)
{
    checkOpen();
    m_filter = condition;
}

QString QueryRecordset::filter() const
{
    checkOpen();
    return m_filter;
}

std::unique_ptr<Recordset> QueryRecordset::openRecordset(RecordsetType type)
{
    checkOpen();
    auto filtered = std::make_unique<SelectQuery>(*m_query);
    if (!m_filter.trimmed().isEmpty())
        filtered->addFilter(m_filter);
    return openRows(m_core, std::move(filtered), type, m_readOnly, ownRows());
}

void QueryRecordset::close()
{
    m_open = false;
}

void QueryRecordset::checkOpen() const
{
    if (!m_open)
        throw RuntimeError(kErrorNothingThere, QStringLiteral("The recordset is closed."));
    m_core->connection();
}

void QueryRecordset::checkUpdatable() const
{
    checkOpen();
    if (m_readOnly)
        throw RuntimeError(kErrorReadOnly,
                           QStringLiteral("The records cannot be changed. They are read-only."));
}

void QueryRecordset::raiseNoCurrentRecord()
{
    throw RuntimeError(kErrorNoCurrentRecord, QStringLiteral("There is no current record."));
}

} // namespace norvane::dao
