#pragma once

#include <QtGlobal>

namespace norvane {

/// Identifies a window of the desktop, of any program: an X window id, a HWND. Never dereferenced.
using WindowHandle = quint64;

/// No window.
inline constexpr WindowHandle kNoWindow = 0;

/// Identifies an icon that the window system keeps for a window; 0 is none.
using IconHandle = quint64;

} // namespace norvane
