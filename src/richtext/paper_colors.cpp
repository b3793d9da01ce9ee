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
    QPalette palette = desktop;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Base, paper);
        palette.setColor(group, QPalette::Text, group == QPalette::Disabled ? faint : ink);
        palette.setColor(group, QPalette::PlaceholderText, faint);
    }
    return palette;
}

} // namespace norvane
