#include "fakes/FakeShell.h"
#include "fakes/FakeWindowSystem.h"
#include "platform/RuntimeError.h"
#include "watcher/classify_location.h"
#include "watcher/open_location.h"
#include "watcher/placement.h"
#include "watcher/titles.h"
#include "watcher/wildcard.h"

#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::fakes;

TEST(Wildcard, Matches)
{
    struct Row
    {
        const char16_t *text;
        const char16_t *pattern;
        bool matches;
    };
    const Row rows[] = {
        {u"", u"", true},
        {u"", u"*", true},
        {u"COMBOBOX", u"COMBOBOX", true},
        {u"ab", u"a?", true},
        {u"abcbd", u"a*b?", true},
        {u"532770", u"#32770", true},
        {u"#32770", u"#32770", false},
        {u"[", u"[[]", true},
        {u"*", u"[*]", true},
        {u"-", u"[a-]", true},
        {u"M", u"[!a-z]", true},
        {u"m", u"[!a-z]", false},
        {u"ab", u"a[]b", true},
        {u"AFX:400000:808:147E:6:10:0", u"AFX:400000:808:14*", true},
    };
    for (const Row &row : rows)
        EXPECT_EQ(matchesWildcard(QStringView(row.text), QStringView(row.pattern)), row.matches)
            << QString::fromUtf16(row.text).toStdString() << " like "
            << QString::fromUtf16(row.pattern).toStdString();
}

TEST(Wildcard, OddPatterns)
{
    const QString text(4000, u'a');
    const QString pattern = QString(200, u'*').replace(u'*', QStringLiteral("*a")) + u'b';
    EXPECT_FALSE(matchesWildcard(text, pattern));
    EXPECT_THROW(matchesWildcard(u"a", u"[a"), RuntimeError) << "a list without an end";
}

TEST(Titles, StripTitleSuffixRemovesAllOccurrences)
{
    EXPECT_EQ(StripTitleSuffix(u"Letter - Microsoft Word"_qs), u"Letter"_qs);
    EXPECT_EQ(StripTitleSuffix(u"A - Microsoft Word B - Microsoft Word"_qs), u"A B"_qs);
    EXPECT_EQ(StripTitleSuffix(u"see https://a and http://b - Netscape"_qs), u"see a and b"_qs);
    EXPECT_EQ(StripTitleSuffix(u"Letter - microsoft word"_qs), u"Letter - microsoft word"_qs);
    EXPECT_EQ(StripTitleSuffix(u"http://"_qs), QString());
}

TEST(Titles, TheDesktopsSuffixComesOffAfterThatButNeverTheWholeTitle)
{
    FakeWindowSystem windows;
    windows.programSuffixes = {u" — Mozilla Firefox"_qs, u"Mozilla Firefox"_qs};
    EXPECT_EQ(strippedTitle(windows, u"http://page — Mozilla Firefox"_qs), u"page"_qs);
    EXPECT_EQ(strippedTitle(windows, u"Mozilla Firefox"_qs), u"Mozilla Firefox"_qs);
}

TEST(Locations, OpenRaisesWhatTheShellAnswers)
{
    const struct
    {
        QVector<int> results;
        int number;
        const char16_t *message;
    } rows[] = {
        {{0, 8}, 7, u"Out of memory"},
        {{5}, 75, u"Path/file access error"},
        {{31}, 0, u"No application is associated with this file type."},
        {{1, 7, 25}, 0, u"An error occurred occurred whilst trying to open or print the selected file."},
    };
    FakeShell shell;
    const QString location = u"/a"_qs;
    for (const auto &row : rows) {
        for (const int result : row.results) {
            shell.openResults[location] = result;
            try {
                OpenLocation(shell, location);
                ADD_FAILURE() << result;
            } catch (const RuntimeError &error) {
                EXPECT_EQ(error.number(), row.number) << result;
                EXPECT_EQ(error.description(), QString::fromUtf16(row.message));
                EXPECT_EQ(error.source(), u"Norvane.GShell"_qs);
            }
        }
    }
    shell.openResults[location] = Shell::kOpened;
    EXPECT_TRUE(OpenLocation(shell, location));

    shell.opened.clear();
    EXPECT_FALSE(OpenLocation(shell, QString()));
    EXPECT_TRUE(shell.opened.isEmpty());
}

TEST(Placement, Corners)
{
    struct Row
    {
        int mode;
        QSize target;
        QSize note;
        QPoint place;
    };
    const Row rows[] = {
        {1, {800, 600}, {340, 253}, {230, 174}}, // 173.5 goes to the even 174
        {1, {801, 605}, {340, 252}, {230, 176}}, // 230.5 and 176.5 to the even 230 and 176
        {1, {300, 200}, {340, 253}, {0, 0}},     {2, {800, 600}, {340, 253}, {0, 0}},
        {3, {800, 600}, {340, 253}, {453, 0}},   {3, {346, 600}, {340, 253}, {0, 0}},
        {4, {800, 600}, {340, 253}, {0, 320}},   {4, {800, 279}, {340, 253}, {0, 0}},
        {5, {800, 600}, {340, 253}, {453, 320}}, {5, {200, 100}, {340, 253}, {0, 0}},
        {9, {800, 600}, {340, 253}, {0, 0}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(cornerPlace(row.mode, row.target, row.note), row.place)
            << row.mode << " in " << row.target.width() << "x" << row.target.height();
}
