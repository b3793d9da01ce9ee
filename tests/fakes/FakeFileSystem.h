#pragma once

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <QHash>
#include <QMap>
#include <QSet>

namespace norvane::fakes {

/// Files in memory. A folder must exist before a file is written into it; "/" always does.
class FakeFileSystem : public FileSystem
{
public:
    QMap<QString, QByteArray> files;
    QSet<QString> folders;
    /// Run-time error numbers that the next calls on a path raise, until they are removed.
    QHash<QString, int> readErrors;
    QHash<QString, int> writeErrors;
    QHash<QString, int> removeErrors;
    /// A number above 0 fails every write, whatever its path.
    int failAllWrites = 0;
    int writes = 0;

    /// Makes a folder with its parents.
    void addFolder(const QString &path)
    {
        for (QString folder = plain(path); !folder.isEmpty(); folder = parentOf(folder))
            folders.insert(folder);
    }

    bool exists(const QString &path) const override
    {
        const QString name = plain(path);
        return name.isEmpty() || files.contains(name) || folders.contains(name);
    }

    qint64 size(const QString &path) const override { return read(path).size(); }

    QByteArray read(const QString &path) const override
    {
        raise(readErrors.value(path), path);
        if (folders.contains(plain(path)))
            raise(kErrorFileAccess, path);
        if (!files.contains(path))
            raise(kErrorFileNotFound, path);
        return files.value(path);
    }

    void write(const QString &path, const QByteArray &bytes) override
    {
        raise(failAllWrites, path);
        raise(writeErrors.value(path), path);
        if (!exists(parentOf(path)))
            raise(kErrorPathNotFound, path);
        if (folders.contains(plain(path)))
            raise(kErrorFileAccess, path);
        ++writes;
        files.insert(path, bytes);
    }

    void copy(const QString &source, const QString &target) override { write(target, read(source)); }

    void sync(const QStringList &paths) override
    {
        for (const QString &path : paths)
            raise(exists(path) ? failAllWrites : kErrorFileNotFound, path);
    }

    void makeFolder(const QString &path) override
    {
        raise(writeErrors.value(path), path);
        if (exists(path))
            raise(kErrorFileAccess, path);
        if (!exists(parentOf(plain(path))))
            raise(kErrorPathNotFound, path);
        folders.insert(plain(path));
    }

    void remove(const QString &path) override
    {
        raise(removeErrors.value(path), path);
        if (folders.contains(plain(path)))
            raise(kErrorFileAccess, path);
        if (files.remove(path) == 0)
            raise(kErrorFileNotFound, path);
    }

private:
    static QString plain(QString path)
    {
        while (path.endsWith(u'/'))
            path.chop(1);
        return path;
    }
    /// Empty for what stands directly under "/".
    static QString parentOf(const QString &path) { return path.left(path.lastIndexOf(u'/')); }
    static void raise(int number, const QString &path)
    {
        if (number > 0)
            throw RuntimeError(number, QStringLiteral("Injected or missing: %1").arg(path));
    }
};

} // namespace norvane::fakes
