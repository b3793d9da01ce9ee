#pragma once

#include <QString>

namespace norvane {

class Shell;
class WindowLocation;
class WindowSystem;
struct WatchSettings;
struct clsWindow;

/// What a match condition needs to know of a window beyond its record.
struct MatchFacts
{
    bool isDocumentWindow = false;
    /// ClassifyLocation() of the window's location; only asked for folder windows in exact mode.
    QString locationKind;
    /// The trimmed title without suffixes, as notes are named.
    QString friendlyTitle;
};

MatchFacts matchFacts(const clsWindow &window, const WindowSystem &windows, const WindowLocation &location,
                      const Shell &shell, const WatchSettings &settings);

/// The condition that selects the notes that belong to a window, without the word "where". The
/// window's own words stand in it as they are, so a title or location with a double quote gives a
/// condition that does not parse: no note matches then.
///
/// Stores the significant length of the title in `PartialMatchLength` on every call.
/// @return empty when that length does not fit
QString BuildMatchCriteria(const clsWindow &window, const MatchFacts &facts, WatchSettings &settings);

} // namespace norvane
