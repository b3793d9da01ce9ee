#include "shell/windows/StatusPanel.h"

#include "controls/plain_tool_tip.h"

#include <QPainter>
#include <QStyle>
#include <cmath>

namespace norvane {

StatusPanel::StatusPanel(const QString &key, QWidget *parent) : QLabel(parent)
{
    setObjectName(key);
}

void StatusPanel::setPanelText(const QString &text)
{
    m_text = text;
    setAccessibleName(text.trimmed());
    setToolTip(plainToolTip(text.trimmed()));
    updateGeometry();
    update();
}

QSize StatusPanel::sizeHint() const
{
    // The whole pixels of an advance may be less than what drawing and shortening count.
    const int advance = static_cast<int>(std::ceil(QFontMetricsF(font()).horizontalAdvance(m_text)));
    const QMargins around = contentsMargins();
    return {advance + 1 + around.left() + around.right(), fontMetrics().height() + 2};
}

QSize StatusPanel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 6, fontMetrics().height() + 2};
}

void StatusPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect room = contentsRect();
    const QString shown = fontMetrics().elidedText(m_text, Qt::ElideMiddle, room.width());
    style()->drawItemText(&painter, room, Qt::AlignVCenter | Qt::AlignLeft, palette(), isEnabled(), shown,
                          foregroundRole());
}

} // namespace norvane
