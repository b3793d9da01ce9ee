#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace norvane {

struct LookUpRequest;

/// Folders that a file manager with this caption may be showing, likely ones first: where the
/// caption spells a path, that; else folders of the caption's name near the last one, in the home
/// folder and in a few places that people go to. Only folders that are there.
/// @param last the window's last known folder; may be empty
/// @param home the home folder
QStringList folderCandidates(const QString &caption, const QString &last, const QString &home);

/// The candidate that the request's process watches for changes, as file managers do with the
/// folders that they show; empty when none is.
QString watchedFolderOf(const LookUpRequest &request, const QString &home);

} // namespace norvane
