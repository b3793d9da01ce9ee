#include "shell/windows/frmLogo.h"

#include "shell/Twips.h"
#include "shell/windows/form_icon.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

namespace norvane {

namespace {

constexpr QSize kPictureSize(420, 220);
constexpr double kMarginTwips = 25.0;
constexpr QColor kInk(0x4a, 0x3c, 0x12);
constexpr QColor kEdge(0xe0, 0xc9, 0x7a);
constexpr QColor kFaintInk(0x8a, 0x74, 0x30);

QPainterPath note(const QRectF &rect, double fold)
{
    QPainterPath path(rect.topLeft());
    path.lineTo(rect.topRight());
    path.lineTo(rect.right(), rect.bottom() - fold);
    path.lineTo(rect.right() - fold, rect.bottom());
    path.lineTo(rect.bottomLeft());
    path.closeSubpath();
    return path;
}

void drawNote(QPainter &painter, const QRectF &rect, const QColor &top, const QColor &bottom)
{
    const double fold = rect.width() * 0.24;
    for (int step = 4; step > 0; --step) {
        painter.fillPath(note(rect.translated(0.6 * step, 1.3 * step), fold), QColor(60, 45, 0, 14));
    }
    QLinearGradient paper(rect.topLeft(), rect.bottomLeft());
    paper.setColorAt(0, top);
    paper.setColorAt(1, bottom);
    painter.fillPath(note(rect, fold), paper);

    QPainterPath corner(QPointF(rect.right(), rect.bottom() - fold));
    corner.lineTo(rect.right() - fold, rect.bottom() - fold);
    corner.lineTo(rect.right() - fold, rect.bottom());
    corner.closeSubpath();
    QLinearGradient shade(rect.bottomRight() - QPointF(fold, fold),
                          rect.bottomRight() - QPointF(fold / 3, fold / 3));
    shade.setColorAt(0, top);
    shade.setColorAt(1, bottom.darker(120));
    painter.fillPath(corner, shade);

    painter.setPen(QPen(QColor(120, 90, 10, 110), 2.6, Qt::SolidLine, Qt::RoundCap));
    const double left = rect.left() + rect.width() * 0.16;
    for (int line = 0; line < 3; ++line) {
        const double y = rect.top() + rect.height() * (0.36 + 0.17 * line);
        const double length = rect.width() * (line == 2 ? 0.36 : 0.68);
        painter.drawLine(QPointF(left, y), QPointF(left + length, y));
    }
    painter.setPen(Qt::NoPen);
}

void drawPin(QPainter &painter, const QPointF &centre, double radius)
{
    painter.setBrush(QColor(80, 55, 0, 46));
    painter.drawEllipse(centre + QPointF(radius * 0.45, radius * 0.95), radius * 0.85, radius * 0.4);
    QRadialGradient head(centre - QPointF(radius * 0.3, radius * 0.4), radius * 1.4);
    head.setColorAt(0, QColor(255, 160, 142));
    head.setColorAt(0.5, QColor(232, 73, 58));
    head.setColorAt(1, QColor(165, 30, 28));
    painter.setBrush(head);
    painter.drawEllipse(centre, radius, radius);
}

/// The one picture of the splash window: a pinned note beside the program's name.
class SplashPicture : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QLinearGradient ground(QPointF(0, 0), QPointF(0, height()));
        ground.setColorAt(0, QColor(0xff, 0xfd, 0xee));
        ground.setColorAt(1, QColor(0xfb, 0xf0, 0xc4));
        painter.fillRect(rect(), ground);
        painter.setPen(Qt::NoPen);

        painter.save();
        painter.translate(96, 116);
        painter.rotate(5);
        drawNote(painter, QRectF(-44, -46, 104, 104), QColor(0xe3, 0xf0, 0xff), QColor(0xbd, 0xd8, 0xf7));
        painter.rotate(-12);
        drawNote(painter, QRectF(-56, -58, 112, 112), QColor(0xff, 0xfb, 0xd2), QColor(0xff, 0xe7, 0x8c));
        drawPin(painter, QPointF(0, -52), 10);
        painter.restore();

        QFont name = font();
        name.setPixelSize(40);
        name.setWeight(QFont::DemiBold);
        painter.setFont(name);
        painter.setPen(kInk);
        painter.drawText(QRectF(192, 62, 220, 60), Qt::AlignLeft | Qt::AlignVCenter,
                         QStringLiteral("Norvane"));
    }
};

} // namespace

frmLogo::frmLogo(FormList &forms, const QVersionNumber &version, const Twips &twips)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), m_forms(forms)
{
    setObjectName(QStringLiteral("frmLogo"));
    setWindowTitle(QStringLiteral("Norvane"));

    auto *picture = new SplashPicture(this);
    picture->setObjectName(QStringLiteral("Picture2"));
    picture->setAccessibleName(QStringLiteral("Norvane"));
    auto *versionLabel = new QLabel(QStringLiteral("version: %1.%2.%3")
                                        .arg(version.majorVersion())
                                        .arg(version.minorVersion())
                                        .arg(version.microVersion()),
                                    picture);
    versionLabel->setObjectName(QStringLiteral("lblVersion"));
    QPalette ink = versionLabel->palette();
    ink.setColor(QPalette::WindowText, kFaintInk);
    versionLabel->setPalette(ink);
    versionLabel->setGeometry(195, 122, 215, 24);

    QPalette edge = palette();
    edge.setColor(QPalette::Window, kEdge);
    setPalette(edge);
    const QSize margin = twips.toPixels(QRectF(0, 0, kMarginTwips, kMarginTwips)).size();
    picture->setGeometry(QRect(QPoint(margin.width() / 2, margin.height() / 2), kPictureSize));
    resize(kPictureSize + margin);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    move(screen.topLeft() + QPoint((screen.width() - width()) / 2, (screen.height() - height()) / 2));
    m_forms.add(this);
}

frmLogo::~frmLogo()
{
    m_forms.remove(this);
}

QString frmLogo::formName() const
{
    return QStringLiteral("frmLogo");
}

WindowHandle frmLogo::hWnd() const
{
    return static_cast<WindowHandle>(winId());
}

void frmLogo::unload()
{
    m_forms.remove(this);
    hide();
    deleteLater();
}

} // namespace norvane
