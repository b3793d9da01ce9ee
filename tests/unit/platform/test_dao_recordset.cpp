#include "unit/platform/dao_fixture.h"

namespace norvane::dao {
namespace {

class RecordsetTest : public DaoTest
{
protected:
    void SetUp() override { createNotes(); }

    void addThree()
    {
        for (const QString &name : {u"beta"_s, u"Alpha"_s, u"gamma"_s})
            add(name);
    }
    static QVariant id(const std::unique_ptr<Recordset> &set) { return set->field(u"ID"_s); }
};

TEST_F(RecordsetTest, NewRecordTakesDefaultsAndKeepsItsValues)
{
    const auto note = notes();
    EXPECT_TRUE(note->bof() && note->eof());
    note->addNew();
    EXPECT_EQ(note->field(u"winwidth"_s), 5100);
    EXPECT_EQ(note->field(u"BackColor"_s), 12648447);
    EXPECT_EQ(note->field(u"Active"_s), true);
    EXPECT_EQ(note->field(u"AutoSave"_s), false);
    EXPECT_FALSE(note->field(u"LastUpdate"_s).isValid());

    const QDateTime now(QDate(2024, 2, 29), QTime(23, 59, 58, 765));
    const QString text = u"\u00e4\u4e2d\U0001f600\"'|%_\\\n"_s + QChar(0) + u"end"_s;
    note->setField(u"WindowName"_s, text);
    note->setField(u"LastUpdate"_s, now);
    note->setField(u"FormPosition"_s, 1.5); // halves go to the even neighbour
    note->setField(u"CAT_ID"_s, u" 42 "_s);
    note->setField(u"AutoSave"_s, 7);
    note->setField(u"KeyWords"_s, QString());
    note->update();
    for (const RecordsetType type : {RecordsetType::Dynaset, RecordsetType::Snapshot}) {
        const auto stored = rows(u"Select * From MEMOS"_s, type);
        EXPECT_EQ(stored->recordCount(), 1);
        EXPECT_EQ(stored->field(u"BackColor"_s), 12648447);
        EXPECT_EQ(stored->field(u"WindowName"_s), text);
        EXPECT_EQ(stored->field(u"LastUpdate"_s), now.addMSecs(-765));
        EXPECT_EQ(stored->field(u"FormPosition"_s), 2);
        EXPECT_EQ(stored->field(u"CAT_ID"_s), 42);
        EXPECT_EQ(stored->field(u"AutoSave"_s), true);
        EXPECT_EQ(stored->field(u"KeyWords"_s), QVariant(u""_s));
        EXPECT_FALSE(stored->field(u"FriendlyName"_s).isValid());
    }
}

TEST_F(RecordsetTest, EveryKindOfBadValueHasItsNumber)
{
    const auto note = notes();
    const auto set = [&note](const QString &field, const QVariant &value) {
        return errorOf([&] { note->setField(field, value); });
    };
    const auto update = [&note] { return errorOf([&] { note->update(); }); };
    EXPECT_EQ(set(u"WindowName"_s, u"x"_s), kErrorUpdateWithoutEdit);
    EXPECT_EQ(update(), kErrorUpdateWithoutEdit);
    note->addNew();
    EXPECT_EQ(set(u"FormPosition"_s, 32768), kErrorOverflow);
    EXPECT_EQ(set(u"winWidth"_s, 2147483648.0), kErrorOverflow);
    EXPECT_EQ(set(u"winWidth"_s, u"wide"_s), kErrorTypeMismatch);
    EXPECT_EQ(set(u"LastUpdate"_s, u"soon"_s), kErrorTypeMismatch);
    EXPECT_EQ(set(u"ClassName"_s, QString(51, u'x')), kErrorFieldTooLong);
    EXPECT_EQ(set(u"ID"_s, 5), kErrorFieldNotUpdatable);
    EXPECT_EQ(set(u"Nothing"_s, 5), kErrorItemNotFound);
    EXPECT_EQ(set(u"CAT_ID"_s, 0), 0);
    EXPECT_EQ(update(), kErrorRequired) << "WindowName";
    EXPECT_EQ(set(u"WindowName"_s, u"w"_s), 0);
    EXPECT_EQ(set(u"CAT_ID"_s, {}), 0);
    EXPECT_EQ(update(), kErrorRequired) << "CAT_ID";
    EXPECT_EQ(set(u"CAT_ID"_s, 1), 0);
    EXPECT_EQ(set(u"ClassName"_s, QString(50, u'x')), 0);
    EXPECT_EQ(update(), 0);
    const auto category = rows(u"select * from Category"_s);
    category->addNew();
    EXPECT_EQ(category->field(u"Name"_s), u"New Category"_s);
    EXPECT_EQ(errorOf([&] { category->setField(u"Name"_s, u""_s); }), kErrorNotZeroLength);
}

TEST_F(RecordsetTest, NumbersAreNeverUsedAgain)
{
    EXPECT_EQ(add(u"a"_s), 1);
    EXPECT_EQ(add(u"b"_s), 2);
    removeNote(2);
    const auto note = notes();
    note->addNew();
    EXPECT_EQ(id(note), 3);
    note->cancelUpdate(); // the number was given out
    EXPECT_EQ(add(u"c"_s), 4);
}

TEST_F(RecordsetTest, MovesAndFindsInTheOrderOfTheRows)
{
    addThree();
    const auto set = rows(u"Select * From Memos order by Windowname"_s);
    EXPECT_EQ(ids(*set), u"2 1 3 ");
    EXPECT_EQ(errorOf([&] { set->moveNext(); }), kErrorNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { id(set); }), kErrorNoCurrentRecord);
    set->movePrevious();
    EXPECT_EQ(id(set), 3);
    set->moveFirst();
    set->movePrevious();
    EXPECT_TRUE(set->bof());
    set->moveLast();
    EXPECT_EQ(id(set), 3);
    set->findFirst(u"ID<3"_s);
    EXPECT_EQ(id(set), 2);
    set->findNext(u"ID<3"_s);
    EXPECT_EQ(id(set), 1);
    set->findNext(u"ID<3"_s);
    EXPECT_TRUE(set->noMatch());
    EXPECT_EQ(id(set), 1) << "the record stays";
    EXPECT_EQ(ids(u"select ID from memos order by windowname desc"_s), u"3 1 2 ");
    EXPECT_EQ(errorOf([&] { notes(u"false"_s)->moveFirst(); }), kErrorNoCurrentRecord);
}

TEST_F(RecordsetTest, ADeletedRecordStaysCurrentAndUnreadable)
{
    addThree();
    const auto set = notes();
    set->moveNext();
    set->remove();
    EXPECT_EQ(set->recordCount(), 2);
    EXPECT_FALSE(set->eof());
    EXPECT_EQ(errorOf([&] { id(set); }), kErrorRecordDeleted);
    EXPECT_EQ(errorOf([&] { set->edit(); }), kErrorRecordDeleted);
    set->moveNext();
    EXPECT_EQ(id(set), 3);
    set->remove();
    set->movePrevious();
    EXPECT_EQ(id(set), 1);
    removeNote(1); // by someone else
    EXPECT_EQ(errorOf([&] { id(set); }), kErrorRecordDeleted);
    EXPECT_EQ(errorOf([&] { set->remove(); }), kErrorRecordDeleted);
}

TEST_F(RecordsetTest, DynasetSeesEditsOfItsRowsAndASnapshotNoneBeforeItsRequery)
{
    addThree();
    const auto dynaset = rows(u"select * from Memos order by ID"_s);
    const auto snapshot = rows(u"Select ID,WindowName from Memos"_s, RecordsetType::Snapshot);
    EXPECT_EQ(dynaset->field(u"WindowName"_s), u"beta"_s);
    change(1, u"WindowName"_s, u"delta"_s);
    removeNote(2);
    add(u"delta"_s);
    EXPECT_EQ(dynaset->field(u"WindowName"_s), u"delta"_s);
    dynaset->findNext(u"WindowName='delta'"_s);
    EXPECT_TRUE(dynaset->noMatch()) << "the new note is not among the rows";

    snapshot->findFirst(u"WindowName='delta'"_s);
    EXPECT_TRUE(snapshot->noMatch());
    snapshot->findFirst(u"WindowName='ALPHA'"_s);
    EXPECT_EQ(snapshot->field(u"WindowName"_s), u"Alpha"_s);
    EXPECT_EQ(snapshot->recordCount(), 3);
    for (int time = 0; time < 2; ++time) {
        snapshot->requery();
        EXPECT_EQ(ids(*snapshot), u"1 3 4 ");
    }
}

TEST_F(RecordsetTest, RequeryKeepsTheOrderWhateverChanged)
{
    // Against a set opened anew, after changes of all kinds.
    for (int i = 0; i < 40; ++i)
        add(QString(QChar(u'a' + (i * 7) % 13)));
    const QString sql = u"select ID,WindowName from Memos where WindowName<'w' order by WindowName desc"_s;
    const auto dynaset = rows(sql);
    const auto snapshot = rows(sql, RecordsetType::Snapshot);
    for (int round = 0; round < 12; ++round) {
        change(1 + round * 3, u"WindowName"_s, QString(QChar(u'z' - round)));
        change(2 + round * 3, u"WindowName"_s, QString(QChar(u'a' + round)) + u'\u00e9');
        if (round % 4 == 0)
            removeNote(3 + round * 3);
        add(QString(QChar(u'A' + round * 2)));
        const QString expected = ids(sql);
        for (const auto &set : {dynaset.get(), snapshot.get()}) {
            set->requery();
            EXPECT_EQ(ids(*set), expected);
        }
    }
}

TEST_F(RecordsetTest, RequeryCostsByWhatChanged)
{
    // Counted, not timed: statements for one changed note do not grow with the notes.
    const auto cost = [this](int count) {
        while (add(u"note"_s) < count) {
        }
        const auto index = rows(u"select ID,WindowName from Memos"_s, RecordsetType::Snapshot);
        change(3, u"WindowName"_s, u"renamed"_s);
        const quint64 before = database->statementCount();
        index->requery();
        const quint64 after = database->statementCount();
        index->recordCount();
        index->moveLast();
        EXPECT_EQ(database->statementCount(), after);
        return after - before;
    };
    const quint64 few = cost(10);
    EXPECT_EQ(cost(60), few);
}

TEST_F(RecordsetTest, FilterHoldsForRecordsetsOpenedFromIt)
{
    addThree();
    const auto all = notes(u"WindowName like '*a*' or false"_s);
    all->setFilter(u"WindowName='beta' or ID=3"_s);
    EXPECT_EQ(all->recordCount(), 3);
    const auto some = all->openRecordset(RecordsetType::Dynaset);
    EXPECT_EQ(some->recordCount(), 2);
    some->setFilter(u"ID>1"_s);
    EXPECT_EQ(ids(*some->openRecordset(RecordsetType::Snapshot)), u"3 ");
    all->setFilter(u"WindowName='"_s);
    EXPECT_EQ(errorOf([&] { all->openRecordset(RecordsetType::Dynaset); }), kErrorSyntax);
}

TEST_F(RecordsetTest, AFilterKeepsTheOrderAndSeesWhatChangedSince)
{
    for (int i = 0; i < 30; ++i)
        add(QString(QChar(u'a' + (i * 7) % 26)));
    const QString sql = u"select ID,WindowName from Memos where WindowName<'w' order by WindowName desc"_s;
    const auto all = rows(sql);
    all->setFilter(u"WindowName>'f' and ID<>9"_s);
    const auto filtered = [&] { return ids(*all->openRecordset(RecordsetType::Dynaset)); };
    const auto expected = [&] {
        return ids(u"select ID from Memos where WindowName<'w' and WindowName>'f' and ID<>9"
                   " order by WindowName desc"_s);
    };
    EXPECT_EQ(filtered(), expected());
    change(12, u"WindowName"_s, u"uu"_s);
    removeNote(5);
    add(u"kk"_s);
    EXPECT_EQ(filtered(), expected());
}

TEST_F(RecordsetTest, AReadingTellsItsProgressAndCanBeStopped)
{
    for (int i = 0; i < 200; ++i)
        add(QString::number(i * 7 % 200));
    const QString sql = u"select ID,WindowName from Memos where WindowName like '*1*' order by WindowName"_s;
    const QString before = ids(sql);
    int calls = 0;
    int added = 0;
    database->setProgress([&] {
        if (++calls == 2) // while the first half is read
            added = add(u"01"_s);
        return true;
    });
    const auto hits = rows(sql);
    EXPECT_GT(calls, 1);
    database->setProgress({});
    EXPECT_EQ(ids(*hits), ids(sql));
    EXPECT_EQ(ids(*hits), QString()) << "at its end";
    EXPECT_EQ(ids(sql), QString::number(added) + u' ' + before);

    hits->setFilter(u"ID>20"_s);
    database->setProgress([] { return false; });
    EXPECT_EQ(errorOf([&] { rows(sql); }), kErrorCancelled);
    EXPECT_EQ(errorOf([&] { hits->openRecordset(RecordsetType::Dynaset); }), kErrorCancelled);
    database->setProgress([&] {
        database->close();
        return true;
    });
    EXPECT_EQ(errorOf([&] { rows(sql); }), kErrorNothingThere);
}

TEST_F(RecordsetTest, CountsAndExtremes)
{
    const QString extremes =
        u"Select Max(LastUpdate) as MaxLdate,Min(LastUpdate) as MinLdate ,Count(ID) as MCount from memos"_s;
    EXPECT_FALSE(rows(extremes)->field(u"maxldate"_s).isValid());
    addThree();
    const QDateTime first(QDate(2024, 1, 2), QTime(3, 4, 5));
    for (int i = 0; i < 3; ++i)
        change(i + 1, u"LastUpdate"_s, first.addDays(i));
    const auto result = rows(extremes);
    EXPECT_EQ(result->field(u"minldate"_s), first);
    EXPECT_EQ(result->field(u"maxldate"_s), first.addDays(2));
    EXPECT_EQ(result->field(u"mcount"_s), 3);
    const auto count =
        rows(u"select count(*) as mMemos from Memos where WindowName<>'beta'"_s, RecordsetType::ForwardOnly);
    EXPECT_EQ(count->field(u"mMemos"_s), 2);
}

TEST_F(RecordsetTest, WhatIsReadOnlyForwardOnlyOrClosedRefusesTheRest)
{
    addThree();
    const auto forward = rows(u"select ID,WindowName from memos"_s, RecordsetType::ForwardOnly);
    const auto snapshot = rows(u"select * from Memos"_s, RecordsetType::Snapshot);
    const auto readOnly = database->openRecordset(u"select * from Memos"_s, RecordsetType::Dynaset, true);
    const auto dynaset = notes();
    const auto closed = notes();
    removeNote(2);
    for (const auto &set : {forward.get(), snapshot.get(), readOnly.get()}) {
        EXPECT_EQ(errorOf([&] { set->addNew(); }), kErrorReadOnly);
        EXPECT_EQ(errorOf([&] { set->edit(); }), kErrorReadOnly);
        EXPECT_EQ(errorOf([&] { set->remove(); }), kErrorReadOnly);
    }
    EXPECT_EQ(ids(*forward), u"1 2 3 ") << "what was there when it was opened";

    closed->close();
    EXPECT_EQ(errorOf([&] { closed->moveFirst(); }), kErrorNothingThere);
    database->close();
    for (const auto &set : {forward.get(), snapshot.get(), dynaset.get()}) {
        EXPECT_EQ(errorOf([&] { set->field(u"ID"_s); }), kErrorNothingThere);
        EXPECT_EQ(errorOf([&] { set->requery(); }), kErrorNothingThere);
    }
    EXPECT_EQ(errorOf([&] { notes(); }), kErrorNothingThere);

    database = open({}, true);
    EXPECT_EQ(ids(u"select * from Memos"_s), u"1 3 ");
    EXPECT_EQ(errorOf([&] { notes()->remove(); }), kErrorReadOnly);
}

} // namespace
} // namespace norvane::dao
