#pragma once

#include "watcher/WatchCycle.h"

#include <QString>

namespace norvane {

class NoteGridView;
class Notices;
struct clsWindow;

/// Makes a window carry a note: adds one where none belongs to it, else makes the note active again.
class AttachWindow
{
public:
    /// The parts, the cycle and the notices outlive this object.
    AttachWindow(const WatchParts &parts, WatchCycle &cycle, Notices &notices);

    /// The grid that shows the notes; nullptr while there is none. Not owned.
    void setGrid(NoteGridView *grid) { m_grid = grid; }

    /// Attaches to @p hWnd, whose record of the last enumeration tells title and class; its location
    /// is asked afresh, at most 300 milliseconds. The next tick opens the note.
    ///
    /// A window without a location and every error are told by a notice.
    /// @param title carried for the callers' sake
    /// @return whether a note belongs to the window now
    bool operator()(const QString &title, WindowHandle hWnd);

private:
    clsWindow &record(WindowHandle hWnd);
    bool writeNote(const clsWindow &window);
    void addNote(const clsWindow &window);
    bool activateNote(const QString &criteria);

    WatchParts m_parts;
    WatchCycle &m_cycle;
    Notices &m_notices;
    NoteGridView *m_grid = nullptr;
};

} // namespace norvane
