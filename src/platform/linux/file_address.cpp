#include "platform/linux/file_address.h"

#include <QUrl>

namespace norvane {

bool isFileAddress(const QString &location)
{
    return location.startsWith(u"file:", Qt::CaseInsensitive);
}

QByteArray fileNameOfAddress(const QString &address)
{
    const QUrl url(address);
    if (!url.isLocalFile() || (!url.host().isEmpty() && url.host() != u"localhost"))
        return {};
    const QByteArray name = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    return name.contains('\0') ? QByteArray() : name;
}

} // namespace norvane
