#pragma once

#include <optional>

namespace norvane {

/// What a hot key does.
enum class HotKeyAction {
    ToggleBrowser,    ///< as a double click on the tray icon
    ToggleWindowList, ///< unloads "FTaskMgr" or shows it
    AttachFrontWindow,
    CloseFrontNote,
    ShowSearch,
    DeleteFrontNote,
};

/// The action of the hot key with that id; nothing for an id that is none of the six.
std::optional<HotKeyAction> hotKeyAction(int id);

} // namespace norvane
