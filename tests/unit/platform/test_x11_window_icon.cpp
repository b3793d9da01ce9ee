#include "platform/x11/window_icon.h"

#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::x11;

namespace {

/// A list of square pictures; the pixels of each tell its side.
QVector<quint32> listOf(const QVector<quint32> &sides)
{
    QVector<quint32> list;
    for (const quint32 side : sides) {
        list << side << side;
        list += QVector<quint32>(qsizetype(side) * side, 0xff000000 | side);
    }
    return list;
}

} // namespace

TEST(X11WindowIcon, IsTheSmallestThatIsLargeEnoughElseTheLargest)
{
    const QVector<quint32> list = listOf({48, 16, 128, 22, 32});
    for (const auto &[wanted, expected] :
         {std::pair{16, 16}, {17, 22}, {32, 32}, {64, 128}, {256, 128}, {0, 16}}) {
        const IconImage image = pictureOf(list, wanted);
        EXPECT_EQ(image.width, expected);
        EXPECT_EQ(image.height, expected);
        ASSERT_EQ(image.pixels.size(), qsizetype(expected) * expected);
        EXPECT_EQ(image.pixels.last(), 0xff000000 | quint32(expected));
    }
    const IconImage wide = pictureOf({3, 1, 1, 2, 3}, 16);
    EXPECT_EQ(wide, (IconImage{3, 1, {1, 2, 3}}));
}

TEST(X11WindowIcon, OfAListWithoutSenseIsWhatStoodBeforeIt)
{
    const QVector<quint32> good = listOf({16});
    const QVector<QVector<quint32>> tails = {
        {}, {16}, {16, 16}, {16, 16, 1}, {0, 16, 1, 2}, {16, 0}, {0x10000, 0x10000, 1}, {0xffffffff, 2, 1}};
    for (const QVector<quint32> &tail : tails) {
        EXPECT_TRUE(pictureOf(tail, 32).isNull());
        EXPECT_EQ(pictureOf(good + tail, 32).width, 16);
    }
}
