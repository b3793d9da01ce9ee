#include "options/settings/SettingsChange.h"

#include "options/HotKeyModel.h"
#include "options/settings/OptionsHost.h"
#include "platform/RuntimeError.h"
#include "platform/Shell.h"
#include "shell/internal_error.h"
#include "shell/settings_keys.h"
#include "watcher/WatchSettings.h"

namespace norvane {

namespace {

using Outcome = DatabaseChange::Outcome;

QString flag(bool value)
{
    return value ? QStringLiteral("1") : QStringLiteral("0");
}

Outcome apply(const SettingsChangeParts &parts, const SettingsChoice &choice)
{
    SettingsStore &store = parts.database.settings;
    parts.shell.setStartsWithSession(choice.startsWithSession);
    parts.hotKeys.records = choice.hotKeys;
    settings::save(store, settings::kExactWindowName, flag(choice.exactWindowName));
    parts.watch.ExactWindowName = choice.exactWindowName;
    parts.hotKeys.records.save(store);

    const Outcome outcome =
        DatabaseChange(parts.database).changeTo(choice.databaseFolder, choice.isDefaultDatabase);
    if (outcome == Outcome::Changed || outcome == Outcome::Failed)
        parts.host.databaseChanged();
    if (outcome == Outcome::Stopped || outcome == Outcome::Failed)
        return outcome;

    settings::save(store, settings::kShowCategoryBar, flag(choice.showsCategoryBar));
    parts.host.Refresh_tbCAT();
    parts.host.setShowCategoryBar(choice.showsCategoryBar);
    return outcome;
}

} // namespace

Outcome ApplySettings(const SettingsChangeParts &parts, const SettingsChoice &choice)
{
    try {
        return apply(parts, choice);
    } catch (const RuntimeError &error) {
        showRuntimeError(parts.database.prompts, error);
        return Outcome::Stopped;
    }
}

} // namespace norvane
