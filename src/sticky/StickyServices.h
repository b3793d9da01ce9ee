#pragma once

#include "shell/Twips.h"

#include <QString>
#include <functional>

namespace norvane {

class Clock;
class clsClips;
class EventLoop;
class FormList;
class HotKeys;
class ImageList;
class NoteGridView;
class NoteRescue;
class NoteStore;
class NoteViews;
class ScreenCapture;
class Sound;
class WatchTimer;
class WindowEmbedding;
class WindowSystem;
struct EditServices;
struct WatchSettings;

/// What a sticky note uses of the program. Everything outlives every note.
struct StickyServices
{
    NoteStore &store;
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
    NoteGridView &grid;
    NoteRescue &rescue;
    const EditServices &edit;
    ScreenCapture &capture;
    NoteViews &views;
    const ImageList &menuImages;
    std::function<QString()> closeKey; ///< text of the hot key that closes a note
    Twips twips;
    QString clickSound; ///< wave file of the type effect
};

} // namespace norvane
