// What RichTextBox draws beside its text.

#include "richtext/RichTextBox.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

namespace norvane {

void RichTextBox::paintEvent(QPaintEvent *event)
{
    QTextEdit::paintEvent(event);
    const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    QPainter painter(viewport());
    painter.setClipRegion(event->region());
    painter.translate(-scrolled);
    m_paragraphPainter.paint(painter, *document(), event->rect().translated(scrolled),
                             palette().color(QPalette::Text));
}

} // namespace norvane
