#pragma once

#include <QString>

namespace norvane::x11 {

/// The class of a file manager's desktop, which is no window of the user's.
inline constexpr QStringView kDesktopClass = u"Progman";

/// The class name by which the watcher knows a window: the family of its program ("IEFrame",
/// "CabinetWClass", …) or, for other programs, the class part of WM_CLASS (its instance part where
/// that is empty); at most 49 characters.
///
/// A program is told by its class, then by its instance, as a whole name or up to a blank or a
/// bracket: "chromium (/tmp/profile)" is chromium, "dolphin-emu" is not dolphin. Case does not count.
QString classNameOf(const QString &instance, const QString &wmClass);

} // namespace norvane::x11
