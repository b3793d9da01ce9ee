#pragma once

#include "platform/WindowHandle.h"

#include <QDateTime>
#include <QRectF>
#include <QString>

namespace norvane {

class Clock;
class FormList;
class NoteStore;
class Sound;
class StickyFactory;
class StickyNote;
class WindowLocation;
class WindowSystem;
class clsClips;
struct clsWindow;

namespace dao {
class Recordset;
}

/// What a sticky note is filled with from its row of Memos. Null numbers are 0, null texts empty.
struct NoteRow
{
    int ID = 0;
    QString FriendlyName;
    bool ShowToolbar = false;
    bool TypeEffect = false;
    qint16 FormPosition = 0;
    QRectF place; ///< `winLeft`, `Wintop`, `winWidth`, `winHeight`, twips
    quint32 BackColor = 0;
    QDateTime LastUpdate; ///< invalid where null
    bool AutoURLDetect = false;
    bool AutoSave = false;
    bool PlaySound = false;
    QString WAVFileName;
};

/// Reads the current record. Raises what the engine raises.
NoteRow readNoteRow(const dao::Recordset &notes);

/// Puts a note on the screen: makes its window, fills it and shows it inside its target.
class NoteLoader
{
public:
    NoteLoader(const NoteStore &store, WindowSystem &windows, const WindowLocation &location, clsClips &Clips,
               const FormList &forms, const Clock &clock, Sound &sound, StickyFactory &stickies);

    /// Fills a new note for the target, in an order that the note's window relies on, and adds its
    /// clip. The keyboard stays with the target.
    ///
    /// Raises 91 when the target or the note's own window has gone meanwhile, and what loading the
    /// body raises; a half-made note is unloaded then.
    void load(const NoteRow &row, const clsWindow &target);

private:
    void fill(StickyNote *note, const NoteRow &row, const clsWindow &target);
    void place(StickyNote &note, const NoteRow &row, WindowHandle target) const;
    void requireLoaded(const StickyNote *note) const;

    const NoteStore &m_store;
    WindowSystem &m_windows;
    const WindowLocation &m_location;
    clsClips &m_clips;
    const FormList &m_forms;
    const Clock &m_clock;
    Sound &m_sound;
    StickyFactory &m_stickies;
};

} // namespace norvane
