#pragma once

#include "platform/linux/LocationProvider.h"

#include <QString>
#include <memory>

namespace norvane {

class DesktopBuses;

/// The provider for a program's windows; nullptr when it has none.
/// @param browser whether the windows are a web browser's; else a file manager's
/// @param program as Processes names it: a file or an application id
/// @param display X display of the windows; empty: the one that the environment names
/// @param home    the home folder
std::unique_ptr<LocationProvider> makeLocationProvider(bool browser, const QString &program,
                                                       const DesktopBuses &buses, const QString &display,
                                                       const QString &home);

} // namespace norvane
