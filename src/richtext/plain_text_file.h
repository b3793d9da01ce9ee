#pragma once

#include <QByteArray>
#include <QString>

namespace norvane {

/// The text of a file: UTF-8, UTF-16 with a byte order mark, else Windows-1252.
QString textOfFile(const QByteArray &bytes);
/// A text as the bytes of a file: UTF-8, a line end as "\n".
QByteArray fileOfText(QString text);

} // namespace norvane
