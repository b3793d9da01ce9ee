#include "search/search_options.h"

#include "shell/numeric_prefix.h"
#include "shell/settings_keys.h"

namespace norvane {

SearchOptions loadSearchOptions(const SettingsStore &settings)
{
    const auto isOn = [&](const settings::Key &key) {
        return numericPrefix(settings::read(settings, key)) != 0.0;
    };
    return {isOn(settings::kSearchInNoteText), isOn(settings::kSearchInLocation),
            isOn(settings::kSearchExactMatch)};
}

void saveSearchOptions(SettingsStore &settings, const SearchOptions &options)
{
    const auto keep = [&](const settings::Key &key, bool isOn) {
        settings::save(settings, key, isOn ? QStringLiteral("1") : QStringLiteral("0"));
    };
    keep(settings::kSearchInNoteText, options.inNoteText);
    keep(settings::kSearchInLocation, options.inLocation);
    keep(settings::kSearchExactMatch, options.exactMatch);
}

} // namespace norvane
