#pragma once

#include "fakes/FakeHotKeys.h"
#include "fakes/FakeOptionsHost.h"
#include "fakes/FakeProcesses.h"
#include "fakes/FakeShellWindows.h"
#include "options/HotKeyModel.h"
#include "options/windows/OptionsServices.h"
#include "shell/tracked_classes.h"
#include "store/NoteDatabaseSwitch.h"
#include "ui/browser/BrowserDesk.h"
#include "watcher/clsClips.h"
#include "watcher/window_location.h"
#include "windowlist/CTaskList.h"

namespace norvane::tests {

/// What the Options window works with; of the program around it only what it is told.
class OptionsDesk : public BrowserDesk
{
public:
    OptionsDesk()
    {
        watch.TrackedClasses = trackedClasses(settings);
        timer.setInterval(watch.WatchInterval);
        timer.setEnabled(true);
        hotKeys.registerAll(host.hotKeyOwner());
    }

    QStringList told; ///< a word for each thing that the program was told
    fakes::FakeOptionsHost host{told};
    fakes::FakeHotKeys keyboard;
    HotKeyModel hotKeys{keyboard};
    fakes::FakeShellWindows shellWindows;
    fakes::FakeProcesses processes;
    clsClips clips;
    WindowLocation location{windows, shellWindows, processes, watch};
    CTaskList tasks{windows, shellWindows, location};
    NoteDatabaseSwitch databases{
        store, forms, prompts, {[](const QString &) {}, [this] { told.append(u"program ends"_s); }}};
    OptionsServices options{.browser = services,
                            .watch = watch,
                            .hotKeys = hotKeys,
                            .databases = databases,
                            .tasks = tasks,
                            .clips = clips,
                            .host = host,
                            .version = QVersionNumber(1, 2, 3)};
};

} // namespace norvane::tests
