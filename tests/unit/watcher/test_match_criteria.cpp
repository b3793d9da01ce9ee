#include "watcher/WatchSettings.h"
#include "watcher/clsWindows.h"
#include "watcher/match_criteria.h"

#include <gmock/gmock.h>

using namespace norvane;

namespace {

clsWindow windowOf(const QString &className, const QString &title, const QString &stripped,
                   const QString &location)
{
    clsWindow window;
    window.ClassName = className;
    window.WindowTitle = title;
    window.StrippedTitle = stripped;
    window.DocumentName = location;
    return window;
}

struct Row
{
    const char16_t *className;
    bool document;
    bool exact;
    const char16_t *kind;
    const char16_t *location;
    const char16_t *condition;
};

} // namespace

TEST(MatchCriteria, ConditionByKindOfWindow)
{
    const char16_t *partial = u"left(LocationName,6)=\"Page -\" or instr(1,\"HTTP://A/b\",URL)<>0";
    const Row rows[] = {
        {u"IEFrame", true, false, u"", u" HTTP://A/b ", partial},
        {u"IEFrame", true, true, u"", u" HTTP://A/b ", u"LocationName=\"Page - x\" or URL=\"HTTP://A/b\""},
        {u"Afx:400000:b:147e:6", true, false, u"", u"HTTP://A/b", partial},
        {u"CabinetWClass", true, true, u"File Folder", u"HTTP://A/b", partial},
        {u"ExploreWClass", true, true, u"Local Disk", u"HTTP://A/b", partial},
        {u"CabinetWClass", true, true, u"Folder", u"HTTP://A/b",
         u"WindowName=\"T|\" or FriendlyName=\"friendly\""},
        {u"ExploreWClass", true, true, u"File", u"HTTP://A/b",
         u"WindowName=\"T|\" or FriendlyName=\"friendly\""},
        {u"CabinetWClass", true, false, u"Folder", u"HTTP://A/b",
         u"WindowName=\"T|\" or FriendlyName=\"friendly\" or LCASE(URL)=\"http://a/b\""},
        {u"WordPadClass", false, true, u"", u"HTTP://A/b",
         u"WindowName=\"T|\" or FriendlyName=\"friendly\" or LCASE(URL)=\"http://a/b\""},
        {u"WordPadClass", false, false, u"", u"  ", u"WindowName=\"T|\" or FriendlyName=\"friendly\""},
    };
    for (const Row &row : rows) {
        WatchSettings settings;
        settings.ExactWindowName = row.exact;
        const clsWindow window = windowOf(QString::fromUtf16(row.className), u" T| "_qs, u"Page - x"_qs,
                                          QString::fromUtf16(row.location));
        const MatchFacts facts{row.document, QString::fromUtf16(row.kind), u"friendly"_qs};
        EXPECT_EQ(BuildMatchCriteria(window, facts, settings), QString::fromUtf16(row.condition))
            << QString::fromUtf16(row.className).toStdString();
        EXPECT_EQ(settings.PartialMatchLength, 6);
    }
}

TEST(MatchCriteria, SignificantLengthOfTheTitle)
{
    struct LengthRow
    {
        QString stripped;
        int length;
    };
    const LengthRow rows[] = {
        {u"Letter"_qs, 6}, {u"News: a - b"_qs, 9}, {u"News: a | b"_qs, 5},      {u"News a | b"_qs, 8},
        {QString(), 0},    {u"😀 - x"_qs, 4},       {QString(4000, u'x'), 4000},
    };
    for (const LengthRow &row : rows) {
        WatchSettings settings;
        const QString condition = BuildMatchCriteria(
            windowOf(u"IEFrame"_qs, row.stripped, row.stripped, u"u"_qs), {true, {}, {}}, settings);
        EXPECT_EQ(settings.PartialMatchLength, row.length);
        EXPECT_TRUE(condition.startsWith(u"left(LocationName,%1)=\""_qs.arg(row.length) +
                                         row.stripped.left(row.length) + u'"'));
    }
    WatchSettings settings;
    const QString tooLong(40000, u'x');
    EXPECT_EQ(
        BuildMatchCriteria(windowOf(u"IEFrame"_qs, tooLong, tooLong, u"u"_qs), {true, {}, {}}, settings),
        QString());
    EXPECT_EQ(settings.PartialMatchLength, 6) << "what it was";
}
