#pragma once

#include "controls/menu/menu_measures.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPointer>
#include <QStyle>

namespace norvane {

/// The desktop's fonts and measures of what stands around windows, as they were when they were last
/// read. All measures are in device-independent pixels.
class cNCMetrics : public MenuTextMeasure
{
public:
    /// The numbers of the fonts.
    enum Font {
        kCaptionFont = 1,
        kMenuFont = 2,
        kSmallFont = 3,
        kBoldMenuFont = 4,
    };

    cNCMetrics();

    /// Reads them.
    void GetMetrics();
    /// Forgets the fonts; the next GetMetrics reads them again.
    void ClearUp();
    /// False when the desktop's fonts or style are others by now, or nothing was read.
    bool isCurrent() const;

    /// The menu font for a number that is none.
    const QFont &FontHandle(int number) const;
    const QFont &BoldenedFontHandle() const { return FontHandle(kBoldMenuFont); }
    const QFont &SmallerFontHandle() const { return FontHandle(kSmallFont); }

    int CaptionHeight() const { return m_captionHeight; }
    int CaptionWIdth() const { return m_captionWidth; }          ///< of a button in a title bar
    int MenuHeight() const { return m_menuHeight; }              ///< of a menu bar
    int MenuWidth() const { return m_menuWidth; }                ///< of a button in a menu bar
    int ScrollHeight() const { return m_scrollHeight; }          ///< of a horizontal scroll bar
    int ScrollWidth() const { return m_scrollWidth; }            ///< of a vertical scroll bar
    int SMCaptionHeight() const { return m_smallCaptionHeight; } ///< of a tool window
    int SMCaptionWIdth() const { return m_smallCaptionWidth; }
    int BorderWidth() const { return m_borderWidth; }

    /// Of "yY" in the menu font.
    int textHeight() const;
    int width(const QString &text, bool bold) const override;

private:
    QFont m_fonts[kBoldMenuFont + 1];
    QFontMetricsF m_menuMetrics; ///< kept: thousands of texts are measured for one menu
    QFontMetricsF m_boldMetrics;
    QFont m_source; ///< the desktop's menu font that all this was read with
    QPointer<QStyle> m_style;
    int m_captionHeight = 0;
    int m_captionWidth = 0;
    int m_menuHeight = 0;
    int m_menuWidth = 0;
    int m_scrollHeight = 0;
    int m_scrollWidth = 0;
    int m_smallCaptionHeight = 0;
    int m_smallCaptionWidth = 0;
    int m_borderWidth = 0;
};

} // namespace norvane
