#include "richtext/rtf/writer.h"

namespace norvane::rtf {

QByteArray write(const Document &document)
{
    return "{\\rtf1\\ansi " + document.plainText().toLatin1() + "}\r\n";
}

} // namespace norvane::rtf
