#pragma once

#include "richtext/rtf/operations.h"

#include <QHash>
#include <QImage>
#include <QTextImageFormat>

namespace norvane {

/// The pictures of a document, by the names under which its text refers to them. Names come from
/// the bytes, so that copies of a picture share one.
class PictureStore
{
public:
    /// Adds a picture and gives the format of the character that shows it.
    QTextImageFormat add(const rtf::Picture &picture);
    /// The picture behind an image character: one of ours, or one that an image in HTML carried in
    /// its address. Nothing for images that the document does not carry.
    static std::optional<rtf::Picture> pictureOf(const QTextImageFormat &format);
    /// The image of that name for display. A picture that cannot be shown, or is not here, is an
    /// empty frame; nothing is fetched.
    QImage image(const QString &name) const;

private:
    QHash<QString, rtf::Picture> m_pictures;
};

/// The encoded image as a picture: PNG and JPEG as they are, other kinds as PNG. Nothing when it is
/// no image.
std::optional<rtf::Picture> pictureFromBytes(const QByteArray &bytes);

} // namespace norvane
