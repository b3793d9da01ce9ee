#pragma once

#include <QString>

namespace norvane {

namespace dao {
class Recordset;
}

/// Whether a note that stands in the target with the location of a source note counts as identical.
///
/// The fields of the two are compared by their position in the table's field list, the counted first one
/// left out; one equal field is enough, and a note that was identical before is enough, too. A comparison
/// with Null is undecided. Raises 94 when the answer is undecided while nothing was equal yet, and what the
/// recordsets raise.
/// @param T,S the current records of target and source
/// @param identical the answer for the note before
bool isIdenticalNote(const dao::Recordset &T, const dao::Recordset &S, bool identical);

} // namespace norvane
