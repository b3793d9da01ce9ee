#include "sticky/NoteStrip.h"

#include "sticky/NoteFrame.h"
#include "sticky/PinButton.h"

#include <QPainter>
#include <algorithm>

namespace norvane {

namespace {

constexpr int kGap = 6;         // between pin, name and image, pixels
constexpr int kImageMargin = 3; // 45 twips
constexpr int kLeading = 2;     // above and below the name
constexpr int kPinMargin = kNoteEdge - 1;

/// Three fine lines that say "take hold here", at the right of the strip.
class GripImage : public QWidget
{
public:
    explicit GripImage(QWidget *parent) : QWidget(parent)
    {
        setObjectName(QStringLiteral("Image1"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void setInk(const QColor &ink)
    {
        m_ink = ink;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        m_ink.setAlphaF(0.30F);
        const int length = 14;
        for (int line = -1; line <= 1; ++line)
            painter.fillRect(width() - length - kImageMargin, height() / 2 + line * 3, length, 1, m_ink);
    }

private:
    QColor m_ink;
};

} // namespace

NoteStrip::NoteStrip(QWidget *parent)
    : QWidget(parent), m_pin(new PinButton(this)), m_image(new GripImage(this)), m_label(new QLabel(this))
{
    setObjectName(QStringLiteral("Picture1"));
    setMouseTracking(true); // the note shows what a press at the pointer would do
    m_label->setObjectName(QStringLiteral("lblFriendlyName"));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont font = m_label->font();
    font.setWeight(QFont::DemiBold);
    font.setPointSizeF(std::max(7.0, font.pointSizeF() - 1.0));
    m_label->setFont(font);
    setCaption(QStringLiteral("Name"));
}

int NoteStrip::thickness() const
{
    return std::max(kNoteStrip, m_label->fontMetrics().height() + 2 * kLeading);
}

void NoteStrip::setCaption(const QString &caption)
{
    m_caption = caption;
    m_label->setAccessibleName(caption);
    elide();
}

void NoteStrip::setPaper(const NotePaper &paper)
{
    m_paper = paper;
    m_pin->setInk(paper.ink);
    static_cast<GripImage *>(m_image)->setInk(paper.ink);
    QPalette colors = m_label->palette();
    colors.setColor(QPalette::WindowText, paper.ink);
    m_label->setPalette(colors);
    update();
}

void NoteStrip::setActive(bool active)
{
    m_active = active;
    update();
}

void NoteStrip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor base = m_active ? m_paper.activeStrip : m_paper.strip;
    QLinearGradient light(0, 0, 0, height());
    light.setColorAt(0, base.lighter(103));
    light.setColorAt(1, base);
    painter.fillRect(rect(), light);
    QColor line = m_paper.edge;
    line.setAlphaF(0.35F);
    painter.fillRect(0, height() - 1, width(), 1, line);
}

void NoteStrip::resizeEvent(QResizeEvent *)
{
    // The note's sizing edge goes around the pin.
    const int side = height() - kPinMargin;
    m_pin->setGeometry(kPinMargin, kPinMargin, side, side);
    const int left = height() + kGap / 2;
    m_image->setGeometry(left, 0, std::max(0, width() - left), height());
    m_label->setGeometry(left, 0, std::max(0, width() - left - 3 * kGap - kImageMargin), height() - 1);
    elide();
}

void NoteStrip::elide()
{
    // A name of thousands of characters is not measured whole.
    const QString line = m_caption.left(400).simplified();
    m_label->setText(m_label->fontMetrics().elidedText(line, Qt::ElideRight, m_label->width()));
    setToolTip(m_label->text() == line ? QString() : m_caption.left(400));
}

} // namespace norvane
