// The destructors of the platform interfaces: each interface's one virtual member that is not
// pure, so that its table of members has one home.

#include "platform/Clock.h"
#include "platform/EventLoop.h"
#include "platform/FileSystem.h"
#include "platform/HotKeys.h"
#include "platform/InstanceLock.h"
#include "platform/Mail.h"
#include "platform/Notifier.h"
#include "platform/OutlookNotes.h"
#include "platform/Printing.h"
#include "platform/Processes.h"
#include "platform/Prompts.h"
#include "platform/ScreenCapture.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"
#include "platform/ShellWindows.h"
#include "platform/Sound.h"
#include "platform/TrayHost.h"
#include "platform/WatchTimer.h"
#include "platform/WindowEmbedding.h"
#include "platform/WindowSystem.h"
#include "platform/dao.h"

namespace norvane {

Clock::~Clock() = default;
EventLoop::~EventLoop() = default;
FileSystem::~FileSystem() = default;
HotKeys::~HotKeys() = default;
InstanceLock::~InstanceLock() = default;
Mail::~Mail() = default;
Notifier::~Notifier() = default;
OutlookNotes::~OutlookNotes() = default;
PrintJob::~PrintJob() = default;
Printing::~Printing() = default;
Processes::~Processes() = default;
Prompts::~Prompts() = default;
ScreenCapture::~ScreenCapture() = default;
SettingsStore::~SettingsStore() = default;
Shell::~Shell() = default;
ShellWindows::~ShellWindows() = default;
Sound::~Sound() = default;
TrayHost::~TrayHost() = default;
WatchTimer::~WatchTimer() = default;
WindowEmbedding::~WindowEmbedding() = default;
WindowSystem::~WindowSystem() = default;

namespace dao {
Database::~Database() = default;
Engine::~Engine() = default;
Recordset::~Recordset() = default;
Workspace::~Workspace() = default;
} // namespace dao

} // namespace norvane
