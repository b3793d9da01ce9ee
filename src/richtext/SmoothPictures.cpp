#include "richtext/SmoothPictures.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>

namespace norvane {

SmoothPictures::SmoothPictures(QTextObjectInterface &drawing, QAbstractTextDocumentLayout &layout)
    : QObject(&layout), m_drawing(drawing)
{
}

void SmoothPictures::takeOver(QAbstractTextDocumentLayout &layout)
{
    if (QTextObjectInterface *drawing = layout.handlerForObject(QTextFormat::ImageObject))
        layout.registerHandler(QTextFormat::ImageObject, new SmoothPictures(*drawing, layout));
}

QSizeF SmoothPictures::intrinsicSize(QTextDocument *document, int position, const QTextFormat &format)
{
    return m_drawing.intrinsicSize(document, position, format);
}

void SmoothPictures::drawObject(QPainter *painter, const QRectF &place, QTextDocument *document, int position,
                                const QTextFormat &format)
{
    const bool wasSmooth = painter->testRenderHint(QPainter::SmoothPixmapTransform);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    m_drawing.drawObject(painter, place, document, position, format);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, wasSmooth);
}

} // namespace norvane
