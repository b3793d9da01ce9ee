// The embedded objects of RichTextBox.

#include "richtext/RichTextBox.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>

namespace norvane {
namespace {

const QString kSource = QStringLiteral("RichTextBox");

qint64 bytesOf(const rtf::Picture &picture)
{
    qint64 bytes = picture.bytes.size() + picture.original.size() + picture.kept.size();
    if (picture.object)
        bytes += picture.object->data.size() + picture.object->kept.size();
    return bytes;
}

} // namespace

qint64 RichTextBox::embeddedBytes() const
{
    qint64 bytes = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            const auto picture = fragment.charFormat().isImageFormat()
                                     ? PictureStore::pictureOf(fragment.charFormat().toImageFormat())
                                     : std::nullopt;
            if (picture)
                bytes += fragment.length() * bytesOf(*picture);
        }
    }
    return bytes;
}

void RichTextBox::addOleObject(const rtf::Picture &picture)
{
    if (!picture.object)
        throw RuntimeError(kErrorInvalidCall, QStringLiteral("The picture shows no object."), kSource);
    if (embeddedBytes() + bytesOf(picture) > kLargestEmbedded)
        throw RuntimeError(kErrorInvalidCall, QStringLiteral("There is no room for the object."), kSource);
    QTextCursor cursor = textCursor();
    const QTextCharFormat typing = currentCharFormat();
    QTextCharFormat format = typing;
    format.merge(m_pictures.add(picture));
    cursor.insertImage(format.toImageFormat());
    setTextCursor(cursor);
    setCurrentCharFormat(typing);
    ensureCursorVisible();
}

std::shared_ptr<const rtf::EmbeddedObject> RichTextBox::objectAt(const QPoint &point) const
{
    const QPointF scrolled(point.x() + horizontalScrollBar()->value(),
                           point.y() + verticalScrollBar()->value());
    return PictureStore::objectOf(document()->documentLayout()->formatAt(scrolled).toCharFormat());
}

std::shared_ptr<const rtf::EmbeddedObject> RichTextBox::selectedObject() const
{
    QTextCursor cursor = textCursor();
    if (cursor.selectionEnd() - cursor.selectionStart() != 1)
        return nullptr;
    cursor.setPosition(cursor.selectionEnd());
    return PictureStore::objectOf(cursor.charFormat());
}

} // namespace norvane
