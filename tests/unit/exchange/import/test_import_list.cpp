#include "TwoDatabases.h"
#include "exchange/import/ImportList.h"

#include <QAbstractItemModelTester>

using namespace norvane;
using namespace norvane::test;

namespace {

QDateTime day(int number)
{
    return {QDate(2024, 1, number), QTime(8, 30)};
}

class ListOfNotes : public testing::Test
{
protected:
    ListOfNotes()
    {
        // Days that sort otherwise as texts.
        list.setRows({{1, u"b"_s, u"Work"_s, u"u:2"_s, day(9), day(1)},
                      {2, u"A"_s, {}, {}, day(10), day(1)},
                      {3, u"c"_s, u"Home"_s, u"u:1"_s, {}, day(2)}});
    }
    QVector<int> sorted(int column, Qt::SortOrder order = Qt::AscendingOrder)
    {
        list.sort(column, order);
        list.setAllChecked(true);
        return list.checkedIDs();
    }

    ImportList list;
    QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ListOfNotes, SortsByEachColumnAndKeepsChecksAndPlaces)
{
    list.toggle(2);
    const QPersistentModelIndex third = list.index(2, 0);
    list.sort(ImportList::kName, Qt::DescendingOrder);
    EXPECT_EQ(third.row(), 0);
    EXPECT_EQ(list.checkedIDs(), QVector<int>{3});

    EXPECT_EQ(sorted(ImportList::kName), QVector<int>({2, 1, 3})) << "case does not count";
    EXPECT_EQ(sorted(ImportList::kCategory), QVector<int>({2, 3, 1}));
    EXPECT_EQ(sorted(ImportList::kURL), QVector<int>({2, 3, 1}));
    EXPECT_EQ(sorted(ImportList::kCreated), QVector<int>({3, 1, 2}));
    EXPECT_EQ(sorted(ImportList::kUpdated, Qt::DescendingOrder), QVector<int>({3, 1, 2}))
        << "equal ones stay in order";
}

TEST_F(ListOfNotes, ChecksAllNoneSomeAndTheOthers)
{
    int changes = 0;
    QObject::connect(&list, &ImportList::checksChanged, &list, [&] { ++changes; });
    list.setAllChecked(true);
    list.toggle(1);
    EXPECT_TRUE(list.setData(list.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(list.checkedIDs(), QVector<int>{3});
    list.invert();
    EXPECT_EQ(list.checkedIDs(), QVector<int>({1, 2}));
    EXPECT_EQ(list.checkedCount(), 2);
    list.setAllChecked(false);
    EXPECT_EQ(list.checkedCount(), 0);
    EXPECT_EQ(changes, 5);
}

TEST_F(ListOfNotes, ShowsWhatTheSourceHolds)
{
    TwoDatabases both;
    const int work = [&] {
        dao::Recordset &categories = *both.other.store.CategorySet();
        categories.addNew();
        categories.setField(u"Name"_s, u"Work"_s);
        categories.update();
        categories.requery();
        return categories.field(u"ID"_s).toInt();
    }();
    both.addOther(u"in work"_s, u"u:1"_s);
    both.addOther(u"astray"_s, {});
    const auto rows = both.other.notes(u"true"_s);
    for (const auto &[category, date] : {QPair(work, QVariant(day(3))), QPair(work + 7, QVariant())}) {
        rows->edit();
        rows->setField(u"CAT_ID"_s, category);
        rows->setField(u"DateCreated"_s, date);
        rows->update();
        rows->moveNext();
    }
    both.other.store.close();
    list.setRows(ImportSource(*both.engine, both.other.store.DatabaseFile, {}).rows());
    QStringList texts;
    for (int column = 0; column < 2 * ImportList::kColumns; ++column)
        texts.append(list.index(column / 5, column % 5).data().toString());
    const QLocale locale;
    const QString date = locale.toString(day(3).date(), QLocale::ShortFormat) + u" - "_s +
                         locale.toString(day(3).time(), QLocale::ShortFormat);
    EXPECT_EQ(
        texts,
        QStringList(
            {u"astray"_s, {}, {}, u" - "_s, u" - "_s, u"in work"_s, u"Work"_s, u"u:1"_s, date, u" - "_s}));
}

} // namespace
