#pragma once

#include "platform/dao.h"
#include "search/search_criteria.h"

#include <memory>

namespace norvane {

class NoteStore;

/// The notes that meet the criteria, by title, counted and with the first one current. Raises what the
/// engine raises: a text with a double quote or an open bracket is a fault.
std::unique_ptr<dao::Recordset> findNotes(dao::Database &database, const SearchCriteria &criteria);
/// A result without notes. Raises what the engine raises.
std::unique_ptr<dao::Recordset> findNothing(dao::Database &database);

/// Sets @p dates to the span of all notes, in their order: a value that no note has, or a fault, leaves
/// that one and those behind it as they were.
void readDateSpan(const NoteStore &store, SearchDates &dates);

} // namespace norvane
