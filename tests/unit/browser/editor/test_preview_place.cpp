#include "browser/editor/preview_place.h"
#include "fakes/MemorySettings.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

TEST(PreviewPlace, isKeptUnlessItIsTooSmallToBeTakenHoldOf)
{
    fakes::MemorySettings settings;
    EXPECT_EQ(readPreviewPlace(settings), QRectF(0, 0, 3000, 2000));
    for (const QRectF &place : {QRectF(-15, 30, 1000, 500), QRectF(15.4, 7000, 9000, 501)}) {
        savePreviewPlace(settings, place);
        EXPECT_EQ(readPreviewPlace(settings).toRect(), place.toRect());
    }
    savePreviewPlace(settings, QRectF(60, 75, 999, 499));
    EXPECT_EQ(readPreviewPlace(settings), QRectF(60, 75, 3000, 2000));
    savePreviewPlace(settings, QRectF(60, 75, 999, 600));
    EXPECT_EQ(readPreviewPlace(settings), QRectF(60, 75, 3000, 600));
}

TEST(PreviewPlace, followsTheBrowsersEdgesFromWithin)
{
    const struct
    {
        const char *what;
        QRectF place;
        QRectF expected;
    } cases[] = {
        {"inside", {100, 100, 3000, 2000}, {100, 100, 3000, 2000}},
        {"touching both", {6000, 4000, 3000, 2000}, {6000, 4000, 3000, 2000}},
        {"beyond both", {6001, 4500, 3000, 2000}, {6000, 4000, 3000, 2000}},
        {"at top and left", {9, 9, 9500, 6500}, {9, 9, 9500, 6500}},
        {"just off them", {10, 10, 8995, 5995}, {5, 5, 8995, 5995}},
        {"larger than the room", {10, 10, 9500, 6500}, {0, 0, 9500, 6500}},
        {"far beyond", {50000, 9, 3000, 7000}, {6000, 9, 3000, 7000}},
    };
    for (const auto &each : cases)
        EXPECT_EQ(keepPreviewInside(each.place, 9000, 6000), each.expected) << each.what;
}

} // namespace
