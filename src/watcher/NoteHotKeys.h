#pragma once

#include "platform/WindowHandle.h"

namespace norvane {

class AttachWindow;
class FormList;
class NoteGridView;
class NoteStore;
class Notices;
class Prompts;
class WindowLocation;
class WindowSystem;

/// What the hot keys "Attach", "Detach" and "Delete" do to the front window's note. Each leaves the
/// keyboard with the front window.
class NoteHotKeys
{
public:
    /// All outlive this object.
    NoteHotKeys(NoteStore &store, WindowSystem &windows, const WindowLocation &location,
                const FormList &forms, AttachWindow &attach, Notices &notices, Prompts &prompts);

    /// The grid that shows the notes; nullptr while there is none. Not owned.
    void setGrid(NoteGridView *grid) { m_grid = grid; }

    /// Attaches a note to the front window; a notice if its class is not a tracked one.
    void attachFrontWindow();
    /// Ends the attachment of the front window's first note.
    void closeFrontNote();
    /// Asks, then deletes the front window's first note with its row and its body file. A fault on
    /// the way ends it without a word.
    void deleteFrontNote();

private:
    void deleteNote(WindowHandle target);

    NoteStore &m_store;
    WindowSystem &m_windows;
    const WindowLocation &m_location;
    const FormList &m_forms;
    AttachWindow &m_attach;
    Notices &m_notices;
    Prompts &m_prompts;
    NoteGridView *m_grid = nullptr;
};

} // namespace norvane
