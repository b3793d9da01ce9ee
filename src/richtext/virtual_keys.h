#pragma once

#include <Qt>

class QKeyEvent;

namespace norvane {

/// The key of an event as KeyDown and KeyUp give it: a virtual key code; 0 for keys without one.
int virtualKeyCode(const QKeyEvent &event);
/// Modifiers as the events give them: 1 Shift, 2 Ctrl, 4 Alt.
int shiftState(Qt::KeyboardModifiers modifiers);
/// Buttons as the events give them: 1 left, 2 right, 4 middle.
int buttonNumber(Qt::MouseButtons buttons);

} // namespace norvane
