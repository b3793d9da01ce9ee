#pragma once

#include <QVector>
#include <optional>

namespace norvane {

/// A colour of which only the three channels are known, 0 to 255 each.
struct MenuColor
{
    int red = 0;
    int green = 0;
    int blue = 0;

    bool operator==(const MenuColor &) const = default;
};

/// Fewer bits per pixel than this, and gradients are solid fills.
inline constexpr int kBitsForGradient = 9;

/// A solid stripe of a horizontal gradient; x and width in pixels.
struct GradientBand
{
    int x = 0;
    int width = 0;
    MenuColor color;

    bool operator==(const GradientBand &) const = default;
};

/// The stripes from the left edge, x = 0, to @p width: each width / 255 pixels wide, at least one, the
/// last one cut. The first has the colour @p from, the last @p to. Empty without width.
QVector<GradientBand> gradientBands(int width, MenuColor from, MenuColor to);

/// The variant of a face colour that stands out from it: lighter, or darker where it is white already.
class LighterShade
{
public:
    MenuColor of(MenuColor face);

private:
    std::optional<MenuColor> m_face;
    MenuColor m_shade;
};

/// How well one colour reads on another: from 1, not at all, to 21, black on white.
double contrast(MenuColor one, MenuColor other);

/// The gradient's colour at a part of its way, 0 to 1.
MenuColor blend(MenuColor from, MenuColor to, double part);

} // namespace norvane
