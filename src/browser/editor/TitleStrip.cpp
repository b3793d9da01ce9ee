#include "browser/editor/TitleStrip.h"

#include "controls/plain_tool_tip.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QToolButton>
#include <algorithm>
#include <cmath>

namespace norvane {

/// `lblTitle`.
class TitleLabel : public QLabel
{
public:
    explicit TitleLabel(QWidget *parent) : QLabel(parent)
    {
        setObjectName(QStringLiteral("lblTitle"));
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        QFont bold = font();
        bold.setWeight(QFont::DemiBold);
        setFont(bold);
    }

    QSize sizeHint() const override
    {
        const double advance = QFontMetricsF(font()).horizontalAdvance(oneLine());
        return {std::min(static_cast<int>(std::ceil(advance)) + 1, kWidestHint), fontMetrics().height()};
    }
    QSize minimumSizeHint() const override
    {
        return {fontMetrics().averageCharWidth() * 4, fontMetrics().height()};
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(oneLine(), Qt::ElideRight, width());
        style()->drawItemText(&painter, rect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                              palette(), isEnabled(), shown, foregroundRole());
    }

private:
    static constexpr int kWidestHint = 4096;

    QString oneLine() const
    {
        QString line = text();
        line.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
        std::replace_if(
            line.begin(), line.end(),
            [](QChar c) { return c.category() == QChar::Other_Control || c == QChar::LineSeparator; }, u' ');
        return line;
    }
};

TitleStrip::TitleStrip(QWidget *parent) : QFrame(parent), m_title(new TitleLabel(this))
{
    setObjectName(QStringLiteral("Label1"));
    setBackgroundRole(QPalette::Button);
    setAutoFillBackground(true);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 2, 2);
    layout->setSpacing(1);
    layout->addWidget(m_title, 1);
}

QString TitleStrip::title() const
{
    return m_title->text();
}

void TitleStrip::setTitle(const QString &title)
{
    m_title->setText(title);
    m_title->setAccessibleName(title.trimmed());
}

void TitleStrip::setTitleToolTip(const QString &text)
{
    m_title->setToolTip(plainToolTip(text));
}

QToolButton *TitleStrip::addButton(const QString &name, const QIcon &icon, const QString &toolTip)
{
    auto *button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(icon);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus); // a press with the mouse leaves the caret in the text
    layout()->addWidget(button);
    return button;
}

} // namespace norvane
