#pragma once

#include <QString>

namespace norvane {

class Shell;

/// What the shell is to be asked of a location: ".HTM" where it is the address of a page, else the location.
QString shellPathOf(const QString &location);

/// What kind of thing a location is, guessed from its text alone: "File Folder" for a path without
/// a type, "Local Disk" for what the shell itself calls a folder, else the shell's type name.
QString ClassifyLocation(const Shell &shell, const QString &path);

} // namespace norvane
