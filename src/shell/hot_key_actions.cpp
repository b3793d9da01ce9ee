#include "shell/hot_key_actions.h"

namespace norvane {

std::optional<HotKeyAction> hotKeyAction(int id)
{
    switch (id) {
    case 1:
        return HotKeyAction::ToggleBrowser;
    case 2:
        return HotKeyAction::ToggleWindowList;
    case 3:
        return HotKeyAction::AttachFrontWindow;
    case 4:
        return HotKeyAction::CloseFrontNote;
    case 5:
        return HotKeyAction::ShowSearch;
    case 6:
        return HotKeyAction::DeleteFrontNote;
    default:
        return std::nullopt;
    }
}

} // namespace norvane
