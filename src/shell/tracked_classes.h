#pragma once

#include <QStringList>

namespace norvane {

class SettingsStore;

/// The parts of class names that the watcher looks at: the thirteen of the program, then those that
/// the user has set by hand in section "ClassEx". Raises 6 when their number does not fit 16 bits.
QStringList trackedClasses(const SettingsStore &settings);

} // namespace norvane
