#pragma once

#include <QString>

namespace norvane {

class FormList;
class NoteRescue;
class frmEditor;
class mdiMain;
struct BrowserServices;

/// Opens a note in an editor of its own: a child of the frame if that is visible, else a free window.
/// Raises what engine and file system raise, with no window left open.
/// @param title, location as the list shows them
/// @return the editor, which owns itself; nullptr when it was closed again while it was opened
frmEditor *ShowNoteEditor(const BrowserServices &services, NoteRescue &rescue, mdiMain &frame, int ID,
                          const QString &title, const QString &location);

/// Asks for each editor with unsaved changes whether to close without them: what is to be done before
/// all windows are unloaded. Only when each answer was Yes are the changes given up, so that unloading
/// rescues nothing; no window is closed in any case.
/// @return false when an answer was No: then nothing may be unloaded
bool EditorsMayClose(const FormList &forms);

/// Writes the unsaved changes of all editors to rescue files, for an end that leaves no time for
/// questions. Raises nothing.
void RescueEditors(const FormList &forms);

} // namespace norvane
