#include "platform/qt/FontDialog.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace norvane {

QColor colorOfValue(quint32 value)
{
    return QColor(int(value & 0xFF), int(value >> 8 & 0xFF), int(value >> 16 & 0xFF));
}

quint32 valueOfColor(const QColor &color)
{
    return quint32(color.red()) | quint32(color.green()) << 8 | quint32(color.blue()) << 16;
}

FontDialog::FontDialog(const FontChoice &start, QWidget *parent)
    : QDialog(parent), m_start(start), m_fonts(new QFontDialog(this)), m_colorButton(new QPushButton(this)),
      m_color(colorOfValue(start.color))
{
    setWindowTitle(tr("Font"));

    QFont font(start.family);
    font.setPointSizeF(start.points);
    font.setBold(start.bold);
    font.setItalic(start.italic);
    font.setStrikeOut(start.strikeThru);
    font.setUnderline(start.underline);
    // What stands in for a font that is not installed, or the list would begin somewhere.
    if (!QFontDatabase::hasFamily(start.family))
        font.setFamily(QFontInfo(font).family());
    m_fonts->setWindowFlags(Qt::Widget);
    m_fonts->setOptions(QFontDialog::NoButtons | QFontDialog::DontUseNativeDialog);
    m_fonts->setSizeGripEnabled(false);
    m_fonts->setCurrentFont(font);
    m_shown = m_fonts->currentFont();

    m_colorButton->setObjectName(QStringLiteral("colorButton"));
    m_colorButton->setAutoDefault(false);
    connect(m_colorButton, &QPushButton::clicked, this, &FontDialog::chooseColor);
    auto *colorLabel = new QLabel(tr("&Color:"), this);
    colorLabel->setBuddy(m_colorButton);
    showColor();

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *bottom = new QHBoxLayout;
    bottom->addWidget(colorLabel);
    bottom->addWidget(m_colorButton);
    bottom->addStretch();
    bottom->addWidget(buttons);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_fonts);
    layout->addLayout(bottom);
}

FontChoice FontDialog::choice() const
{
    // The dialog knows whole sizes and installed fonts only: what nobody has touched stays as it was.
    const QFont font = m_fonts->currentFont();
    FontChoice choice = m_start;
    const bool isOther = font.family() != m_shown.family();
    if (isOther)
        choice.family = font.family();
    if (font.pointSize() != m_shown.pointSize())
        choice.points = font.pointSizeF();
    if (isOther || font.bold() != m_shown.bold())
        choice.bold = font.bold();
    if (isOther || font.italic() != m_shown.italic())
        choice.italic = font.italic();
    choice.strikeThru = font.strikeOut();
    choice.underline = font.underline();
    choice.color = valueOfColor(m_color);
    return choice;
}

void FontDialog::chooseColor()
{
    const QColor color = QColorDialog::getColor(m_color, this);
    if (!color.isValid())
        return;
    m_color = color;
    showColor();
}

void FontDialog::showColor()
{
    QPixmap patch(m_colorButton->iconSize() * devicePixelRatioF());
    patch.setDevicePixelRatio(devicePixelRatioF());
    patch.fill(m_color);
    m_colorButton->setIcon(patch);
    m_colorButton->setText(m_color.name());
}

} // namespace norvane
