#include "controls/menuview/cNCMetrics.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <cmath>

namespace norvane {

namespace {

constexpr double kSmaller = 0.85;

QFont desktopMenuFont()
{
    return QApplication::font("QMenu");
}

QFont smaller(QFont font)
{
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * kSmaller);
    else
        font.setPixelSize(int(font.pixelSize() * kSmaller));
    return font;
}

} // namespace

cNCMetrics::cNCMetrics() : m_menuMetrics(QFont()), m_boldMetrics(QFont())
{
    GetMetrics();
}

void cNCMetrics::GetMetrics()
{
    m_source = desktopMenuFont();
    m_style = QApplication::style();
    m_fonts[0] = m_source;
    m_fonts[kCaptionFont] = QFontDatabase::systemFont(QFontDatabase::TitleFont);
    m_fonts[kMenuFont] = m_source;
    m_fonts[kSmallFont] = smaller(m_source);
    m_fonts[kBoldMenuFont] = m_source;
    m_fonts[kBoldMenuFont].setBold(true);
    m_menuMetrics = QFontMetricsF(m_fonts[kMenuFont]);
    m_boldMetrics = QFontMetricsF(m_fonts[kBoldMenuFont]);

    const QStyle &style = *QApplication::style();
    m_captionHeight = style.pixelMetric(QStyle::PM_TitleBarHeight);
    m_captionWidth = style.pixelMetric(QStyle::PM_TitleBarButtonSize);
    const int aroundMenuBar =
        2 * (style.pixelMetric(QStyle::PM_MenuBarVMargin) + style.pixelMetric(QStyle::PM_MenuBarPanelWidth));
    m_menuHeight = menuItemHeight(textHeight()) + aroundMenuBar;
    m_menuWidth = m_captionWidth;
    m_scrollHeight = style.pixelMetric(QStyle::PM_ScrollBarExtent);
    m_scrollWidth = m_scrollHeight;
    m_smallCaptionHeight =
        style.pixelMetric(QStyle::PM_DockWidgetTitleMargin) * 2 + QFontMetrics(m_fonts[kSmallFont]).height();
    m_smallCaptionWidth = style.pixelMetric(QStyle::PM_SmallIconSize);
    m_borderWidth = style.pixelMetric(QStyle::PM_DefaultFrameWidth);
}

void cNCMetrics::ClearUp()
{
    for (QFont &font : m_fonts)
        font = QFont();
    m_style.clear();
}

bool cNCMetrics::isCurrent() const
{
    return m_style && m_style == QApplication::style() && m_source == desktopMenuFont();
}

const QFont &cNCMetrics::FontHandle(int number) const
{
    return m_fonts[number >= kCaptionFont && number <= kBoldMenuFont ? number : kMenuFont];
}

int cNCMetrics::textHeight() const
{
    return QFontMetrics(FontHandle(kMenuFont)).height();
}

int cNCMetrics::width(const QString &text, bool bold) const
{
    // Rounded up: a text that is a part of a pixel too wide would be cut.
    return int(std::ceil((bold ? m_boldMetrics : m_menuMetrics).horizontalAdvance(text)));
}

} // namespace norvane
