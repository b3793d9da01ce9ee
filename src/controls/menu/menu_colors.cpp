#include "controls/menu/menu_colors.h"

#include <algorithm>
#include <cmath>

namespace norvane {

namespace {

constexpr double kFull = 255.0;
constexpr int kBandsOfGradient = 255;

struct HueLuminanceSaturation
{
    double hue = 0;        ///< sixths of the circle
    double luminance = 0;  ///< 0 to 1
    double saturation = 0; ///< 0 to 1
};

HueLuminanceSaturation toHls(MenuColor color)
{
    const double red = color.red / kFull;
    const double green = color.green / kFull;
    const double blue = color.blue / kFull;
    const double high = std::max({red, green, blue});
    const double low = std::min({red, green, blue});
    const double range = high - low;
    HueLuminanceSaturation hls;
    hls.luminance = (high + low) / 2;
    if (range <= 0)
        return hls;
    hls.saturation = range / (hls.luminance <= 0.5 ? high + low : 2 - high - low);
    if (high == red)
        hls.hue = (green - blue) / range;
    else if (high == green)
        hls.hue = 2 + (blue - red) / range;
    else
        hls.hue = 4 + (red - green) / range;
    if (hls.hue < 0)
        hls.hue += 6;
    return hls;
}

MenuColor toColor(const HueLuminanceSaturation &hls)
{
    const double range = (1 - std::abs(2 * hls.luminance - 1)) * hls.saturation;
    const double low = hls.luminance - range / 2;
    const auto channel = [&](double sixths) {
        // The distance on the circle from where this channel is at its highest.
        const double turn = std::fmod(hls.hue - sixths + 9, 6) - 3;
        return int(std::lround((low + range * std::clamp(2 - std::abs(turn), 0.0, 1.0)) * kFull));
    };
    return {channel(0), channel(2), channel(4)};
}

int between(int from, int to, double part)
{
    return int(std::lround(from + (to - from) * part));
}

double linear(int channel)
{
    const double value = channel / kFull;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double brightness(MenuColor color)
{
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

} // namespace

MenuColor blend(MenuColor from, MenuColor to, double part)
{
    return {between(from.red, to.red, part), between(from.green, to.green, part),
            between(from.blue, to.blue, part)};
}

QVector<GradientBand> gradientBands(int width, MenuColor from, MenuColor to)
{
    QVector<GradientBand> bands;
    if (width <= 0)
        return bands;
    const int bandWidth = std::max(1, width / kBandsOfGradient);
    const int count = (width + bandWidth - 1) / bandWidth;
    bands.reserve(count);
    for (int i = 0; i < count; ++i) {
        const int x = i * bandWidth;
        const double part = count == 1 ? 0.0 : double(i) / (count - 1);
        bands.append({x, std::min(bandWidth, width - x), blend(from, to, part)});
    }
    return bands;
}

MenuColor LighterShade::of(MenuColor face)
{
    constexpr double kWhite = 0.99;
    if (m_face != face) {
        HueLuminanceSaturation hls = toHls(face);
        hls.luminance = hls.luminance >= kWhite ? hls.luminance * 0.8 : std::min(1.0, hls.luminance * 1.25);
        m_shade = toColor(hls);
        m_face = face;
    }
    return m_shade;
}

double contrast(MenuColor one, MenuColor other)
{
    const double first = brightness(one);
    const double second = brightness(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace norvane
