#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace norvane {

/// The files that the program keeps beside its database. Paths are native.
///
/// A file is written whole or not at all: to a temporary file beside it, synced, then renamed.
/// Files are made for the user alone.
class FileSystem
{
public:
    virtual ~FileSystem();

    /// True for files and for folders. Where names need not be texts, a file with such a name is asked for
    /// by its "file:" address.
    virtual bool exists(const QString &path) const = 0;
    /// Bytes of a file. Raises 53 when it is not there, 75 when it is no file that can be read.
    virtual qint64 size(const QString &path) const = 0;
    /// Raises 53 when the file is not there, 75 when it cannot be read.
    virtual QByteArray read(const QString &path) const = 0;
    /// Raises 76, 75 or 3026 (disk full); the old file is then as it was.
    virtual void write(const QString &path, const QByteArray &bytes) = 0;
    /// Copies a file to a place where, when it fails, there is none; one that is there is removed first.
    /// Unlike what is written, a copy may be lost with the power until sync(). Raises as read() and
    /// write().
    virtual void copy(const QString &source, const QString &target) = 0;
    /// Waits until these files, all of one folder, are on the disk. Raises 53, 75 or 3026.
    virtual void sync(const QStringList &paths) = 0;
    /// Makes one folder; parents are not made. Raises 76 or 75.
    virtual void makeFolder(const QString &path) = 0;
    /// Raises 53 or 75.
    virtual void remove(const QString &path) = 0;
};

} // namespace norvane
