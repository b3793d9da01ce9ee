#pragma once

#include <QString>

namespace norvane {

class Clock;
class NoteStore;

/// What the New Note dialog asks for.
struct NewNote
{
    QString FriendlyName; ///< as it was typed, blanks and all
    QString URL;          ///< cleaned
    int CAT_ID = 0;
    bool ACTIVE = false;
};

/// Adds a row to Memos, of a note that no window was at hand for, and requeries what holds rows. Raises
/// what the engine raises, and 91 when no database is open; no row was added then.
void addNote(NoteStore &store, const Clock &clock, const NewNote &note);

} // namespace norvane
