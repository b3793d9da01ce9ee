#pragma once

#include <QRect>
#include <QRectF>

namespace norvane {

/// The one place where twips (1/1440 inch) and logical pixels are converted.
class Twips
{
public:
    /// @param dpiX, dpiY logical dots per inch of the primary screen
    explicit Twips(double dpiX = 96.0, double dpiY = 96.0);

    double perPixelX() const { return m_perPixelX; }
    double perPixelY() const { return m_perPixelY; }

    /// Nearest pixels, halves to even; none beyond 32767 in either direction.
    QRect toPixels(const QRectF &twips) const;
    /// Exact: stored positions are single precision.
    QRectF fromPixels(const QRect &pixels) const;

private:
    double m_perPixelX;
    double m_perPixelY;
};

} // namespace norvane
