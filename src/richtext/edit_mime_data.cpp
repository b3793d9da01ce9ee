#include "richtext/edit_mime_data.h"

#include "richtext/PictureStore.h"
#include "richtext/document_reader.h"
#include "richtext/format_conversion.h"
#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"
#include "richtext/text_positions.h"

#include <QBuffer>
#include <QImage>
#include <QMimeData>
#include <QTextCursor>
#include <QTextDocumentFragment>

namespace norvane {
namespace {

const QString kRtfTypes[] = {QStringLiteral("text/rtf"), QStringLiteral("application/rtf"),
                             QStringLiteral("text/richtext"), QStringLiteral("application/x-rtf")};

/// HTML whose pictures are in it: their names mean nothing to another program.
QString htmlOf(const QTextCursor &selection)
{
    QString html = selection.selection().toHtml();
    const rtf::Document document =
        readDocument(*selection.document(), selection.selectionStart(), selection.selectionEnd(), false);
    PictureStore names;
    for (const rtf::Operation &operation : document.operations) {
        const auto *run = std::get_if<rtf::PictureRun>(&operation);
        if (!run)
            continue;
        const QString name = names.add(run->picture).name();
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        names.image(name).save(&buffer, "PNG");
        html.replace(name, QStringLiteral("data:image/png;base64,") + QString::fromLatin1(png.toBase64()));
    }
    return html;
}

} // namespace

std::unique_ptr<QMimeData> mimeDataOf(const QTextCursor &selection)
{
    auto data = std::make_unique<QMimeData>();
    const auto [from, to] = selectedRange(selection);
    const QByteArray rtf = rtf::write(readDocument(*selection.document(), from, to, false));
    data->setData(kRtfTypes[0], rtf);
    data->setData(kRtfTypes[1], rtf);
    data->setHtml(htmlOf(selection));
    QString text = textBetween(*selection.document(), from, to);
    text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\v', u'\n');
    data->setText(text);
    return data;
}

QByteArray richTextOf(const QMimeData &source)
{
    for (const QString &type : kRtfTypes) {
        const QByteArray data = source.data(type);
        if (rtf::isRichText(data))
            return data;
    }
    return {};
}

bool isPictureAlone(const QString &html)
{
    if (html.contains(u"data:image/", Qt::CaseInsensitive))
        return false;
    QString text = QTextDocumentFragment::fromHtml(html).toPlainText();
    return text.remove(QChar::ObjectReplacementCharacter).trimmed().isEmpty();
}

std::optional<rtf::Picture> pictureOf(const QMimeData &source)
{
    for (const QString &type : {QStringLiteral("image/png"), QStringLiteral("image/jpeg")}) {
        if (source.hasFormat(type)) {
            if (std::optional<rtf::Picture> picture = pictureFromBytes(source.data(type)))
                return picture;
        }
    }
    const QImage image = qvariant_cast<QImage>(source.imageData());
    if (image.isNull())
        return std::nullopt;
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    std::optional<rtf::Picture> picture = pictureFromBytes(png);
    // Of a screen on which a pixel of ours is several of its own, it is to look as large as there.
    if (const double ratio = image.devicePixelRatio(); picture && ratio > 1) {
        picture->displayWidth = qRound(image.width() / ratio * twipsPerPixel());
        picture->displayHeight = qRound(image.height() / ratio * twipsPerPixel());
    }
    return picture;
}

bool canInsertMimeData(const QMimeData &source)
{
    for (const QString &type : kRtfTypes) {
        if (source.hasFormat(type))
            return true;
    }
    return source.hasHtml() || source.hasImage() || source.hasText();
}

} // namespace norvane
