#pragma once

namespace norvane {

class SettingsStore;

/// What is searched besides windows' names, titles and key words, and how the text is taken.
struct SearchOptions
{
    bool inNoteText = true;  ///< "Search in Notes Text"
    bool inLocation = true;  ///< "Search in Address/URL"
    bool exactMatch = false; ///< "Find Exact Match": the text is the whole pattern

    bool operator==(const SearchOptions &) const = default;
};

/// As they were kept last; a missing one as it is at first.
SearchOptions loadSearchOptions(const SettingsStore &settings);
void saveSearchOptions(SettingsStore &settings, const SearchOptions &options);

} // namespace norvane
