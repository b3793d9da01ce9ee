#include "browser/dialogs/ScreenModel.h"

#include "browser/dialogs/note_properties.h"
#include "richtext/paper_colors.h"
#include "watcher/placement.h"

#include <QPainter>

namespace norvane {

namespace {

constexpr QSize kModelSize(152, 124);
constexpr QSize kDotSize(34, 26);
constexpr int kBezel = 6;
constexpr int kStand = 18; // below the screen
constexpr int kGap = 4;    // between the dot and the screen's edge

/// The note of the model.
class Dot : public QWidget
{
public:
    explicit Dot(QWidget *parent) : QWidget(parent)
    {
        setObjectName(QStringLiteral("Picture3"));
        resize(kDotSize);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const QColor paper = colorFromBlueGreenRed(kDefaultNoteColor);
        QPainter painter(this);
        painter.fillRect(rect(), paper.darker(170));
        painter.fillRect(rect().adjusted(1, 1, -1, -1), paper);
        painter.fillRect(QRect(1, 1, width() - 2, 5), paper.darker(125));
    }
};

} // namespace

ScreenModel::ScreenModel(QWidget *parent) : QWidget(parent), m_dot(new Dot(this))
{
    setObjectName(QStringLiteral("DSP"));
    setAccessibleName(tr("Where the note stands"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ScreenModel::setPosition(int formPosition)
{
    m_position = formPosition;
    placeDot();
}

QSize ScreenModel::sizeHint() const
{
    return kModelSize;
}

QRect ScreenModel::screenArea() const
{
    return rect().adjusted(kBezel, kBezel, -kBezel, -kBezel - kStand);
}

void ScreenModel::placeDot()
{
    const QRect area = screenArea().adjusted(kGap, kGap, -kGap, -kGap);
    const QSize room = area.size() - m_dot->size();
    double right = 0;
    double down = 0;
    switch (m_position) {
    case kCentre:
        right = down = 0.5;
        break;
    case kTopLeft:
        break;
    case kTopRight:
        right = 1;
        break;
    case kBottomLeft:
        down = 1;
        break;
    case kBottomRight:
        right = down = 1;
        break;
    default: // anywhere: where no corner and no middle is meant
        right = 0.22;
        down = 0.3;
    }
    m_dot->move(area.topLeft() + QPoint(qRound(room.width() * right), qRound(room.height() * down)));
}

void ScreenModel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor body = palette().color(QPalette::WindowText);
    body.setAlphaF(0.55F);
    painter.setBrush(body);
    const int middle = width() / 2;
    painter.drawRect(QRect(middle - 9, height() - kStand, 18, kStand - 5));
    painter.drawRoundedRect(QRectF(middle - 30, height() - 6, 60, 6), 3, 3);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QRect monitor = rect().adjusted(0, 0, 0, -kStand);
    painter.setBrush(palette().color(QPalette::Window));
    painter.drawRoundedRect(monitor, 6, 6);
    painter.setBrush(body);
    painter.drawRoundedRect(monitor, 6, 6);
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(screenArea(), 2, 2);
}

void ScreenModel::resizeEvent(QResizeEvent *)
{
    placeDot();
}

} // namespace norvane
