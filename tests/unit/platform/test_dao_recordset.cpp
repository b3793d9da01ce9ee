#include "unit/platform/dao_fixture.h"

#include <QSet>

namespace norvane::dao {
namespace {

class RecordsetTest : public DaoTest
{
protected:
    void SetUp() override { createNotes(); }

    void addThree()
    {
        add(QStringLiteral("beta"));
        add(QStringLiteral("Alpha"));
        add(QStringLiteral("gamma"));
    }

    void rename(int id, const QString &windowName)
    {
        const auto note = rows(QStringLiteral("select * from Memos where ID=%1").arg(id));
        note->edit();
        note->setField(QStringLiteral("WindowName"), windowName);
        note->update();
    }
    void removeNote(int id) { rows(QStringLiteral("select * from Memos where ID=%1").arg(id))->remove(); }
};

TEST_F(RecordsetTest, NewRecordTakesDefaults)
{
    const auto note = rows(QStringLiteral("select * from Memos where false"));
    EXPECT_TRUE(note->bof() && note->eof());
    note->addNew();
    EXPECT_EQ(note->field(QStringLiteral("winwidth")), QVariant(5100));
    EXPECT_EQ(note->field(QStringLiteral("BackColor")), QVariant(12648447));
    EXPECT_EQ(note->field(QStringLiteral("Active")), QVariant(true));
    EXPECT_EQ(note->field(QStringLiteral("AutoSave")), QVariant(false));
    EXPECT_EQ(note->field(QStringLiteral("LocationName")), QVariant(QStringLiteral("New Note")));
    EXPECT_FALSE(note->field(QStringLiteral("LastUpdate")).isValid());
    note->setField(QStringLiteral("WindowName"), QString());
    note->setField(QStringLiteral("CAT_ID"), 0);
    note->update();
    const auto stored = rows(QStringLiteral("Select * From MEMOS"));
    EXPECT_EQ(stored->recordCount(), 1);
    EXPECT_EQ(stored->field(QStringLiteral("BackColor")), QVariant(12648447));
    EXPECT_EQ(stored->field(QStringLiteral("WindowName")), QVariant(QString(QLatin1String(""))));
    EXPECT_FALSE(stored->field(QStringLiteral("FriendlyName")).isValid());
}

TEST_F(RecordsetTest, ValuesComeBackAsTheyWere)
{
    const QDateTime now(QDate(2024, 2, 29), QTime(23, 59, 58, 765));
    const QString text =
        QStringLiteral("\u00e4\u4e2d\U0001f600\"'|%_\\\n") + QChar(0) + QStringLiteral("end");
    const auto note = rows(QStringLiteral("select * from Memos where false"));
    note->addNew();
    note->setField(QStringLiteral("WindowName"), text);
    note->setField(QStringLiteral("LastUpdate"), now);
    note->setField(QStringLiteral("FormPosition"), 1.5); // halves go to the even neighbour
    note->setField(QStringLiteral("CAT_ID"), QStringLiteral(" 42 "));
    note->setField(QStringLiteral("AutoSave"), 7);
    note->update();
    const auto stored = rows(QStringLiteral("select * from Memos"), RecordsetType::Snapshot);
    EXPECT_EQ(stored->field(QStringLiteral("WindowName")).toString(), text);
    EXPECT_EQ(stored->field(QStringLiteral("LastUpdate")).toDateTime(), now.addMSecs(-765));
    EXPECT_EQ(stored->field(QStringLiteral("FormPosition")), QVariant(2));
    EXPECT_EQ(stored->field(QStringLiteral("CAT_ID")), QVariant(42));
    EXPECT_EQ(stored->field(QStringLiteral("AutoSave")), QVariant(true));
}

TEST_F(RecordsetTest, EveryKindOfBadValueHasItsNumber)
{
    const auto note = rows(QStringLiteral("select * from Memos where false"));
    const auto set = [&note](const char16_t *field, const QVariant &value) {
        return errorOf([&] { note->setField(QStringView(field).toString(), value); });
    };
    EXPECT_EQ(set(u"WindowName", QStringLiteral("x")), kErrorUpdateWithoutEdit);
    EXPECT_EQ(errorOf([&] { note->update(); }), kErrorUpdateWithoutEdit);
    note->addNew();
    EXPECT_EQ(set(u"FormPosition", 32768), kErrorOverflow);
    EXPECT_EQ(set(u"winWidth", 2147483648.0), kErrorOverflow);
    EXPECT_EQ(set(u"winWidth", QStringLiteral("wide")), kErrorTypeMismatch);
    EXPECT_EQ(set(u"LastUpdate", QStringLiteral("soon")), kErrorTypeMismatch);
    EXPECT_EQ(set(u"FriendlyName", QString(21, u'x')), kErrorFieldTooLong);
    EXPECT_EQ(set(u"FriendlyName", QString(QLatin1String(""))), kErrorNotZeroLength);
    EXPECT_EQ(set(u"ID", 5), kErrorFieldNotUpdatable);
    EXPECT_EQ(set(u"Nothing", 5), kErrorItemNotFound);
    note->setField(QStringLiteral("CAT_ID"), 0);
    EXPECT_EQ(errorOf([&] { note->update(); }), kErrorRequired) << "WindowName";
    note->setField(QStringLiteral("WindowName"), QStringLiteral("w"));
    note->setField(QStringLiteral("CAT_ID"), QVariant());
    EXPECT_EQ(errorOf([&] { note->update(); }), kErrorRequired) << "CAT_ID";
    note->setField(QStringLiteral("CAT_ID"), 1);
    note->setField(QStringLiteral("FriendlyName"), QString(20, u'x'));
    note->update();
    EXPECT_EQ(rows(QStringLiteral("select * from Memos"))->recordCount(), 1);
}

TEST_F(RecordsetTest, NumbersAreNeverUsedAgain)
{
    EXPECT_EQ(add(QStringLiteral("a")), 1);
    EXPECT_EQ(add(QStringLiteral("b")), 2);
    removeNote(2);
    const auto note = rows(QStringLiteral("select * from Memos where false"));
    note->addNew();
    EXPECT_EQ(note->field(QStringLiteral("ID")), QVariant(3));
    note->cancelUpdate(); // the number was given out
    EXPECT_EQ(add(QStringLiteral("c")), 4);
}

TEST_F(RecordsetTest, MovesThroughTheRows)
{
    addThree();
    const auto set = rows(QStringLiteral("Select * From Memos order by Windowname"));
    EXPECT_EQ(ids(*set), u"2 1 3 ");
    EXPECT_TRUE(set->eof());
    EXPECT_EQ(errorOf([&] { set->moveNext(); }), kErrorNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { set->field(QStringLiteral("ID")); }), kErrorNoCurrentRecord);
    set->movePrevious();
    EXPECT_EQ(set->field(QStringLiteral("ID")), QVariant(3));
    set->moveFirst();
    set->movePrevious();
    EXPECT_TRUE(set->bof());
    set->moveLast();
    EXPECT_EQ(set->field(QStringLiteral("WindowName")).toString(), u"gamma");
    EXPECT_EQ(ids(QStringLiteral("select ID from memos order by windowname desc")), u"3 1 2 ");
    const auto none = rows(QStringLiteral("select * from Memos where false"));
    EXPECT_EQ(errorOf([&] { none->moveFirst(); }), kErrorNoCurrentRecord);
}

TEST_F(RecordsetTest, ADeletedRecordStaysCurrentAndUnreadable)
{
    addThree();
    const auto set = rows(QStringLiteral("select * from Memos"));
    set->moveNext();
    set->remove();
    EXPECT_EQ(set->recordCount(), 2);
    EXPECT_FALSE(set->eof());
    EXPECT_EQ(errorOf([&] { set->field(QStringLiteral("ID")); }), kErrorRecordDeleted);
    EXPECT_EQ(errorOf([&] { set->edit(); }), kErrorRecordDeleted);
    set->moveNext();
    EXPECT_EQ(set->field(QStringLiteral("ID")), QVariant(3));
    set->remove();
    set->movePrevious();
    EXPECT_EQ(set->field(QStringLiteral("ID")), QVariant(1));
    const auto other = rows(QStringLiteral("select * from Memos"));
    other->remove();
    EXPECT_EQ(errorOf([&] { set->field(QStringLiteral("ID")); }), kErrorRecordDeleted);
    EXPECT_EQ(errorOf([&] { set->remove(); }), kErrorRecordDeleted);
}

TEST_F(RecordsetTest, AddingKeepsTheCurrentRecord)
{
    addThree();
    const auto set = rows(QStringLiteral("select * from Memos order by WindowName"));
    set->moveNext();
    const auto append = [&set] {
        set->addNew();
        set->setField(QStringLiteral("WindowName"), QStringLiteral("aa"));
        set->setField(QStringLiteral("CAT_ID"), 0);
        set->update();
    };
    append();
    EXPECT_EQ(set->field(QStringLiteral("ID")), QVariant(1));
    EXPECT_EQ(set->recordCount(), 4);
    set->moveLast();
    EXPECT_EQ(set->field(QStringLiteral("WindowName")).toString(), u"aa");
    set->moveNext();
    append();
    EXPECT_TRUE(set->eof());
    set->requery();
    EXPECT_EQ(ids(*set), u"4 5 2 1 3 ");
}

TEST_F(RecordsetTest, SnapshotChangesOnlyByRequery)
{
    addThree();
    const auto index = rows(QStringLiteral("Select ID,WindowName from Memos"), RecordsetType::Snapshot);
    const auto names = [&index] {
        QString all;
        for (index->requery(); !index->eof(); index->moveNext())
            all += index->field(QStringLiteral("WindowName")).toString() + u' ';
        return all;
    };
    rename(1, QStringLiteral("delta"));
    removeNote(2);
    add(QStringLiteral("new"));
    index->findFirst(QStringLiteral("WindowName='delta'"));
    EXPECT_TRUE(index->noMatch());
    index->findFirst(QStringLiteral("WindowName='ALPHA'"));
    EXPECT_FALSE(index->noMatch());
    EXPECT_EQ(index->field(QStringLiteral("WindowName")).toString(), u"Alpha");
    EXPECT_EQ(index->recordCount(), 3);
    EXPECT_EQ(errorOf([&] { index->edit(); }), kErrorReadOnly);
    EXPECT_EQ(names(), u"delta gamma new ");
    EXPECT_EQ(names(), u"delta gamma new ");
}

TEST_F(RecordsetTest, RequeryKeepsTheOrderWhateverChanged)
{
    // Against a set opened anew, after changes of all kinds.
    for (int i = 0; i < 40; ++i)
        add(QString(QChar(u'a' + (i * 7) % 26)) + QString::number(i % 3));
    const QString sql =
        QStringLiteral("select ID,WindowName from Memos where WindowName<'w' order by WindowName desc");
    const auto dynaset = rows(sql);
    const auto snapshot = rows(sql, RecordsetType::Snapshot);
    for (int round = 0; round < 12; ++round) {
        rename(1 + round * 3, QString(QChar(u'z' - round)) + u'1');
        rename(2 + round * 3, QString(QChar(u'a' + round)) + u'\u00e9');
        if (round % 4 == 0)
            removeNote(3 + round * 3);
        add(QString(QChar(u'A' + round * 2)));
        const QString expected = ids(sql);
        dynaset->requery();
        snapshot->requery();
        EXPECT_EQ(ids(*dynaset), expected);
        EXPECT_EQ(ids(*snapshot), expected);
    }
}

TEST_F(RecordsetTest, DynasetSeesEditsOfItsRows)
{
    addThree();
    const auto set = rows(QStringLiteral("select * from Memos order by WindowName"));
    EXPECT_EQ(set->field(QStringLiteral("WindowName")).toString(), u"Alpha");
    rename(2, QStringLiteral("omega"));
    EXPECT_EQ(set->field(QStringLiteral("WindowName")).toString(), u"omega");
    add(QStringLiteral("omega"));
    set->findFirst(QStringLiteral("WindowName='omega'"));
    EXPECT_EQ(set->field(QStringLiteral("ID")), QVariant(2)) << "the new note is not among the rows";
    set->findNext(QStringLiteral("WindowName='omega'"));
    EXPECT_TRUE(set->noMatch());
    EXPECT_EQ(set->field(QStringLiteral("ID")), QVariant(2));
}

TEST_F(RecordsetTest, FindsInTheOrderOfTheRows)
{
    addThree();
    const auto set = rows(QStringLiteral("Select * From Memos order by WindowName desc"));
    set->findFirst(QStringLiteral("ID<3"));
    EXPECT_EQ(set->field(QStringLiteral("ID")), QVariant(1));
    set->findNext(QStringLiteral("ID<3"));
    EXPECT_EQ(set->field(QStringLiteral("ID")), QVariant(2));
    set->findNext(QStringLiteral("ID<3"));
    EXPECT_TRUE(set->noMatch());
    EXPECT_EQ(errorOf([&] { set->findFirst(QStringLiteral("WindowName=\"a\"b\"")); }), kErrorSyntax);
    EXPECT_EQ(errorOf([&] { set->findFirst(QStringLiteral("Title='a'")); }), kErrorItemNotFound);
}

TEST_F(RecordsetTest, FilterHoldsForRecordsetsOpenedFromIt)
{
    addThree();
    const auto all = rows(QStringLiteral("select * from Memos where WindowName like '*a*' or false"));
    all->setFilter(QStringLiteral("WindowName='beta' or ID=3"));
    EXPECT_EQ(all->recordCount(), 3);
    const auto some = all->openRecordset(RecordsetType::Dynaset);
    EXPECT_EQ(some->recordCount(), 2);
    some->setFilter(QStringLiteral("ID>1"));
    const auto one = some->openRecordset(RecordsetType::Snapshot);
    EXPECT_EQ(ids(*one), u"3 ");
    all->setFilter(QStringLiteral("WindowName='"));
    EXPECT_EQ(errorOf([&] { all->openRecordset(RecordsetType::Dynaset); }), kErrorSyntax);
}

TEST_F(RecordsetTest, ForwardOnlyShowsWhatWasThere)
{
    addThree();
    const auto set = rows(QStringLiteral("select ID,WindowName from memos"), RecordsetType::ForwardOnly);
    removeNote(2);
    EXPECT_EQ(errorOf([&] { set->movePrevious(); }), kErrorInvalidOperation);
    EXPECT_EQ(errorOf([&] { set->findFirst(QStringLiteral("ID=1")); }), kErrorInvalidOperation);
    EXPECT_EQ(errorOf([&] { set->edit(); }), kErrorReadOnly);
    EXPECT_EQ(ids(*set), u"1 2 3 ");
}

TEST_F(RecordsetTest, CountsAndExtremes)
{
    const QString extremes = QStringLiteral(
        "Select Max(LastUpdate) as MaxLdate,Min(LastUpdate) as MinLdate ,Count(ID) as MCount from memos");
    EXPECT_FALSE(rows(extremes)->field(QStringLiteral("maxldate")).isValid());
    addThree();
    const auto note = rows(QStringLiteral("select * from Memos"));
    const QDateTime first(QDate(2024, 1, 2), QTime(3, 4, 5));
    for (int i = 0; !note->eof(); note->moveNext(), ++i) {
        note->edit();
        note->setField(QStringLiteral("LastUpdate"), first.addDays(i));
        note->update();
    }
    const auto result = rows(extremes);
    EXPECT_EQ(result->field(QStringLiteral("minldate")).toDateTime(), first);
    EXPECT_EQ(result->field(QStringLiteral("maxldate")).toDateTime(), first.addDays(2));
    EXPECT_EQ(result->field(QStringLiteral("mcount")), QVariant(3));
    const auto count = rows(QStringLiteral("select count(*) as mMemos from Memos where WindowName<>'beta'"),
                            RecordsetType::ForwardOnly);
    EXPECT_EQ(count->field(QStringLiteral("mMemos")), QVariant(2));
}

TEST_F(RecordsetTest, AClosedDatabaseLeavesNothingToUse)
{
    addThree();
    const auto dynaset = rows(QStringLiteral("select * from Memos"));
    const auto snapshot = rows(QStringLiteral("select * from Memos"), RecordsetType::Snapshot);
    const auto closed = rows(QStringLiteral("select * from Memos"));
    closed->close();
    EXPECT_EQ(errorOf([&] { closed->moveFirst(); }), kErrorNothingThere);
    database->close();
    EXPECT_EQ(errorOf([&] { dynaset->field(QStringLiteral("ID")); }), kErrorNothingThere);
    EXPECT_EQ(errorOf([&] { dynaset->recordCount(); }), kErrorNothingThere);
    EXPECT_EQ(errorOf([&] { snapshot->requery(); }), kErrorNothingThere);
    EXPECT_EQ(errorOf([&] { rows(QStringLiteral("select * from Memos")); }), kErrorNothingThere);
}

TEST_F(RecordsetTest, ReadOnlyRecordsetsAndDatabasesRefuseChanges)
{
    addThree();
    const auto set =
        database->openRecordset(QStringLiteral("select * from Memos"), RecordsetType::Dynaset, true);
    EXPECT_EQ(errorOf([&] { set->addNew(); }), kErrorReadOnly);
    database->close();
    database = open({}, true);
    EXPECT_EQ(ids(QStringLiteral("select * from Memos")), u"1 2 3 ");
    EXPECT_EQ(errorOf([&] { rows(QStringLiteral("select * from Memos"))->remove(); }), kErrorReadOnly);
    EXPECT_EQ(
        errorOf([&] { database->setAllowZeroLength(QStringLiteral("Memos"), QStringLiteral("URL"), false); }),
        kErrorReadOnly);
}

TEST_F(RecordsetTest, RequeryCostsByWhatChanged)
{
    // Counted, not timed: statements for one changed note do not grow with the notes.
    const auto cost = [this](int notes) {
        while (add(QStringLiteral("note %1").arg(notes, 6, 10, QChar(u'0'))) < notes) {
        }
        const auto index = rows(QStringLiteral("select ID,WindowName from Memos"), RecordsetType::Snapshot);
        rename(3, QStringLiteral("renamed"));
        const quint64 before = database->statementCount();
        index->requery();
        return database->statementCount() - before;
    };
    const quint64 few = cost(10);
    EXPECT_EQ(cost(60), few);
    const auto index = rows(QStringLiteral("select ID,WindowName from Memos"), RecordsetType::Snapshot);
    const quint64 before = database->statementCount();
    index->recordCount();
    index->moveLast();
    EXPECT_EQ(database->statementCount(), before);
}

} // namespace
} // namespace norvane::dao
