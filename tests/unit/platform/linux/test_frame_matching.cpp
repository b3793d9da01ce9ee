#include "platform/linux/frame_matching.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

const QRect kHere(10, 30, 800, 600);
const QRect kThere(500, 200, 700, 500);

AccessibleFrame frame(const char16_t *name, const QRect &extents, bool active = false)
{
    return {u":1.5"_s, u"/frame"_s, QString::fromUtf16(name), extents, active};
}

FrameMatch match(const QVector<AccessibleFrame> &frames, const QString &caption, bool foreground = false)
{
    return matchFrame(frames, caption, kHere, foreground);
}

} // namespace

TEST(FrameMatching, NameGoesBeforePlace)
{
    const FrameMatch found =
        match({frame(u"", kHere), frame(u"Other", kHere), frame(u"Page", kThere)}, u"Page"_s);
    EXPECT_EQ(found.index, 2);
    EXPECT_TRUE(found.sure);
}

TEST(FrameMatching, PlaceThenActivityDecideAmongEqualNames)
{
    const QString caption = u"New Tab"_s;
    EXPECT_EQ(match({frame(u"New Tab", kThere), frame(u"New Tab", kHere)}, caption).index, 1);
    const QVector<AccessibleFrame> twins{frame(u"New Tab", kHere), frame(u"New Tab", kHere, true)};
    EXPECT_EQ(match(twins, caption, true).index, 1);
    EXPECT_EQ(match(twins, caption, false).index, -1);
}

TEST(FrameMatching, AFrameOfAnotherNameIsTakenByPlaceButNotKept)
{
    // The title has just changed, and the frame's name has not yet.
    const FrameMatch found =
        match({frame(u"Old", kHere.translated(2, 20)), frame(u"Other", kThere)}, u"New"_s);
    EXPECT_EQ(found.index, 0);
    EXPECT_FALSE(found.sure);
    EXPECT_EQ(match({frame(u"Old", kThere), frame(u"Other", kThere)}, u"New"_s).index, -1);
    EXPECT_EQ(match({frame(u"Old", kThere)}, u"New"_s).index, 0);
    EXPECT_EQ(match({}, u"New"_s).index, -1);
}

TEST(FrameMatching, CaptionsAreCut)
{
    const QString page = QString(253, u'x') + QString::fromUcs4(U"\U0001F600") + u"more"_s;
    QVector<AccessibleFrame> frames{frame(u"Other", kHere), frame(u"", kThere)};
    frames[1].name = page;
    EXPECT_EQ(match(frames, page.left(253)).index, 1);
    frames[1].name = u"Page"_s + QChar(0) + u"rest"_s;
    EXPECT_EQ(match(frames, u"Page"_s).index, 1);
}
