#pragma once

#include "shell/Twips.h"

#include <functional>

namespace norvane {

class Clock;
class EventLoop;
class FormList;
class NoteGridView;
class NoteStore;
class NoteViews;
class SettingsStore;
class Shell;
class Sound;
class WatchTimer;
class WindowSystem;
struct EditServices;
struct WatchSettings;

/// What the windows of the browser use of the program. Everything outlives every window.
struct BrowserServices
{
    NoteStore &store;
    FormList &forms;
    SettingsStore &settings;
    Shell &shell;
    Clock &clock;
    Sound &sound;
    EventLoop &events;
    WindowSystem &windows;
    WatchTimer &timer; ///< `tmrEnumWindows`
    const WatchSettings &watch;
    const EditServices &edit; ///< prompts and files, too
    NoteGridView &browser;    ///< the browser and its list; nothing happens while there is none
    NoteViews &views;
    std::function<bool()> isFrameVisible; ///< whether `mdiMain` is on the screen
    Twips twips;
};

} // namespace norvane
