#pragma once

#include "platform/dao.h"
#include "platform/linux/DBusNotifier.h"
#include "platform/linux/EndSignals.h"
#include "platform/linux/FileInstanceLock.h"
#include "platform/linux/IniSettingsStore.h"
#include "platform/linux/LinuxMail.h"
#include "platform/linux/LinuxShell.h"
#include "platform/linux/LinuxShellWindows.h"
#include "platform/linux/LinuxSound.h"
#include "platform/linux/LinuxTrayHost.h"
#include "platform/linux/NoOutlookNotes.h"
#include "platform/linux/PosixFileSystem.h"
#include "platform/linux/ProcProcesses.h"
#include "platform/linux/SessionFolders.h"
#include "platform/linux/wayland_session.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtPrinting.h"
#include "platform/qt/QtPrompts.h"
#include "platform/qt/QtScreenCapture.h"
#include "platform/qt/QtWatchTimer.h"
#include "platform/qt/SystemClock.h"
#include "platform/x11/X11WindowEmbedding.h"
#include "platform/x11/X11WindowSystem.h"
#include "platform/x11/hotkeys/X11HotKeys.h"

namespace norvane {

/// The platform of a Linux desktop with X11: one object for each interface that the program uses.
/// Needs the QApplication; members are made in the order in which they need one another.
struct Backends
{
    Backends();

    SessionFolders folders = SessionFolders::fromEnvironment();
    PosixFileSystem files;
    IniSettingsStore settings{folders.settingsFile(), files};
    FileInstanceLock instanceLock;
    SystemClock clock;
    LinuxShell shell{folders};
    LinuxSound sound;
    LinuxMail mail{folders};
    NoOutlookNotes outlook;
    ProcProcesses processes;
    std::unique_ptr<dao::Engine> engine;

    QtEventLoop events;
    QtPrompts prompts;
    QtPrinting printing;
    QtWatchTimer timer{events};

    X11WindowSystem windows;
    X11WindowEmbedding embedding{windows};
    QtScreenCapture capture{windows, !isWaylandSession()};
    X11HotKeys hotKeys;
    LinuxShellWindows shellWindows;
    LinuxTrayHost trayHost;
    DBusNotifier notifier;
};

} // namespace norvane
