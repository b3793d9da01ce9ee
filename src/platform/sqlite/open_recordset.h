#pragma once

#include "platform/sqlite/SelectQuery.h"

#include <memory>

namespace norvane::dao {

class DatabaseCore;
class RowSet;

/// The recordset of this type for a checked statement.
/// @param among see RowSet
std::unique_ptr<Recordset> openRows(const std::shared_ptr<DatabaseCore> &core,
                                    std::unique_ptr<SelectQuery> query, RecordsetType type, bool readOnly,
                                    const RowSet *among = nullptr);

} // namespace norvane::dao
