#include "shell/windows/KeyHints.h"

#include "shell/windows/form_icon.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace norvane {

namespace {

/// A key combination, drawn as the caps of its keys.
class KeyCaps : public QLabel
{
public:
    explicit KeyCaps(const QString &keys) : QLabel(keys), m_caps(split(keys)) {}

    QSize sizeHint() const override
    {
        int width = 0;
        for (const QString &cap : m_caps)
            width += capWidth(cap) + kGap;
        return {width, fontMetrics().height() + 2 * kPadding + 2};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor edge = palette().color(QPalette::WindowText);
        edge.setAlphaF(0.35F);
        double x = 0.5;
        const double height = fontMetrics().height() + kPadding;
        const double top = (this->height() - height) / 2.0;
        for (const QString &cap : m_caps) {
            const QRectF rect(x, top, capWidth(cap), height);
            painter.setPen(edge);
            painter.setBrush(palette().color(QPalette::Button));
            painter.drawRoundedRect(rect, 4, 4);
            painter.setPen(palette().color(QPalette::ButtonText));
            painter.drawText(rect, Qt::AlignCenter, cap);
            x += capWidth(cap) + kGap;
        }
    }

private:
    static constexpr int kPadding = 6;
    static constexpr int kGap = 5;

    // The last key may itself be "+".
    static QStringList split(const QString &keys)
    {
        QStringList caps = keys.split(u'+', Qt::SkipEmptyParts);
        if (keys.endsWith(u"++"))
            caps.append(QStringLiteral("+"));
        return caps;
    }

    int capWidth(const QString &cap) const
    {
        return qMax(fontMetrics().horizontalAdvance(cap) + 2 * kPadding + 2,
                    fontMetrics().height() + kPadding);
    }

    QStringList m_caps;
};

} // namespace

KeyHints::KeyHints(QWidget *parent) : QWidget(parent), m_grid(new QGridLayout)
{
    setObjectName(QStringLiteral("KeyHints"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    auto *picture = new QLabel;
    picture->setPixmap(applicationIcon().pixmap(QSize(72, 72), devicePixelRatioF()));
    picture->setAlignment(Qt::AlignCenter);

    auto *title = new QLabel(tr("Notes that stay where they belong"));
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setWeight(QFont::DemiBold);
    title->setFont(large);
    title->setAlignment(Qt::AlignCenter);

    auto *text = new QLabel(tr("A note opens by itself in the window it was attached to, and goes with it."));
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);

    m_grid->setHorizontalSpacing(16);
    m_grid->setVerticalSpacing(6);
    auto *centred = new QHBoxLayout;
    centred->addStretch();
    centred->addLayout(m_grid);
    centred->addStretch();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 16, 24, 16);
    layout->addStretch(1);
    layout->addWidget(picture);
    layout->addSpacing(4);
    layout->addWidget(title);
    layout->addWidget(text);
    layout->addSpacing(14);
    layout->addLayout(centred);
    layout->addStretch(2);
}

void KeyHints::setHints(const QVector<Hint> &hints)
{
    while (QLayoutItem *item = m_grid->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    int row = 0;
    for (const Hint &hint : hints) {
        m_grid->addWidget(new KeyCaps(hint.key), row, 0, Qt::AlignLeft | Qt::AlignVCenter);
        m_grid->addWidget(new QLabel(hint.text), row, 1, Qt::AlignLeft | Qt::AlignVCenter);
        ++row;
    }
}

} // namespace norvane
