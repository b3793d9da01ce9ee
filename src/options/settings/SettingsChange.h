#pragma once

#include "options/HotKeyRecords.h"
#include "options/settings/DatabaseChange.h"

namespace norvane {

class HotKeyModel;
class OptionsHost;
class Shell;

/// What the Options window collects until "&OK" or "&Apply".
struct SettingsChoice
{
    bool startsWithSession = false;
    bool exactWindowName = false;
    HotKeyRecords hotKeys;
    QString databaseFolder; ///< ends in a separator
    bool isDefaultDatabase = false;
    bool showsCategoryBar = true;
};

/// What applying works with. Everything outlives it.
struct SettingsChangeParts
{
    DatabaseChangeParts database;
    Shell &shell;
    WatchSettings &watch;
    HotKeyModel &hotKeys;
    OptionsHost &host;
};

/// Puts a choice into effect, step by step: the entry of the session's start, the hot keys, exact
/// matching, the database, the category bar. What stands in the way of the database ends it there, with
/// the steps before done; an error ends it where it comes, and is told.
/// @return what became of the database
DatabaseChange::Outcome ApplySettings(const SettingsChangeParts &parts, const SettingsChoice &choice);

} // namespace norvane
