#pragma once

#include "platform/WindowHandle.h"
#include "shell/Twips.h"

#include <QString>
#include <functional>

namespace norvane {

class CTaskList;
class FileSystem;
class FormList;
class Notices;
class Prompts;
class SettingsStore;
class Shell;
class WindowLookup;
class WindowSystem;

/// What the Window List and the Run window use of the program. Everything outlives every window.
struct WindowListServices
{
    WindowSystem &windows;
    CTaskList &tasks; ///< the one of the watch cycle
    WindowLookup &lookup;
    FormList &forms;
    SettingsStore &settings;
    Shell &shell;
    FileSystem &files;
    Prompts &prompts;
    Notices &notices;
    std::function<void(const QString &title, WindowHandle window)> AttachWindow;
    QString home; ///< the user's folder, no separator at the end
    Twips twips;
};

} // namespace norvane
