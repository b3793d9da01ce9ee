#pragma once

#include <QByteArray>
#include <QString>

namespace norvane::rtf {

/// Data as digits, in lines.
void appendHexLines(QByteArray &out, const QByteArray &bytes);
/// Plain ASCII that reads as the text, within `\uc1`. Control characters are left out.
/// @param afterWord a word was written last: text needs a blank before it; set for what follows
void appendEscaped(QByteArray &out, QStringView text, bool &afterWord);

} // namespace norvane::rtf
