#include "platform/linux/frame_matching.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

const QRect kHere(10, 30, 800, 600);
const QRect kThere(500, 200, 700, 500);

AccessibleFrame frame(const char16_t *name, const QRect &extents, bool active = false)
{
    return {QStringLiteral(":1.5"), QStringLiteral("/frame"), QString::fromUtf16(name), extents, active};
}

FrameMatch match(const QVector<AccessibleFrame> &frames, const QString &caption, bool foreground = false)
{
    return matchFrame(frames, caption, kHere, foreground);
}

} // namespace

TEST(FrameMatching, NameGoesBeforePlace)
{
    const FrameMatch found =
        match({frame(u"", kHere), frame(u"Other", kHere), frame(u"Page", kThere)}, QStringLiteral("Page"));
    EXPECT_EQ(found.index, 2);
    EXPECT_TRUE(found.sure);
}

TEST(FrameMatching, PlaceThenActivityDecideAmongEqualNames)
{
    const QString caption = QStringLiteral("New Tab");
    EXPECT_EQ(match({frame(u"New Tab", kThere), frame(u"New Tab", kHere)}, caption).index, 1);
    const QVector<AccessibleFrame> twins{frame(u"New Tab", kHere), frame(u"New Tab", kHere, true)};
    EXPECT_EQ(match(twins, caption, true).index, 1);
    EXPECT_EQ(match(twins, caption, false).index, -1);
}

TEST(FrameMatching, AFrameOfAnotherNameIsTakenByPlaceButNotKept)
{
    // The title has just changed, and the frame's name has not yet.
    const FrameMatch found =
        match({frame(u"Old", kHere.translated(2, 20)), frame(u"Other", kThere)}, QStringLiteral("New"));
    EXPECT_EQ(found.index, 0);
    EXPECT_FALSE(found.sure);
    EXPECT_EQ(match({frame(u"Old", kThere), frame(u"Other", kThere)}, QStringLiteral("New")).index, -1);
    EXPECT_EQ(match({frame(u"Old", kThere)}, QStringLiteral("New")).index, 0);
    EXPECT_EQ(match({}, QStringLiteral("New")).index, -1);
}

TEST(FrameMatching, CaptionsAreCut)
{
    const QString page = QString(253, u'x') + QString::fromUcs4(U"\U0001F600") + QStringLiteral("more");
    QVector<AccessibleFrame> frames{frame(u"Other", kHere), frame(u"", kThere)};
    frames[1].name = page;
    EXPECT_EQ(match(frames, page.left(253)).index, 1);
    frames[1].name = QStringLiteral("Page") + QChar(0) + QStringLiteral("rest");
    EXPECT_EQ(match(frames, QStringLiteral("Page")).index, 1);
}
