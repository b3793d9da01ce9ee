#include "app/NoteWindows.h"

#include "browser/BrowserServices.h"
#include "browser/dialogs/frmNewNote.h"
#include "browser/dialogs/frmProperty.h"
#include "browser/editor/frmOpen.h"
#include "browser/editor/note_editors.h"
#include "browser/grid/NoteGrid.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "shell/forms/ShellForms.h"
#include "shell/internal_error.h"

namespace norvane {

bool NoteWindows::has(View view) const
{
    return view == View::Properties || view == View::OpenNote;
}

} // namespace norvane
