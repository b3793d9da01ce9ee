#include "shell/Twips.h"

#include <gtest/gtest.h>

using namespace norvane;

TEST(Twips, ScaleEachDirectionByItsOwnDpi)
{
    EXPECT_EQ(Twips(96, 96).toPixels(QRectF(0, 0, 5100, 3800)), QRect(0, 0, 340, 253));
    const Twips twips(144, 72);
    EXPECT_EQ(twips.toPixels(QRectF(1440, 1440, 720, 720)), QRect(144, 72, 72, 36));
    EXPECT_EQ(twips.fromPixels(QRect(144, 72, 72, 36)), QRectF(1440, 1440, 720, 720));
    // A stored number that no window can have is the farthest place.
    EXPECT_EQ(Twips().toPixels(QRectF(1e300, -1e300, 1e10, 2147483647.0)),
              QRect(32767, -32767, 32767, 32767));
}
