#pragma once

#include <QColor>
#include <QHash>
#include <QRectF>
#include <QString>

class QPainter;
class QTextBlock;
class QTextDocument;

namespace norvane {

/// Draws what a text document does not by itself: the marks of lists' items, and the borders of
/// paragraphs. Goes over a text document that has been drawn, on the screen as on paper.
class ParagraphPainter
{
public:
    /// @param clip what is drawn of the document, in its pixels
    /// @param ink colour of text that has none of its own
    void paint(QPainter &painter, const QTextDocument &document, const QRectF &clip, const QColor &ink);
    /// The mark of an item; empty for other paragraphs.
    QString markOf(const QTextBlock &block);

private:
    void count(const QTextDocument &document);
    void paintMark(QPainter &painter, const QTextBlock &block, const QPointF &origin, const QColor &ink);

    const QTextDocument *m_document = nullptr;
    int m_revision = -1;         ///< of the document when its items were counted
    QHash<int, QString> m_marks; ///< by number of the block
};

} // namespace norvane
