#pragma once

#include "platform/WindowHandle.h"
#include "richtext/commands/EditState.h"
#include "shell/Forms.h"
#include "shell/command_line.h"
#include "store/NoteStore.h"
#include "watcher/WatchSettings.h"
#include "watcher/clsClips.h"
#include "watcher/clsWindows.h"
#include "windowlist/CTaskList.h"

#include <QString>
#include <memory>

namespace norvane {

/// What the whole program shares. The application owns the one there is; everybody else takes the
/// parts that he uses by reference. StartUp fills it.
struct SharedState
{
    /// Both must outlive the state.
    SharedState(dao::Engine &engine, FileSystem &files) : store(engine, files) {}

    CommandLine commandLine;
    NoteStore store;
    WatchSettings watch;
    QString DefaultSoundFile;               ///< path of a wave file
    WindowHandle DesktopWindow = kNoWindow; ///< for holding back painting
    clsClips Clips;                         ///< the open notes
    clsWindows LiveWindows;                 ///< the windows of the last enumeration
    std::unique_ptr<CTaskList> TaskList;    ///< nullptr until start-up has come to it
    FormList forms;
    EditState edit; ///< of the rich text editors
};

} // namespace norvane
