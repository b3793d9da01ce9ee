#include "fakes/MemorySettings.h"
#include "platform/RuntimeError.h"
#include "search/find_notes.h"
#include "unit/store/StoreOnDisk.h"

using namespace norvane;
using namespace norvane::test;

namespace {

const SearchDates kAlways{{1900, 1, 1}, {2100, 1, 1}, {1900, 1, 1}, {2100, 1, 1}};

TEST(SearchCriteria, makeTheStatementAndTheFilterToTheLetter)
{
    const struct
    {
        SearchOptions options;
        QString text;
        QString statement;
    } cases[] = {
        {{true, true, false},
         u"cat"_s,
         u"Select * From Memos where WindowName like \"*cat*\" OR  URL like \"*cat*\" OR FriendlyName like "
         "\"*cat*\" OR NoteText like \"*cat*\" Or KeyWords Like \"*cat*\" order by FriendlyName"_s},
        {{false, true, true},
         u"a b"_s,
         u"Select * From Memos where WindowName like \"a b\" OR  URL like \"a b\" OR FriendlyName like "
         "\"a b\" Or KeyWords Like \"a b\" order by FriendlyName"_s},
        {{true, false, true},
         u""_s,
         u"Select * From Memos where WindowName like \"*\" OR FriendlyName like \"*\" Or NoteText like \"*\" "
         "Or KeyWords Like \"*\" order by FriendlyName"_s},
        {{false, false, false},
         u"\"%1[?"_s,
         u"Select * From Memos where WindowName like \"*\"%1[?*\" OR FriendlyName like \"*\"%1[?*\" Or "
         "KeyWords Like \"*\"%1[?*\" order by FriendlyName"_s},
    };
    for (const auto &each : cases)
        EXPECT_EQ(searchStatement({each.text, each.options, kAlways}), each.statement);

    SearchCriteria criteria;
    criteria.dates = {{2024, 1, 2}, {2025, 11, 30}, {999, 3, 4}, {2026, 5, 6}};
    const QString dates =
        u"format(DateCreated,'yyyy-mm-dd') >= '2024-01-02' AND format(DateCreated,'yyyy-mm-dd') <= "
        "'2025-11-30' AND format(LastUpdate,'yyyy-mm-dd') >='0999-03-04' AND "
        "format(LastUpdate,'yyyy-mm-dd') <='2026-05-06'"_s;
    EXPECT_EQ(searchFilter(criteria), dates);
    criteria.category = kNoCategory;
    EXPECT_EQ(searchFilter(criteria), dates + u" And Cat_ID=0"_s);
}

TEST(SearchOptions, standUnderTheNamesOfEachOther)
{
    fakes::MemorySettings settings;
    EXPECT_EQ(loadSearchOptions(settings), (SearchOptions{true, true, false}));
    saveSearchOptions(settings, {false, true, true});
    EXPECT_EQ(settings.values[u"Search"_s],
              (QMap<QString, QString>{
                  {u"IncludeURL"_s, u"0"_s}, {u"IncludeNoteText"_s, u"1"_s}, {u"ExactMatch"_s, u"1"_s}}));
    EXPECT_EQ(loadSearchOptions(settings), (SearchOptions{false, true, true}));
}

class FindNotes : public testing::Test, protected StoreOnDisk
{
protected:
    FindNotes()
    {
        makeDatabase();
        store.open();
    }
    int add(const QString &title, const QHash<QString, QVariant> &fields)
    {
        const int ID = addNote(title);
        const auto row = notes(u"ID=%1"_s.arg(ID));
        row->edit();
        for (auto field = fields.begin(); field != fields.end(); ++field)
            row->setField(field.key(), field.value());
        row->update();
        return ID;
    }
    /// The titles of what is found, in order; that which the window's count says is as many.
    QString found(const SearchCriteria &criteria)
    {
        const auto result = findNotes(*store.database(), criteria);
        QStringList titles;
        const int count = result->recordCount();
        for (; !result->eof(); result->moveNext())
            titles.append(result->field(u"FriendlyName"_s).toString());
        EXPECT_EQ(titles.size(), count);
        return titles.join(u' ');
    }
};

TEST_F(FindNotes, goesByTextDaysAndCategory)
{
    const QDateTime late(QDate(2024, 5, 6), QTime(23, 59, 59));
    const QDateTime early(QDate(2024, 5, 1), QTime(0, 0));
    add(u"Bread"_s,
        {{u"URL"_s, u"http://Cat.example"_s}, {u"DateCreated"_s, early}, {u"LastUpdate"_s, late}});
    add(u"Apples"_s, {{u"NoteText"_s, u"the CAT sat"_s},
                      {u"CAT_ID"_s, 7},
                      {u"DateCreated"_s, late},
                      {u"LastUpdate"_s, late}});
    add(u"Cat"_s, {{u"DateCreated"_s, early}, {u"LastUpdate"_s, early}});
    add(u"Dates"_s, {{u"KeyWords"_s, u"a[b] cat"_s}, {u"DateCreated"_s, early}, {u"LastUpdate"_s, late}});

    const struct
    {
        SearchCriteria criteria;
        QString expected;
    } cases[] = {
        {{u"cat"_s, {true, true, false}, kAlways}, u"Apples Bread Cat Dates"_s},
        {{u"cat"_s, {false, true, false}, kAlways}, u"Bread Cat Dates"_s},
        {{u"cat"_s, {true, false, false}, kAlways}, u"Apples Cat Dates"_s},
        {{u"cat"_s, {true, true, true}, kAlways}, u"Cat"_s},
        {{u"c?t"_s, {false, false, true}, kAlways}, u"Cat"_s},
        {{u"a[[]b"_s, {false, false, false}, kAlways}, u"Dates"_s},
        {{u""_s, {false, false, true}, kAlways}, u"Apples Bread Cat Dates"_s},
        {{u""_s, {}, kAlways, 7}, u"Apples"_s},
        {{u""_s, {}, kAlways, kNoCategory}, u"Bread Cat Dates"_s},
        {{u""_s, {}, {early.date(), early.date(), early.date(), late.date()}}, u"Bread Cat Dates"_s},
        {{u""_s, {}, {early.date(), late.date(), late.date(), late.date()}}, u"Apples Bread Dates"_s},
        {{u""_s, {}, {late.date(), early.date(), early.date(), late.date()}}, u""_s},
        {{QString(10'000, u'x'), {}, kAlways}, u""_s},
    };
    for (const auto &each : cases)
        EXPECT_EQ(found(each.criteria), each.expected) << qPrintable(each.criteria.text.left(20));
    for (const QString &text : {u"\""_s, u"a\" or \"b"_s, u"[a"_s})
        EXPECT_NE(errorOf([&] { found({text, {}, kAlways}); }), 0) << qPrintable(text);
    EXPECT_EQ(findNothing(*store.database())->recordCount(), 0);
}

TEST_F(FindNotes, takesTheDaysOfTheNotesAsFarAsTheyHaveAny)
{
    SearchDates dates = kAlways;
    readDateSpan(store, dates);
    EXPECT_EQ(dates, kAlways) << "without notes";
    const QVector<QDateTime> days{QDate(2020, 2, 29).startOfDay(),
                                  QDateTime(QDate(2024, 5, 6), QTime(23, 59))};
    add(u"a"_s, {{u"DateCreated"_s, days[1]}, {u"LastUpdate"_s, QVariant()}});
    add(u"b"_s, {{u"DateCreated"_s, days[0]}, {u"LastUpdate"_s, QVariant()}});
    readDateSpan(store, dates);
    EXPECT_EQ(dates, (SearchDates{days[0].date(), days[1].date(), kAlways.updatedFrom, kAlways.updatedTo}));
    add(u"c"_s, {{u"LastUpdate"_s, days[0]}});
    readDateSpan(store, dates);
    EXPECT_EQ(dates.updatedTo, days[0].date());
    store.close();
    readDateSpan(store, dates);
    EXPECT_EQ(dates.createdFrom, days[0].date()) << "without a database";
}

} // namespace
