#pragma once

#include "shell/Twips.h"

#include <QString>
#include <functional>

namespace norvane {

class Clock;
class clsClips;
class EventLoop;
class FileSystem;
class FormList;
class HotKeys;
class NoteStore;
class Sound;
class WatchTimer;
class WindowEmbedding;
class WindowSystem;
struct WatchSettings;

/// What a sticky note uses of the program. Everything outlives every note.
struct StickyServices
{
    NoteStore &store;
    FileSystem &files;
    FormList &forms;
    clsClips &clips;
    WindowSystem &windows;
    WindowEmbedding &embedding;
    WatchTimer &timer;
    const WatchSettings &watch;
    EventLoop &events;
    Clock &clock;
    Sound &sound;
    HotKeys &hotKeys;
    Twips twips;
    QString clickSound;                ///< wave file of the type effect
    std::function<void()> refreshGrid; ///< `Refresh_Grid` of the browser; does nothing without one
    /// Tells the user of a note that had to be rescued, without waiting for an answer.
    std::function<void(const QString &)> tellRescue;
    bool rescueTold = false; ///< whether the user knows of the rescue folder
};

} // namespace norvane
