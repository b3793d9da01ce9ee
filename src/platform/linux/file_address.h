#pragma once

#include <QByteArray>
#include <QString>

namespace norvane {

/// Whether a location is the "file:" address of a file.
bool isFileAddress(const QString &location);

/// The name, as system calls take it, of the file that a "file:" address stands for: of any bytes. Empty
/// when it names none of this machine.
QByteArray fileNameOfAddress(const QString &address);

} // namespace norvane
