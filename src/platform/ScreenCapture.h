#pragma once

#include "platform/WindowHandle.h"

namespace norvane {

/// Pictures of what is on the screen. They go to the clipboard, in place of what was there.
///
/// Each picture is taken when windows that have just been hidden or raised are drawn: pending events
/// run meanwhile, and windows and forms may be gone after it.
class ScreenCapture
{
public:
    virtual ~ScreenCapture();

    /// Both give false, and leave the clipboard as it is, when the desktop lets no program look at it.
    virtual bool captureDesktop() = 0;
    /// The window with its frame, as it stands on the screen; false also when it is not there.
    virtual bool captureWindow(WindowHandle window) = 0;
    virtual void clearClipboard() = 0;
};

} // namespace norvane
