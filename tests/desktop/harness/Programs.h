#pragma once

#include "VirtualDesktop.h"

namespace norvane::test {

/// Starts a browser with a fresh profile, without the pages and prompts of a first start.
/// @param profile a name; the same name gives the same profile again
QProcess *startFirefox(VirtualDesktop &desktop, const QString &profile, const QStringList &addresses);
/// Has the desktop open web addresses in a Firefox of a fresh profile.
bool makeFirefoxTheBrowser(const VirtualDesktop &desktop, const QString &profile);
QProcess *startChromium(VirtualDesktop &desktop, const QString &profile, const QStringList &addresses);

/// Goes to an address by the address bar of the active browser window.
void browseTo(VirtualDesktop &desktop, const QString &address);

} // namespace norvane::test
