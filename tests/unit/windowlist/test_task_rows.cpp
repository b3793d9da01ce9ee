#include "unit/watcher/Desk.h"
#include "windowlist/list/TaskRows.h"

#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::tests;
using namespace Qt::StringLiterals;

namespace {

class Rows : public testing::Test, protected Desk
{
protected:
    /// "title|location", one for each row.
    QStringList texts() const
    {
        QStringList result;
        for (int row = 0; row < rows.rowCount(); ++row)
            result.append(rows.index(row, 0).data().toString() + u'|' + rows.index(row, 1).data().toString());
        return result;
    }
    QStringList refreshed()
    {
        rows.refresh();
        return texts();
    }

    TaskRows rows{windows, tasks, location};
};

} // namespace

TEST_F(Rows, FollowTheTableAndKeepTheirPlaces)
{
    windows.programSuffixes = {u" - Thunar"_s};
    const WindowHandle page =
        openPage(u"Garden - Microsoft Internet Explorer"_s, u"https://garden.example/"_s);
    const WindowHandle docs = openFolder(u"docs - Thunar"_s, u"/home/u/docs/"_s);
    const WindowHandle own = openDocument(u"Window List"_s, u"/usr/bin/norvane"_s);
    rows.setOwnWindow(own);
    EXPECT_EQ(refreshed(), QStringList({u"docs|/home/u/docs/"_s, u"Garden|https://garden.example/"_s}));
    const QModelIndex first = rows.index(0, 0);
    EXPECT_EQ(first.data(TaskRows::kKeyRole).toString(), u'h' + QString::number(docs, 16));
    EXPECT_EQ(rows.handleAt(0), docs);
    EXPECT_EQ(rows.handleAt(2), kNoWindow);

    const QPersistentModelIndex kept(rows.index(1, 0));
    goTo(page, u"Weeds - Microsoft Internet Explorer"_s, u"https://garden.example/weeds"_s);
    openDocument(u"letter.txt"_s, u"/usr/bin/mousepad"_s);
    EXPECT_EQ(refreshed(), QStringList({u"docs|/home/u/docs/"_s, u"Weeds|https://garden.example/weeds"_s,
                                        u"letter.txt|/usr/bin/mousepad"_s}));
    windows.destroy(docs);
    EXPECT_EQ(refreshed().size(), 2);
    EXPECT_EQ(rows.rowOf(docs), -1);
    EXPECT_EQ(kept.row(), 0);
    EXPECT_EQ(rows.rowOf(page), 0);
    windows.setVisible(page, false);
    EXPECT_EQ(refreshed(), QStringList({u"letter.txt|/usr/bin/mousepad"_s})) << "it does not count any more";
}

TEST_F(Rows, AskNothingWhileNothingChanges)
{
    const WindowHandle letter = openDocument(u"letter.txt"_s, u"/usr/bin/mousepad"_s);
    const WindowHandle page = openPage(u"Garden"_s, u"https://garden.example/"_s);
    rows.refresh();
    QSignalSpy changes(&rows, &QAbstractItemModel::dataChanged);
    const auto asked = [&] { return windows.roundTrips + processes.queries + shellWindows.queries; };
    int before = asked();
    rows.refresh();
    EXPECT_EQ(asked(), before);
    windows.change(); // the windows were only stacked anew
    rows.refresh();
    EXPECT_EQ(processes.queries + shellWindows.queries + windows.roundTrips, before);

    // The location is that of the title: one that changes under the same title is not looked at.
    shellWindows.setLocation(page, u"https://garden.example/#beds"_s);
    rows.refresh();
    EXPECT_EQ(texts(), QStringList({u"Garden|https://garden.example/"_s, u"letter.txt|/usr/bin/mousepad"_s}));
    EXPECT_EQ(changes.count(), 0);
    windows.setCaption(letter, u"letter.txt *"_s);
    rows.refresh();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(changes.first().first().toModelIndex().row(), 1);
}

TEST_F(Rows, TakeALocationWhenItIsFoundOut)
{
    const WindowHandle page = openPage(u"Garden"_s, u"https://garden.example/"_s);
    tasks.Refresh();
    shellWindows.setUnknown(page);
    EXPECT_EQ(refreshed(), QStringList(u"Garden|"_s));
    shellWindows.answers[page] = {ShellWindows::State::Known, u"https://garden.example/beds"_s};
    EXPECT_EQ(refreshed(), QStringList(u"Garden|https://garden.example/beds"_s))
        << "though no window has changed";
}

TEST_F(Rows, AreSortedOnceByAColumnAndTheOtherWayRoundTheSecondTime)
{
    for (const QString &name : {u"cherry"_s, u"Apple"_s, u"banana"_s}) // the last is in front
        openDocument(name, u"/usr/bin/"_s + name.back().toLower());
    rows.refresh();
    EXPECT_EQ(texts().first(), u"banana|/usr/bin/a"_s);
    const QPersistentModelIndex apple(rows.index(1, 0));

    rows.sortBy(TaskRows::kWindow);
    EXPECT_EQ(texts(), QStringList({u"Apple|/usr/bin/e"_s, u"banana|/usr/bin/a"_s, u"cherry|/usr/bin/y"_s}));
    EXPECT_EQ(apple.row(), 0);
    EXPECT_EQ(rows.rowOf(rows.handleAt(2)), 2);
    openDocument(u"aubergine"_s, u"/usr/bin/aubergine"_s);
    EXPECT_EQ(refreshed().last(), u"aubergine|/usr/bin/aubergine"_s);
    rows.sortBy(TaskRows::kWindow);
    EXPECT_EQ(texts().first(), u"cherry|/usr/bin/y"_s);
    rows.sortBy(TaskRows::kLocation);
    EXPECT_EQ(texts().first(), u"banana|/usr/bin/a"_s);
    EXPECT_EQ(apple.data().toString(), u"Apple"_s);
}

TEST_F(Rows, TakeAnIconThatComesLater)
{
    const WindowHandle letter = openDocument(u"letter.txt"_s, u"/usr/bin/mousepad"_s);
    rows.refresh();
    EXPECT_EQ(rows.index(0, 0).data(TaskRows::kLargeIconRole).value<IconHandle>(), kDefaultLargeIcon);
    QSignalSpy changes(&rows, &QAbstractItemModel::dataChanged);
    windows.at(letter).smallIcon = 7;
    windows.setCaption(letter, u"letter.txt"_s + u" *"_s);
    rows.refresh();
    EXPECT_EQ(rows.index(0, 0).data(TaskRows::kSmallIconRole).value<IconHandle>(), 7u);
    EXPECT_TRUE(changes.last().at(2).value<QList<int>>().contains(Qt::DecorationRole));
}
