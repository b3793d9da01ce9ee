#pragma once

#include "platform/dao.h"

#include <memory>

namespace norvane::dao {

/// The database engine on SQLite files. One thread uses it and everything that comes from it.
std::unique_ptr<Engine> makeSqliteEngine();

} // namespace norvane::dao
