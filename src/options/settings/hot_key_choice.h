#pragma once

#include "options/HotKeyRecords.h"
#include "platform/WindowHandle.h"

#include <QVector>

namespace norvane {

class HotKeyModel;

/// What a key press in a hot key box means.
enum class HotKeyPress {
    Take,   ///< it is the combination
    Clear,  ///< no combination is wanted
    Leave,  ///< not for the box: it closes the window, or goes to the next control
    Refuse, ///< no combination, for the reason that refusalOf() gives
};

/// @param key       virtual key code; 0 for a key without one
/// @param modifiers in the coding of the boxes: 1 Shift, 2 Ctrl, 4 Alt
/// @param isOther   whether another modifier is held, which no hot key can have
HotKeyPress meaningOf(int key, int modifiers, bool isOther);

/// In a few words, why a press is refused.
QString refusalOf(int key, int modifiers, bool isOther);

/// A combination of a box as it is stored.
HotKeyRecord recordOf(int key, int modifiers);

/// What is to be said beside the box of a hot key that was chosen: another one has the same, or the system
/// does not give it; empty when all is well. The own hot keys must be withdrawn.
/// @param chosen of all boxes
QString remarkOn(HotKeyId id, const HotKeyRecords &chosen, HotKeyModel &hotKeys, WindowHandle owner);

/// The notice on hot keys that the system does not give; empty for none.
QString refusedNotice(const QVector<HotKeyId> &refused, const HotKeyModel &hotKeys);

} // namespace norvane
