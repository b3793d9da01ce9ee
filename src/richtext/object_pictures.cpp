#include "richtext/object_pictures.h"

#include "richtext/format_conversion.h"
#include "richtext/rtf/limits.h"
#include "richtext/rtf/package_object.h"

#include <QApplication>
#include <QBuffer>
#include <QIcon>
#include <QImageReader>
#include <QMimeDatabase>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

namespace norvane {
namespace {

// Pixels as a screen without scaling has them.
constexpr int kIconSize = 48;
constexpr int kTextHeight = 12;
constexpr int kNarrowestText = 64;
constexpr int kWidestText = 128;
constexpr int kMostLines = 2;
constexpr int kMargin = 8;
constexpr int kCornerRadius = 4;
/// Drawn finer than that, for screens with scaling.
constexpr int kFineness = 2;

constexpr QColor kGround(240, 240, 242);
constexpr QColor kEdge(196, 196, 196);
constexpr QColor kInk(32, 32, 32);

QByteArray encoded(const QImage &image, const char *format)
{
    constexpr int kJpegQuality = 88;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, qstrcmp(format, "JPEG") == 0 ? kJpegQuality : -1);
    return bytes;
}

void setDisplaySize(rtf::Picture &picture, QSize pixels)
{
    picture.displayWidth = qRound(pixels.width() * twipsPerPixel());
    picture.displayHeight = qRound(pixels.height() * twipsPerPixel());
}

QIcon iconOfType(const QString &fileName)
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(fileName, QMimeDatabase::MatchExtension);
    const QIcon fallback = QApplication::style()->standardIcon(QStyle::SP_FileIcon);
    return QIcon::fromTheme(type.iconName(), QIcon::fromTheme(type.genericIconName(), fallback));
}

/// The text broken into lines; what does not fit ends in an ellipsis.
QStringList linesOf(const QString &text, const QFont &font)
{
    if (text.isEmpty())
        return {};
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(kWidestText);
        const bool isLast = lines.size() == kMostLines - 1;
        const QString part =
            isLast ? text.mid(line.textStart()) : text.mid(line.textStart(), line.textLength());
        // The end of a file's name tells what it is.
        lines += QFontMetrics(font).elidedText(part.trimmed(), Qt::ElideMiddle, kWidestText);
        if (isLast)
            break;
    }
    layout.endLayout();
    return lines;
}

} // namespace

std::optional<rtf::Picture> pictureOfFile(const QByteArray &bytes, int width)
{
    QByteArray data = bytes;
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QByteArray kind = reader.format();
    const QSize stated = reader.size();
    if (stated.width() > rtf::kMaximumPictureSide || stated.height() > rtf::kMaximumPictureSide)
        return std::nullopt;
    const bool isTurned = reader.transformation() != QImageIOHandler::TransformationNone;
    QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;

    const QSize largest(qBound(1, width, kLargestShownSide), kLargestShownSide);
    QSize shown = image.size();
    if (shown.width() > largest.width() || shown.height() > largest.height())
        shown = shown.scaled(largest, Qt::KeepAspectRatio).expandedTo({1, 1});
    const QSize fine = shown * kFineness;
    const bool isLarge = image.width() > fine.width() || image.height() > fine.height();
    if (isLarge)
        image = image.scaled(fine, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);

    rtf::Picture picture;
    picture.kind = kind == "jpeg" ? rtf::PictureKind::Jpeg : rtf::PictureKind::Png;
    const bool isAsItIs = (kind == "png" || kind == "jpeg") && !isLarge && !isTurned;
    picture.bytes = isAsItIs ? bytes : encoded(image, kind == "jpeg" ? "JPEG" : "PNG");
    picture.width = image.width();
    picture.height = image.height();
    setDisplaySize(picture, shown);
    return picture;
}

rtf::Picture iconOfFile(const QString &fileName, const QString &label)
{
    QFont font = QApplication::font();
    font.setPixelSize(kTextHeight);
    const QStringList lines = linesOf(label.simplified(), font);
    const QFontMetrics metrics(font);
    int textWidth = kNarrowestText;
    for (const QString &line : lines)
        textWidth = qMax(textWidth, metrics.horizontalAdvance(line));
    const int textGap = lines.isEmpty() ? 0 : kMargin / 2;
    const QSize size(textWidth + 2 * kMargin,
                     kIconSize + textGap + int(lines.size()) * metrics.lineSpacing() + 2 * kMargin);

    QImage image(size * kFineness, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(kFineness);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(kEdge);
    painter.setBrush(kGround);
    painter.drawRoundedRect(QRectF(QPointF(0.5, 0.5), QSizeF(size) - QSizeF(1, 1)), kCornerRadius,
                            kCornerRadius);
    const QRect iconPlace((size.width() - kIconSize) / 2, kMargin, kIconSize, kIconSize);
    iconOfType(fileName).paint(&painter, iconPlace);
    painter.setPen(kInk);
    painter.setFont(font);
    QRect line(kMargin, iconPlace.bottom() + 1 + textGap, textWidth, metrics.lineSpacing());
    for (const QString &text : lines) {
        painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, text);
        line.translate(0, metrics.lineSpacing());
    }
    painter.end();

    rtf::Picture picture;
    picture.bytes = encoded(image, "PNG");
    picture.width = image.width();
    picture.height = image.height();
    setDisplaySize(picture, size);
    return picture;
}

rtf::Picture packaged(rtf::Picture shown, const QString &label, const QString &source,
                      const QByteArray &bytes)
{
    auto object = std::make_shared<rtf::EmbeddedObject>();
    object->className = rtf::kPackageClass;
    object->data = rtf::packageData({label, source, source, bytes});
    object->words = QStringLiteral("\\objemb\\objh%1\\objw%2")
                        .arg(QString::number(shown.displayHeight), QString::number(shown.displayWidth))
                        .toLatin1();
    shown.object = std::move(object);
    return shown;
}

} // namespace norvane
