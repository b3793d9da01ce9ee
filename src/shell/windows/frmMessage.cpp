#include "shell/windows/frmMessage.h"

#include "platform/Sound.h"
#include "platform/WindowSystem.h"
#include "shell/windows/form_icon.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <cmath>

namespace norvane {

namespace {

constexpr int kDurationMs = 3000;
constexpr int kIconSide = 40;
constexpr int kTextWidth = 380;
constexpr int kRadius = 9;

/// A rectangle with round corners: whole pixels, none of which lies within the curve is missing.
QRegion roundedRegion(const QRect &rect)
{
    QRegion region(rect.adjusted(0, kRadius, 0, -kRadius));
    for (int row = 0; row < kRadius; ++row) {
        const double y = kRadius - row - 0.5;
        const int inset = static_cast<int>(kRadius - std::sqrt(kRadius * kRadius - y * y));
        const QRect line(rect.left() + inset, rect.top() + row, rect.width() - 2 * inset, 1);
        region += line;
        region += line.translated(0, rect.height() - 1 - 2 * row);
    }
    return region;
}

QColor blend(const QColor &over, const QColor &under, float share)
{
    return QColor::fromRgbF(over.redF() * share + under.redF() * (1 - share),
                            over.greenF() * share + under.greenF() * (1 - share),
                            over.blueF() * share + under.blueF() * (1 - share));
}

} // namespace

frmMessage::frmMessage(FormList &forms, WindowSystem &windows, Sound &sound)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), m_forms(forms),
      m_windows(windows), m_sound(sound), m_label(new QLabel)
{
    setObjectName(QStringLiteral("frmMessage"));
    setWindowTitle(QStringLiteral("Norvane"));
    SetFormIcon(this);
    setFocusPolicy(Qt::StrongFocus);

    auto *icon = new QLabel;
    icon->setObjectName(QStringLiteral("Image1"));
    icon->setPixmap(applicationIcon().pixmap(QSize(kIconSide, kIconSide), devicePixelRatioF()));
    icon->setAccessibleName(QStringLiteral("Norvane"));
    m_label->setObjectName(QStringLiteral("Label1"));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(20, 16, 24, 16);
    layout->setSpacing(16);
    layout->addWidget(icon);
    layout->addWidget(m_label, 1);
    setText(QStringLiteral("Norvane does not support this window type."));

    m_timer.setObjectName(QStringLiteral("Timer1"));
    m_timer.setSingleShot(true);
    m_timer.setInterval(kDurationMs);
    connect(&m_timer, &QTimer::timeout, this, &frmMessage::unload);
    m_forms.add(this);
}

frmMessage::~frmMessage()
{
    m_forms.remove(this);
}

QString frmMessage::formName() const
{
    return QStringLiteral("frmMessage");
}

WindowHandle frmMessage::hWnd() const
{
    return static_cast<WindowHandle>(winId());
}

void frmMessage::unload()
{
    m_timer.stop();
    m_forms.remove(this);
    hide();
    deleteLater();
}

void frmMessage::setText(const QString &text)
{
    m_label->setText(text);
    // As wide as a short text needs, and no wider than reads well.
    const int natural =
        m_label->fontMetrics().boundingRect(QRect(0, 0, kTextWidth, 0), Qt::TextWordWrap, text).width();
    m_label->setMinimumWidth(qMin(natural + 2, kTextWidth));
    m_label->setMaximumWidth(kTextWidth);
    setAccessibleName(text);
    adjustSize();
}

QString frmMessage::text() const
{
    return m_label->text();
}

void frmMessage::Show()
{
    adjustSize();
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    move(room.center() - QPoint(width() / 2, height() / 2));
    show();
    raise();
    m_windows.setForegroundWindow(hWnd());
    m_sound.beep();
    m_timer.start();
}

void frmMessage::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor paper = palette().color(QPalette::Base);
    const QColor edge = blend(palette().color(QPalette::Text), paper, 0.3F);
    painter.fillRect(rect(), edge); // what the curve leaves of the corner's pixels
    painter.setPen(QPen(edge, 1.0));
    painter.setBrush(paper);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

void frmMessage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    // A shaped window has round corners on every desktop, with a compositor or without.
    setMask(roundedRegion(rect()));
}

void frmMessage::mousePressEvent(QMouseEvent *)
{
    unload();
}

void frmMessage::keyPressEvent(QKeyEvent *)
{
    unload();
}

void frmMessage::closeEvent(QCloseEvent *event)
{
    event->accept();
    unload();
}

} // namespace norvane
