#include "shell/Twips.h"

#include "shell/numeric_prefix.h"

#include <algorithm>

namespace norvane {

namespace {

/// No window is larger or farther away: window systems count in 16 bits.
constexpr double kFarthestPixel = 32767.0;

int pixels(double twips, double perPixel)
{
    return static_cast<int>(roundHalfEven(std::clamp(twips / perPixel, -kFarthestPixel, kFarthestPixel)));
}

} // namespace

Twips::Twips(double dpiX, double dpiY) : m_perPixelX(1440.0 / dpiX), m_perPixelY(1440.0 / dpiY) {}

QRect Twips::toPixels(const QRectF &twips) const
{
    return {pixels(twips.x(), m_perPixelX), pixels(twips.y(), m_perPixelY),
            pixels(twips.width(), m_perPixelX), pixels(twips.height(), m_perPixelY)};
}

QRectF Twips::fromPixels(const QRect &pixels) const
{
    return {pixels.x() * m_perPixelX, pixels.y() * m_perPixelY, pixels.width() * m_perPixelX,
            pixels.height() * m_perPixelY};
}

} // namespace norvane
