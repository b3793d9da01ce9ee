#pragma once

#include <QByteArray>
#include <QFile>

namespace norvane {

/// What stands in a file; empty when it cannot be read.
inline QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Makes a file of those bytes. @return whether all of them are in it
inline bool putBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace norvane
