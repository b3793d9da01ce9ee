#pragma once

#include "browser/BrowserServices.h"

#include <QVersionNumber>

namespace norvane {

class CTaskList;
class HotKeyModel;
class NoteDatabaseSwitch;
class OptionsHost;
class clsClips;

/// What the Options window uses of the program. Everything outlives every window.
struct OptionsServices
{
    const BrowserServices &browser;
    WatchSettings &watch;
    HotKeyModel &hotKeys;
    NoteDatabaseSwitch &databases;
    CTaskList &tasks;
    clsClips &clips;
    OptionsHost &host;
    QVersionNumber version;
};

} // namespace norvane
