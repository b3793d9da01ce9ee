#include "richtext/rtf/read.h"

namespace norvane::rtf {

bool isRichText(QByteArrayView rtf)
{
    return rtf.startsWith("{\\rtf") || rtf.startsWith("{\\urtf");
}

std::optional<Document> read(QByteArrayView rtf)
{
    if (!isRichText(rtf))
        return std::nullopt;
    return Document();
}

} // namespace norvane::rtf
