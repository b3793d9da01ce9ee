#include "watcher/NoteHotKeys.h"

#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "platform/WindowSystem.h"
#include "shell/internal_error.h"
#include "store/NoteStore.h"
#include "watcher/AttachWindow.h"
#include "watcher/NoteGridView.h"
#include "watcher/Notices.h"
#include "watcher/StickyNote.h"
#include "watcher/delete_note.h"
#include "watcher/note_forms.h"
#include "watcher/window_location.h"

namespace norvane {

NoteHotKeys::NoteHotKeys(NoteStore &store, WindowSystem &windows, const WindowLocation &location,
                         const FormList &forms, AttachWindow &attach, Notices &notices, Prompts &prompts)
    : m_store(store), m_windows(windows), m_location(location), m_forms(forms), m_attach(attach),
      m_notices(notices), m_prompts(prompts)
{
}

void NoteHotKeys::attachFrontWindow()
{
    const WindowHandle front = m_windows.foregroundWindow();
    if (!m_location.IsTrackedClass(m_location.GetClassText(front))) {
        m_notices.showStandingText();
        return;
    }
    m_attach(m_location.GetWindowTitle(front), front);
    m_windows.setForegroundWindow(front);
}

void NoteHotKeys::closeFrontNote()
{
    const WindowHandle front = m_windows.foregroundWindow();
    if (StickyNote *note = noteOn(m_forms, front))
        note->mnuFile_Close_Click();
    m_windows.setForegroundWindow(front);
}

void NoteHotKeys::deleteFrontNote()
{
    const WindowHandle front = m_windows.foregroundWindow();
    try {
        deleteNote(front);
    } catch (const RuntimeError &) {
        // The dispatcher of the keys hands nothing on; what was done so far stands.
    }
    m_windows.setForegroundWindow(front);
}

void NoteHotKeys::deleteNote(WindowHandle target)
{
    StickyNote *note = noteOn(m_forms, target);
    if (!note)
        return;
    m_store.checkOpen();
    const int id = note->fields.ID;
    const QString question = QStringLiteral("Are you sure you want to delete '%1'?").arg(note->caption());
    if (!ask(m_prompts, question, Prompts::kQuestion | Prompts::kSystemModal))
        return;

    // The note may have gone with its window while the question stood; its row has not.
    if (StickyNote *open = noteOf(m_forms, id))
        open->unload();
    deleteNoteRow(m_store, id);
    m_store.requeryNoteIndex();
    if (m_grid)
        m_grid->Refresh_Grid();
    deleteNoteBody(m_store, id);
}

} // namespace norvane
