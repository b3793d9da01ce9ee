#pragma once

#include <QByteArray>
#include <QString>

namespace norvane {

/// Text in the single-byte code page of stored menus and shortcuts, one byte for each UTF-16 unit; "?" for
/// what the code page does not have.
QByteArray toWindows1252(QStringView text);
QString fromWindows1252(QByteArrayView bytes);

} // namespace norvane
