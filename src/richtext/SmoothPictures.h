#pragma once

#include <QTextObjectInterface>

class QAbstractTextDocumentLayout;

namespace norvane {

/// Draws the pictures of a text as its layout does, but smoothly where they are not drawn pixel for
/// pixel. Owned by the layout.
class SmoothPictures : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// Takes the place of what draws the layout's pictures.
    static void takeOver(QAbstractTextDocumentLayout &layout);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &place, QTextDocument *document, int position,
                    const QTextFormat &format) override;

private:
    SmoothPictures(QTextObjectInterface &drawing, QAbstractTextDocumentLayout &layout);

    QTextObjectInterface &m_drawing; ///< of the layout
};

} // namespace norvane
