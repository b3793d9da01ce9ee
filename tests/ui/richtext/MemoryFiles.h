#pragma once

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <QHash>

namespace norvane {

/// Files that live as long as a test.
class MemoryFiles final : public FileSystem
{
public:
    bool exists(const QString &path) const override { return files.contains(path); }
    qint64 size(const QString &path) const override { return read(path).size(); }
    QByteArray read(const QString &path) const override
    {
        if (!files.contains(path))
            throw RuntimeError(kErrorFileNotFound, QStringLiteral("not there"));
        return files.value(path);
    }
    void write(const QString &path, const QByteArray &bytes) override
    {
        if (full)
            throw RuntimeError(kErrorDiskFull, QStringLiteral("full"));
        files.insert(path, bytes);
    }
    void makeFolder(const QString &) override {}
    void remove(const QString &path) override { files.remove(path); }

    QHash<QString, QByteArray> files;
    bool full = false;
};

/// The number of the run-time error that an action raises; 0 for none.
template <typename Action> int errorOf(const Action &action)
{
    try {
        action();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

} // namespace norvane
