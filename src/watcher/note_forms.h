#pragma once

#include "platform/WindowHandle.h"

namespace norvane {

class FormList;
class StickyNote;

/// The first open note on a window; nullptr if there is none, and for kNoWindow: a note that has lost
/// its target is on no window.
StickyNote *noteOn(const FormList &forms, WindowHandle target);
/// The open note of a row of Memos; nullptr if it is not open.
StickyNote *noteOf(const FormList &forms, int ID);
/// Whether a preview is open and shows the note of that row.
bool isPreviewed(const FormList &forms, int ID);

} // namespace norvane
