#pragma once

#include "platform/sqlite/Expression.h"

namespace norvane::dao {

/// Parses a condition such as `Active=True And URL <> ''`. Raises 3075 when it is none, or when
/// something stands behind it.
Expression parseCondition(const QString &text);

/// Parses `select ... from ... where ... order by ...`. Raises 3075.
SelectStatement parseSelect(const QString &text);

} // namespace norvane::dao
