#include "richtext/plain_text_file.h"

#include <QStringDecoder>

namespace norvane {

QString textOfFile(const QByteArray &bytes)
{
    if (const auto encoding = QStringConverter::encodingForData(bytes)) {
        QStringDecoder decoder(*encoding);
        return decoder.decode(bytes);
    }
    QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString text = utf8.decode(bytes);
    if (!utf8.hasError())
        return text;
    QStringDecoder western("windows-1252");
    return western.isValid() ? QString(western.decode(bytes)) : QString::fromLatin1(bytes);
}

QByteArray fileOfText(QString text)
{
    text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\v', u'\n');
    return text.toUtf8();
}

} // namespace norvane
