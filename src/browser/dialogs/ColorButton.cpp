#include "browser/dialogs/ColorButton.h"

#include "richtext/paper_colors.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace norvane {

ColorButton::ColorButton(const QString &caption, QWidget *parent) : QPushButton(caption, parent) {}

void ColorButton::setColor(quint32 color)
{
    m_color = color;
    const QColor shown = colorFromBlueGreenRed(color);
    setAccessibleDescription(
        tr("Red %1, green %2, blue %3").arg(shown.red()).arg(shown.green()).arg(shown.blue()));
    update();
}

QSize ColorButton::sizeHint() const
{
    const int line = fontMetrics().height();
    return QPushButton::sizeHint() + QSize(2 * line, line / 2);
}

void ColorButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);

    constexpr int kMargin = 5;
    const QColor paper = colorFromBlueGreenRed(m_color);
    const QRectF swatch = QRectF(rect().adjusted(kMargin, kMargin, -kMargin, -kMargin));
    painter.setRenderHint(QPainter::Antialiasing);
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(0.35F);
    painter.setPen(edge);
    painter.setBrush(paper);
    painter.drawRoundedRect(swatch.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.setPen(inkOn(paper));
    const bool underlined = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
    painter.drawText(swatch, Qt::AlignCenter | (underlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic),
                     text());
}

} // namespace norvane
