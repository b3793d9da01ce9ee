#pragma once

#include <QStringList>

namespace norvane {

/// The folders of the user's session. Native, no separator at the end; the user's own come first.
struct SessionFolders
{
    QString config;           ///< $XDG_CONFIG_HOME
    QString data;             ///< $XDG_DATA_HOME
    QString documents;        ///< the user's own, as the desktop's settings tell
    QStringList configSearch; ///< config and $XDG_CONFIG_DIRS
    QStringList dataSearch;   ///< data and $XDG_DATA_DIRS
    QStringList desktops;     ///< $XDG_CURRENT_DESKTOP, lower case

    static SessionFolders fromEnvironment();

    QString settingsFile() const { return config + QStringLiteral("/norvane/norvane.conf"); }
    QString autostartFolder() const { return config + QStringLiteral("/autostart"); }
    QString favoritesFolder() const { return documents + QStringLiteral("/Favorites"); }
    QString programFolder() const { return data + QStringLiteral("/norvane"); }
};

/// Makes a folder and the parents that it lacks, for the user alone. What cannot be made is left.
void makeFolderWithParents(const QString &path);

} // namespace norvane
