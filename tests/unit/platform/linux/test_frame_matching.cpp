#include "platform/linux/frame_matching.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

const QRect kHere(10, 30, 800, 600); ///< of the window that is looked for
const QRect kThere(500, 200, 700, 500);

AccessibleFrame frame(const QString &name, const QRect &extents, bool active = false)
{
    return {u":1.5"_qs, u"/frame"_qs, name, extents, active};
}

} // namespace

TEST(FrameMatching, NameGoesBeforePlaceAndPlaceBeforeActivity)
{
    const QString longName = QString(253, u'x') + u"\U0001F600"_qs;
    const AccessibleFrame old = frame(u"Old"_qs, kHere.translated(2, 20));
    const AccessibleFrame other = frame(u"Other"_qs, kThere);
    const struct
    {
        const char *about;
        QVector<AccessibleFrame> frames;
        QString caption;
        bool foreground;
        int index;
        bool sure;
    } rows[] = {
        {"name",
         {frame({}, kHere), frame(u"Other"_qs, kHere), frame(u"Page"_qs, kThere)},
         u"Page"_qs,
         false,
         2,
         true},
        {"place", {frame(u"Tab"_qs, kThere), frame(u"Tab"_qs, kHere)}, u"Tab"_qs, false, 1, true},
        {"activity", {frame(u"Tab"_qs, kHere), frame(u"Tab"_qs, kHere, true)}, u"Tab"_qs, true, 1, true},
        {"twins", {frame(u"Tab"_qs, kHere), frame(u"Tab"_qs, kHere, true)}, u"Tab"_qs, false, -1, false},
        // The title has just changed, and the frame's name has not yet.
        {"place alone", {old, other}, u"New"_qs, false, 0, false},
        {"nothing fits", {frame(u"Old"_qs, kThere), other}, u"New"_qs, false, -1, false},
        {"the only one", {frame(u"Old"_qs, kThere)}, u"New"_qs, false, 0, false},
        {"none", {}, u"New"_qs, false, -1, false},
        // Captions are cut at 254 units, with no half character, and at NUL.
        {"cut", {old, frame(longName + u"more"_qs, kThere)}, longName.left(253), false, 1, true},
        {"NUL", {old, frame(u"Page"_qs + QChar(0) + u"rest"_qs, kThere)}, u"Page"_qs, false, 1, true},
    };
    for (const auto &row : rows) {
        const FrameMatch found = matchFrame(row.frames, row.caption, kHere, row.foreground);
        EXPECT_EQ(found.index, row.index) << row.about;
        EXPECT_EQ(found.sure, row.sure) << row.about;
    }
}
