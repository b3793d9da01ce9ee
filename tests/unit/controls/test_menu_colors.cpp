#include "controls/menu/menu_colors.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

constexpr MenuColor kBlack{0, 0, 0};
constexpr MenuColor kWhite{255, 255, 255};

TEST(MenuGradient, IsMadeOfSolidBands)
{
    EXPECT_TRUE(gradientBands(0, kBlack, kWhite).isEmpty());
    EXPECT_TRUE(gradientBands(-5, kBlack, kWhite).isEmpty());
    EXPECT_EQ(gradientBands(1, kBlack, kWhite), (QVector<GradientBand>{{0, 1, kBlack}}));
    EXPECT_EQ(gradientBands(3, {0, 10, 200}, {100, 10, 0}),
              (QVector<GradientBand>{{0, 1, {0, 10, 200}}, {1, 1, {50, 10, 100}}, {2, 1, {100, 10, 0}}}));
    for (const auto &[width, bandWidth, count] : {std::tuple{254, 1, 254},
                                                  {255, 1, 255},
                                                  {509, 1, 509},
                                                  {510, 2, 255},
                                                  {511, 2, 256},
                                                  {1000, 3, 334}}) {
        const QVector<GradientBand> bands = gradientBands(width, kBlack, kWhite);
        ASSERT_EQ(bands.size(), count);
        EXPECT_EQ(bands.constFirst().width, bandWidth);
        EXPECT_EQ(bands.constFirst().color, kBlack);
        EXPECT_EQ(bands.constLast().color, kWhite);
        int x = 0;
        for (const GradientBand &band : bands) {
            EXPECT_EQ(band.x, x);
            x += band.width;
        }
        EXPECT_EQ(x, width);
    }
}

TEST(MenuShade, IsLighterUnlessTheFaceIsWhite)
{
    LighterShade shade;
    EXPECT_EQ(shade.of(kWhite), (MenuColor{204, 204, 204}));
    EXPECT_EQ(shade.of({253, 253, 253}), (MenuColor{202, 202, 202}));
    EXPECT_EQ(shade.of({252, 252, 252}), kWhite) << "1.25 times is cut";
    EXPECT_EQ(shade.of({100, 100, 100}), (MenuColor{125, 125, 125}));
    EXPECT_EQ(shade.of(kBlack), kBlack);
    // Hue and saturation stay: luminance 0.4 becomes 0.5.
    EXPECT_EQ(shade.of({204, 0, 0}), (MenuColor{255, 0, 0}));
    EXPECT_EQ(shade.of({0, 204, 204}), (MenuColor{0, 255, 255}));
    EXPECT_EQ(shade.of({204, 0, 0}), (MenuColor{255, 0, 0})) << "the last one is remembered with its face";
}

} // namespace
