#include "richtext/PictureStore.h"

#include "richtext/format_conversion.h"
#include "richtext/format_properties.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>
#include <QPainter>
#include <QUrl>
#include <QtEndian>

namespace norvane {
namespace {

const QString kNamePrefix = QStringLiteral("picture:");
const QString kDataPrefix = QStringLiteral("data:");
constexpr QSize kEmptyFrameSize(48, 48);
constexpr int kLargestFrame = 2048; ///< pixels: an empty frame need not be as large as it claims

/// A device independent bitmap is a bitmap file without its file header.
QByteArray bitmapFile(const QByteArray &dib)
{
    constexpr quint32 kFileHeader = 14;
    if (dib.size() < 40)
        return {};
    const auto number = [&dib](int offset) { return qFromLittleEndian<quint32>(dib.constData() + offset); };
    const quint32 headerSize = number(0);
    const quint32 bits = qFromLittleEndian<quint16>(dib.constData() + 14);
    const quint32 compression = number(16);
    quint32 colors = number(32);
    if (colors == 0 && bits <= 8)
        colors = 1U << bits;
    if (headerSize > quint32(dib.size()) || colors > 256)
        return {};
    const quint32 masks = compression == 3 && headerSize == 40 ? 12 : 0;

    QByteArray file(kFileHeader, '\0');
    file[0] = 'B';
    file[1] = 'M';
    qToLittleEndian<quint32>(kFileHeader + quint32(dib.size()), file.data() + 2);
    qToLittleEndian<quint32>(kFileHeader + headerSize + masks + colors * 4, file.data() + 10);
    return file + dib;
}

QImage decoded(const rtf::Picture &picture)
{
    QByteArray bytes = picture.bytes;
    const char *format = nullptr;
    switch (picture.kind) {
    case rtf::PictureKind::Png:
        format = "PNG";
        break;
    case rtf::PictureKind::Jpeg:
        format = "JPEG";
        break;
    case rtf::PictureKind::Dib:
        format = "BMP";
        bytes = bitmapFile(bytes);
        break;
    case rtf::PictureKind::Wmf:
    case rtf::PictureKind::Emf:
    case rtf::PictureKind::Mac:
        return {};
    }
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);
    return reader.read();
}

QImage emptyFrame(QSize size)
{
    QImage frame(size.isEmpty() ? kEmptyFrameSize : size.boundedTo({kLargestFrame, kLargestFrame}),
                 QImage::Format_ARGB32_Premultiplied);
    frame.fill(Qt::transparent);
    QPainter painter(&frame);
    painter.setPen(QColor(128, 128, 128));
    painter.drawRect(frame.rect().adjusted(0, 0, -1, -1));
    return frame;
}

QSize displaySize(const rtf::Picture &picture)
{
    const double pixel = twipsPerPixel();
    return {qRound(picture.displayWidth / pixel), qRound(picture.displayHeight / pixel)};
}

QByteArray bytesOfDataAddress(const QString &address)
{
    const qsizetype comma = address.indexOf(u',');
    if (comma < 0)
        return {};
    const QByteArray data = address.mid(comma + 1).toLatin1();
    return address.left(comma).endsWith(u";base64", Qt::CaseInsensitive)
               ? QByteArray::fromBase64(data)
               : QByteArray::fromPercentEncoding(data);
}

} // namespace

QTextImageFormat PictureStore::add(const rtf::Picture &picture)
{
    const QByteArray hash = QCryptographicHash::hash(picture.bytes, QCryptographicHash::Sha1);
    const QString name = kNamePrefix + QString::fromLatin1(hash.toHex());
    m_pictures.insert(name, picture);

    QTextImageFormat format;
    format.setName(name);
    if (picture.displayWidth > 0)
        format.setWidth(picture.displayWidth / twipsPerPixel());
    if (picture.displayHeight > 0)
        format.setHeight(picture.displayHeight / twipsPerPixel());
    format.setProperty(kPictureBytesProperty, picture.bytes);
    format.setProperty(kPictureKindProperty, int(picture.kind));
    format.setProperty(kPictureMapModeProperty, picture.mapMode);
    format.setProperty(kPictureWidthProperty, picture.width);
    format.setProperty(kPictureHeightProperty, picture.height);
    if (!picture.original.isEmpty())
        format.setProperty(kPictureOriginalProperty, picture.original);
    return format;
}

std::optional<rtf::Picture> PictureStore::pictureOf(const QTextImageFormat &format)
{
    std::optional<rtf::Picture> picture;
    if (format.hasProperty(kPictureBytesProperty)) {
        picture.emplace();
        picture->bytes = format.property(kPictureBytesProperty).toByteArray();
        picture->kind = rtf::PictureKind(format.intProperty(kPictureKindProperty));
        picture->mapMode = format.intProperty(kPictureMapModeProperty);
        picture->width = format.intProperty(kPictureWidthProperty);
        picture->height = format.intProperty(kPictureHeightProperty);
        picture->original = format.property(kPictureOriginalProperty).toByteArray();
    } else if (format.name().startsWith(kDataPrefix)) {
        picture = pictureFromBytes(bytesOfDataAddress(format.name()));
    }
    if (picture) {
        picture->displayWidth = qRound(format.width() * twipsPerPixel());
        picture->displayHeight = qRound(format.height() * twipsPerPixel());
    }
    return picture;
}

QImage PictureStore::image(const QString &name) const
{
    const auto known = m_pictures.constFind(name);
    if (known != m_pictures.constEnd()) {
        const QImage image = decoded(*known);
        return image.isNull() ? emptyFrame(displaySize(*known)) : image;
    }
    if (name.startsWith(kDataPrefix)) {
        const QImage image = QImage::fromData(bytesOfDataAddress(name));
        if (!image.isNull())
            return image;
    }
    return emptyFrame(kEmptyFrameSize);
}

std::optional<rtf::Picture> pictureFromBytes(const QByteArray &bytes)
{
    QByteArray data = bytes;
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    const QByteArray kind = reader.format();
    const QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;

    rtf::Picture picture;
    picture.width = image.width();
    picture.height = image.height();
    if (kind == "png" || kind == "jpeg") {
        picture.kind = kind == "png" ? rtf::PictureKind::Png : rtf::PictureKind::Jpeg;
        picture.bytes = bytes;
        return picture;
    }
    QBuffer encoded(&picture.bytes);
    encoded.open(QIODevice::WriteOnly);
    image.save(&encoded, "PNG");
    return picture;
}

} // namespace norvane
