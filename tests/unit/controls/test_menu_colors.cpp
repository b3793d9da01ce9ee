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

} // namespace
