#include "platform/sqlite/open_recordset.h"

#include "platform/sqlite/DatabaseCore.h"
#include "platform/sqlite/FinishedRecordset.h"
#include "platform/sqlite/KeysetRecordset.h"

namespace norvane::dao {

std::unique_ptr<Recordset> openRows(const std::shared_ptr<DatabaseCore> &core,
                                    std::unique_ptr<SelectQuery> query, RecordsetType type, bool readOnly,
                                    const RowSet *among)
{
    if (query->isAggregate() || type == RecordsetType::ForwardOnly)
        return std::make_unique<FinishedRecordset>(core, std::move(query),
                                                   type == RecordsetType::ForwardOnly);
    return std::make_unique<KeysetRecordset>(core, std::move(query), type, readOnly || core->readOnly(),
                                             among);
}

} // namespace norvane::dao
