#include "sticky/PinButton.h"

#include "sticky/NoteFrame.h"

#include <QPainter>
#include <QPainterPath>

namespace norvane {

PinButton::PinButton(QWidget *parent) : QAbstractButton(parent)
{
    setObjectName(QStringLiteral("BtnPin"));
    setAccessibleName(tr("Note menu"));
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_Hover);
}

void PinButton::setInk(const QColor &ink)
{
    m_ink = ink;
    update();
}

QSize PinButton::sizeHint() const
{
    return {kNoteStrip, kNoteStrip};
}

void PinButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ink = m_ink;
    if (isEnabled() && (underMouse() || isDown())) {
        QColor halo = ink;
        halo.setAlphaF(isDown() ? 0.22F : 0.12F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(halo);
        painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 4, 4);
    }
    ink.setAlphaF(isEnabled() ? 0.85F : 0.55F);

    // A push pin, leaning to the right: head, collar, plate and needle in a box of 16 units.
    painter.translate(width() / 2.0, height() / 2.0);
    painter.rotate(35);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawRoundedRect(QRectF(-3.4, -7.2, 6.8, 2.2), 1, 1);
    QPainterPath body;
    body.moveTo(-2.1, -5.2);
    body.lineTo(2.1, -5.2);
    body.lineTo(2.6, -1.0);
    body.cubicTo(4.6, -0.2, 4.9, 0.9, 4.9, 2.0);
    body.lineTo(-4.9, 2.0);
    body.cubicTo(-4.9, 0.9, -4.6, -0.2, -2.6, -1.0);
    body.closeSubpath();
    painter.drawPath(body);
    painter.setPen(QPen(ink, 1.3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, 2.2), QPointF(0, 7.0));
}

} // namespace norvane
