#pragma once

#include <QStringList>
#include <QtGlobal>

namespace norvane {

/// The shared values of the watcher.
struct WatchSettings
{
    qint16 WatchInterval = 400;    ///< period of the watch timer in milliseconds; 0 stops it
    bool IEAvailable = false;      ///< whether ShellWindows is asked
    bool ExactWindowName = false;  ///< exact matching of titles
    qint16 PartialMatchLength = 6; ///< written by every BuildMatchCriteria
    QStringList TrackedClasses;    ///< parts of class names that the watcher looks at
};

} // namespace norvane
