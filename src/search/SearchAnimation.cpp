#include "search/SearchAnimation.h"

#include <QMovie>
#include <QPainter>
#include <QTimerEvent>
#include <cmath>
#include <memory>
#include <numbers>

namespace norvane {

namespace {

constexpr int kFrameMs = 40;
constexpr int kRoundMs = 2400; ///< the glass is where it was
constexpr int kSideInLines = 3;

// The drawing, in a square of 100.
constexpr QRectF kPaper(16, 6, 58, 78);
constexpr QPointF kMiddle(44, 42);
constexpr double kSweepX = 20;
constexpr double kSweepY = 22;
constexpr double kGlassRadius = 18;
constexpr double kHandleLength = 22;

const QColor kPaperColor(0xFF, 0xFF, 0xC0);
const QColor kPaperEdge(0xC8, 0xB4, 0x5A);

} // namespace

SearchAnimation::SearchAnimation(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("Animation1"));
    setAccessibleName(tr("A search is running"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SearchAnimation::open(const QString &file)
{
    auto clip = std::make_unique<QMovie>(file);
    if (!clip->isValid())
        return;
    delete m_clip;
    m_clip = clip.release();
    m_clip->setParent(this);
    m_clip->setCacheMode(QMovie::CacheAll);
    connect(m_clip, &QMovie::frameChanged, this, [this] { update(); });
    move();
}

void SearchAnimation::play()
{
    m_isPlaying = true;
    move();
}

void SearchAnimation::stop()
{
    m_isPlaying = false;
    move();
}

/// Starts or ends what moves.
void SearchAnimation::move()
{
    const bool moves = m_isPlaying && isVisible();
    m_timer.stop();
    if (m_clip && moves)
        m_clip->start();
    else if (m_clip)
        m_clip->stop();
    else if (moves) {
        m_time.start();
        m_timer.start(kFrameMs, this);
    }
}

QSize SearchAnimation::sizeHint() const
{
    const int side = kSideInLines * fontMetrics().height();
    return {side, side};
}

void SearchAnimation::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId())
        update();
    else
        QWidget::timerEvent(event);
}

void SearchAnimation::showEvent(QShowEvent *)
{
    move();
}

void SearchAnimation::hideEvent(QHideEvent *)
{
    move();
}

void SearchAnimation::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (!m_clip) {
        paintGlass(painter);
        return;
    }
    const QPixmap frame = m_clip->currentPixmap();
    QRect place(QPoint(), frame.size().scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    painter.drawPixmap(place, frame);
}

void SearchAnimation::paintGlass(QPainter &painter) const
{
    const double side = std::min(width(), height());
    painter.translate((width() - side) / 2, (height() - side) / 2);
    painter.scale(side / 100, side / 100);

    painter.setPen(QPen(kPaperEdge, 3));
    painter.setBrush(kPaperColor);
    painter.drawRoundedRect(kPaper, 5, 5);
    for (const double y : {20.0, 34.0, 48.0, 62.0})
        painter.drawLine(QPointF(26, y), QPointF(y > 60 ? 48 : 64, y));

    const double round = m_time.isValid() ? static_cast<double>(m_time.elapsed() % kRoundMs) / kRoundMs : 0.0;
    const double angle = 2 * std::numbers::pi * round;
    const QPointF glass = kMiddle + QPointF(kSweepX * std::cos(angle), kSweepY * std::sin(angle));
    const QPointF diagonal(std::numbers::sqrt2 / 2, std::numbers::sqrt2 / 2);
    const QColor ink = palette().color(QPalette::Highlight);
    painter.setPen(QPen(ink.darker(125), 9, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(glass + diagonal * kGlassRadius, glass + diagonal * (kGlassRadius + kHandleLength));
    QColor lens = Qt::white;
    lens.setAlphaF(0.55F);
    painter.setPen(QPen(ink, 6));
    painter.setBrush(lens);
    painter.drawEllipse(glass, kGlassRadius, kGlassRadius);
}

} // namespace norvane
