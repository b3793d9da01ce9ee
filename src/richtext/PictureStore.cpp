#include "richtext/PictureStore.h"

#include "richtext/format_conversion.h"
#include "richtext/metafile_bitmap.h"
#include "richtext/rtf/limits.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>
#include <QPainter>
#include <QtEndian>

namespace norvane {
namespace {

const QString kNamePrefix = QStringLiteral("picture:");
const QString kDataPrefix = QStringLiteral("data:");
constexpr QSize kEmptyFrameSize(48, 48);
constexpr int kLargestFrame = 2048; ///< pixels: an empty frame need not be as large as it claims
constexpr QColor kFrameColor(128, 128, 128);

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

/// Reads an image, but none that claims to be larger than anything that is shown.
QImage readImage(const QByteArray &bytes, const char *format)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.width() > rtf::kMaximumPictureSide || size.height() > rtf::kMaximumPictureSide)
        return {};
    return reader.read();
}

QImage decoded(const rtf::Picture &picture)
{
    switch (picture.kind) {
    case rtf::PictureKind::Png:
        return readImage(picture.bytes, "PNG");
    case rtf::PictureKind::Jpeg:
        return readImage(picture.bytes, "JPEG");
    case rtf::PictureKind::Dib:
        return readImage(bitmapFile(picture.bytes), "BMP");
    case rtf::PictureKind::Wmf:
    case rtf::PictureKind::Emf:
        return readImage(bitmapFile(bitmapOfMetafile(picture.bytes)), "BMP");
    case rtf::PictureKind::Mac:
        break;
    }
    return {};
}

/// What is left of an image when the picture's edges are cut away.
QImage cropped(const QImage &image, const rtf::Picture &picture)
{
    const rtf::Sides<int> &crop = picture.crop;
    if (image.isNull() || crop == rtf::Sides<int>())
        return image;
    const auto cut = [&](int pixels, int shown, rtf::Side before, rtf::Side behind) {
        const double whole = qMax(1, shown + crop[before] + crop[behind]);
        return std::pair(qRound(pixels * (crop[before] / whole)), qRound(pixels * (crop[behind] / whole)));
    };
    const auto [left, right] = cut(image.width(), picture.displayWidth, rtf::Side::Left, rtf::Side::Right);
    const auto [top, bottom] = cut(image.height(), picture.displayHeight, rtf::Side::Top, rtf::Side::Bottom);
    const QRect rest = image.rect().adjusted(left, top, -right, -bottom);
    return rest.isEmpty() ? image : image.copy(rest);
}

QImage emptyFrame(QSize size)
{
    QImage frame(size.isEmpty() ? kEmptyFrameSize : size.boundedTo({kLargestFrame, kLargestFrame}),
                 QImage::Format_ARGB32_Premultiplied);
    frame.fill(Qt::transparent);
    QPainter painter(&frame);
    painter.setPen(kFrameColor);
    painter.drawRect(frame.rect().adjusted(0, 0, -1, -1));
    return frame;
}

/// An object without a picture: a frame that tells what it is.
QImage objectFrame(const QString &className, QSize size)
{
    QImage frame = emptyFrame(size);
    QPainter painter(&frame);
    painter.setPen(kFrameColor);
    QFont font = painter.font();
    font.setPixelSize(qBound(8, frame.height() / 4, 13));
    painter.setFont(font);
    painter.drawText(frame.rect().adjusted(2, 2, -2, -2), Qt::AlignCenter | Qt::TextWordWrap, className);
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

QString nameOf(const rtf::Picture &picture)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(picture.bytes);
    const bool isCut = picture.crop != rtf::Sides<int>();
    const auto add = [&hash](int value) { hash.addData(QByteArray::number(value) + ' '); };
    add(int(picture.kind));
    if (isCut || picture.bytes.isEmpty()) {
        add(picture.displayWidth);
        add(picture.displayHeight);
    }
    for (const rtf::Side side : rtf::kSides)
        add(picture.crop[side]);
    if (picture.object && picture.bytes.isEmpty())
        hash.addData(picture.object->className.toUtf8());
    return kNamePrefix + QString::fromLatin1(hash.result().toHex());
}

} // namespace

QTextImageFormat PictureStore::add(rtf::Picture picture)
{
    return add(std::make_shared<const rtf::Picture>(std::move(picture)));
}

QTextImageFormat PictureStore::add(const PicturePointer &picture)
{
    const QString name = nameOf(*picture);
    m_pictures.insert(name, picture);

    QTextImageFormat format;
    format.setName(name);
    if (picture->displayWidth > 0)
        format.setWidth(picture->displayWidth / twipsPerPixel());
    if (picture->displayHeight > 0)
        format.setHeight(picture->displayHeight / twipsPerPixel());
    format.setProperty(kPictureProperty, QVariant::fromValue(picture));
    return format;
}

std::optional<rtf::Picture> PictureStore::pictureOf(const QTextImageFormat &format)
{
    std::optional<rtf::Picture> picture;
    if (const auto known = format.property(kPictureProperty).value<PicturePointer>())
        picture = *known;
    else if (format.name().startsWith(kDataPrefix))
        picture = pictureFromBytes(bytesOfDataAddress(format.name()));
    if (picture) {
        picture->displayWidth = qRound(format.width() * twipsPerPixel());
        picture->displayHeight = qRound(format.height() * twipsPerPixel());
    }
    return picture;
}

std::shared_ptr<const rtf::EmbeddedObject> PictureStore::objectOf(const QTextCharFormat &format)
{
    const auto picture = format.property(kPictureProperty).value<PicturePointer>();
    return format.isImageFormat() && picture ? picture->object : nullptr;
}

QImage PictureStore::image(const QString &name) const
{
    const auto known = m_pictures.constFind(name);
    if (known != m_pictures.constEnd()) {
        const QImage image = cropped(decoded(**known), **known);
        if (!image.isNull())
            return image;
        return (*known)->object ? objectFrame((*known)->object->className, displaySize(**known))
                                : emptyFrame(displaySize(**known));
    }
    if (name.startsWith(kDataPrefix)) {
        const QImage image = readImage(bytesOfDataAddress(name), nullptr);
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
