#pragma once

#include "richtext/format_properties.h"

#include <QHash>
#include <QImage>
#include <QTextImageFormat>
#include <optional>

namespace norvane {

/// The pictures of a document, by the names under which its text refers to them. Names come from
/// what is shown, so that copies of a picture share one.
///
/// An object of another program is a picture with an object (rtf::Picture::object): adding one and
/// inserting the image character embeds it, objectOf() finds it again.
class PictureStore
{
public:
    /// Adds a picture and gives the format of the character that shows it.
    QTextImageFormat add(rtf::Picture picture);
    QTextImageFormat add(const PicturePointer &picture);
    /// The picture behind an image character: one of ours, or one that an image in HTML carried in
    /// its address. Nothing for images that the document does not carry.
    static std::optional<rtf::Picture> pictureOf(const QTextImageFormat &format);
    /// The object behind an image character; nullptr if it shows none.
    static std::shared_ptr<const rtf::EmbeddedObject> objectOf(const QTextCharFormat &format);
    /// The image of that name for display. A picture that cannot be shown, or is not here, is an
    /// empty frame; nothing is fetched.
    QImage image(const QString &name) const;

private:
    QHash<QString, PicturePointer> m_pictures;
};

/// The encoded image as a picture: PNG and JPEG as they are, other kinds as PNG. Nothing when it is
/// no image.
std::optional<rtf::Picture> pictureFromBytes(const QByteArray &bytes);

} // namespace norvane
