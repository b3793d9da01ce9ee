#include "richtext/paper_colors.h"

#include <cmath>

namespace norvane {
namespace {

/// Brightness as the eye sees it, 0 to 1.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// @param share of the other colour, 0 to 1
QColor mixed(const QColor &color, const QColor &other, float share)
{
    const auto part = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(part(color.redF(), other.redF()), part(color.greenF(), other.greenF()),
                            part(color.blueF(), other.blueF()));
}

} // namespace

QColor colorFromBlueGreenRed(quint32 color)
{
    return QColor(int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF));
}

QColor inkOn(const QColor &paper)
{
    // At this brightness black and white stand out equally well.
    constexpr double kMiddle = 0.179;
    return luminance(paper) > kMiddle ? QColor(Qt::black) : QColor(Qt::white);
}

QPalette paperPalette(const QPalette &desktop, const QColor &paper)
{
    const QColor ink = inkOn(paper);
    QColor faint = ink;
    faint.setAlphaF(0.5F);
    // A button's edges are shades of its colour: on black there would be none.
    QPalette palette(mixed(paper, ink, 0.10F), paper);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const QPalette::ColorRole role :
             {QPalette::Highlight, QPalette::HighlightedText, QPalette::Link, QPalette::LinkVisited,
              QPalette::ToolTipBase, QPalette::ToolTipText})
            palette.setColor(group, role, desktop.color(group, role));
        palette.setColor(group, QPalette::Base, paper);
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
            palette.setColor(group, role, group == QPalette::Disabled ? faint : ink);
        palette.setColor(group, QPalette::PlaceholderText, faint);
    }
    return palette;
}

} // namespace norvane
