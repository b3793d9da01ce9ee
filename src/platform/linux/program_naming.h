#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace norvane {

/// What the system tells of a process; anything may be empty.
struct ProcessFacts
{
    QString executable;     ///< target of the exe link, with " (deleted)" if it says so
    QStringList arguments;  ///< the command line, the program's name first
    QString workingFolder;  ///< native path
    QString appImage;       ///< the AppImage file that the environment names
    QString appImageFolder; ///< where that AppImage is mounted
    QString flatpakId;      ///< application id of a Flatpak sandbox
    QString controlGroup;   ///< text of the cgroup file
};

/// The program of a process as a user would name it: its file, or the application id of a Flatpak or
/// Snap. For an interpreter it is the script that it runs. Empty when nothing can be told.
/// @param isFile     whether a native path is a file
/// @param searchPath folders to look for a program that is given by name alone
QString programOf(const ProcessFacts &facts, const std::function<bool(const QString &)> &isFile,
                  const QStringList &searchPath);

} // namespace norvane
