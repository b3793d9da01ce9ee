#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace norvane {

class FileSystem;

/// A note's title as a part of a file name: nothing in it that a file system or a person could take
/// for something else, at most 150 bytes of UTF-8. "Note" when nothing of the title is left.
QString fileNameOfTitle(const QString &title);

/// Writes a note that could not be saved into the folder "Rescued" beside the database, named by
/// its title and the time. Never overwrites a file. Raises what the file system raises.
/// @param databaseFolder ends in a separator
/// @return the path of the file
QString writeRescueFile(FileSystem &files, const QString &databaseFolder, const QString &title,
                        const QDateTime &time, const QByteArray &rtf);

} // namespace norvane
