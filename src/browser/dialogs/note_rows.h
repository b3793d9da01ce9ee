#pragma once

#include "platform/dao.h"

namespace norvane {

class NoteStore;

/// All columns of the rows of Memos that satisfy a condition. Raises 91 when no database is open, and what
/// the engine raises.
std::unique_ptr<dao::Recordset> openNoteRows(const NoteStore &store, const QString &condition);

/// The row of one note; at its end when it is gone. Raises as openNoteRows().
std::unique_ptr<dao::Recordset> openNoteRow(const NoteStore &store, int ID);

} // namespace norvane
