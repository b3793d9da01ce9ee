#pragma once

#include <QStringList>

namespace norvane {

class SettingsStore;

/// The parts of class names that the watcher looks at: the thirteen of the program, then those that
/// the user has set by hand in section "ClassEx". Raises 6 when their number does not fit 16 bits.
QStringList trackedClasses(const SettingsStore &settings);

/// Those that the user has set, in the order of their keys. Raises as above.
QStringList ownTrackedClasses(const SettingsStore &settings);
/// Adds one, in the place of one that was removed or behind the last. Raises 6 when no place is left.
void addTrackedClass(SettingsStore &settings, const QString &name);
/// Empties every key that has that value; the other keys stay. Raises as above.
void removeTrackedClass(SettingsStore &settings, const QString &name);

} // namespace norvane
