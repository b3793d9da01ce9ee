#pragma once

namespace norvane {

class NoteStore;

// What every way of deleting a note has in common. In which order with the windows and lists that show the
// note is each caller's; requeryNoteIndex() belongs behind the first one.

/// Deletes the row of a note, which may be younger than the held recordset. A row that somebody else has
/// deleted is no fault. Raises 91 when no database is open, and what the engine raises.
void deleteNoteRow(NoteStore &store, int ID);
/// Deletes the body file of a note if there is one. Raises 75 when it cannot be deleted.
void deleteNoteBody(const NoteStore &store, int ID);

} // namespace norvane
