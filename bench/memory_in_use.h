#pragma once

#include <QFile>

namespace norvane {

/// Of this program, in kilobytes.
inline double memoryInUse()
{
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').value(1).toDouble() * 4;
}

} // namespace norvane
