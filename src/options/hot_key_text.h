#pragma once

#include <QString>
#include <optional>

namespace norvane {

// Modifiers have two codings: that of registration (1 Alt, 2 Ctrl, 4 Shift), in which they are
// stored, and that of the hot key boxes (1 Shift, 2 Ctrl, 4 Alt), in which they are shown.

/// Converts modifiers between the two codings, in either direction. Nothing comes back for a value
/// outside 1 to 6 (none or all three); it reads as 0: `.value_or(0)`.
std::optional<int> SwapModifiers(int Value);

/// The text of a combination for menus and tool tips: "Ctrl+Alt+W"; "None" for 0 and 0.
/// @param Key       virtual key code
/// @param Modifiers in the coding of the hot key boxes: 1 Shift, 2 Ctrl, 4 Alt
QString HotKeyName(int Key, int Modifiers);

} // namespace norvane
