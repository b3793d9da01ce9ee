#pragma once

#include "platform/FileSystem.h"

namespace norvane {

/// Files of a POSIX system.
///
/// write() follows a symbolic link to the file behind it and keeps the permissions of a file that
/// is there; a file that its owner may not write is refused with 75. New files are 0600, new
/// folders 0700.
class PosixFileSystem : public FileSystem
{
public:
    bool exists(const QString &path) const override;
    qint64 size(const QString &path) const override;
    QByteArray read(const QString &path) const override;
    void write(const QString &path, const QByteArray &bytes) override;
    void copy(const QString &source, const QString &target) override;
    void sync(const QStringList &paths) override;
    void makeFolder(const QString &path) override;
    void remove(const QString &path) override;
};

} // namespace norvane
