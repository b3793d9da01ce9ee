#include "TwoDatabases.h"

using namespace norvane;
using namespace norvane::test;

namespace {

class ImportingNotes : public testing::Test, protected TwoDatabases
{
protected:
    /// A result in short: "2 imported, 1 bypassed", and the number of the error that ended it.
    static QString text(const ImportResult &result)
    {
        QString text = u"%1 imported, %2 bypassed"_s.arg(result.imported).arg(result.bypassed);
        if (result.failure)
            text += u", error %1"_s.arg(result.failure->number());
        return text;
    }
};

TEST_F(ImportingNotes, CopiesEveryFieldAndTheBody)
{
    addNote(u"here before"_s, u"file:///here"_s);
    const int ID = addOther(u"Zebra \u00e4\u20ac"_s, u"https://a.example/"_s, "{\\rtf1 Zebra}");
    const int bare = addOther(u"Ant"_s, {});
    const QDateTime date(QDate(2020, 2, 29), QTime(23, 59, 58));
    const QVector<QPair<QString, QVariant>> values = {
        {u"LastUpdate"_s, date},     {u"winTop"_s, -7},      {u"winHeight"_s, 70000},
        {u"Active"_s, false},        {u"PlaySound"_s, true}, {u"BackColor"_s, 0xFFFFFF},
        {u"DateCreated"_s, date},    {u"CAT_ID"_s, 5},       {u"KeyWords"_s, QString()},
        {u"NoteText"_s, u"Zebra"_s}, {u"FormPosition"_s, 3}, {u"AutoURLDetect"_s, true}};
    {
        const auto row = other.notes(u"ID=%1"_s.arg(ID));
        row->edit();
        for (const auto &[name, value] : values)
            row->setField(name, value);
        row->update();
    }
    const auto before = other.notes(u"true"_s);
    QStringList told;
    for (const QString &name : before->fieldNames().mid(1))
        told.append(before->field(name).toString());
    ASSERT_EQ(told.size(), 25);
    ASSERT_EQ(otherIDs(), QVector<int>({bare, ID})) << "by name";

    files.write(store.bodyFile(2), "a stale file");
    EXPECT_EQ(text(import({ID, bare})), u"2 imported, 0 bypassed");
    const auto copy = notes(u"FriendlyName like 'Z*'"_s);
    QStringList copied;
    for (const QString &name : copy->fieldNames().mid(1))
        copied.append(copy->field(name).toString());
    EXPECT_EQ(copied, told);
    EXPECT_EQ(copy->field(u"ID"_s), 2);
    EXPECT_EQ(files.read(store.bodyFile(2)), "{\\rtf1 Zebra}");
    EXPECT_FALSE(notes(u"ID=3"_s)->field(u"URL"_s).isValid());
    EXPECT_FALSE(files.exists(store.bodyFile(3)));
    EXPECT_EQ(addNote(u"next"_s), 4);
}

TEST_F(ImportingNotes, BypassesWhatIsThereByItsLocation)
{
    addOther(u"a"_s, u"u:1"_s);
    addOther(u"b"_s, u"u:1"_s); // found when its turn comes
    addOther(u"c"_s, u"U:1"_s); // exactly
    addOther(u"d"_s, u"u:2"_s);
    EXPECT_EQ(text(importAll()), u"3 imported, 1 bypassed");
    EXPECT_EQ(column(u"FriendlyName"_s), QStringList({u"a"_s, u"c"_s, u"d"_s}));
    EXPECT_EQ(text(importAll()), u"0 imported, 4 bypassed");
    notes(u"URL='u:2'"_s)->remove();
    EXPECT_EQ(text(importAll()), u"1 imported, 3 bypassed");
    EXPECT_EQ(importReport(importAll(), 4),
              u"0 Note(s) has been successfully imported.\r\n4 Identical note(s) bypassed.");
}

TEST_F(ImportingNotes, DecidesNotesWithoutALocationByTheFirstOfThem)
{
    // Against "" of the target: equal by location, by name, or undecided, which is an error.
    addNote(u"first"_s, u""_s);
    addNote(u"second"_s, u""_s);
    const int empty = addOther(u"empty"_s, u""_s);
    const int sameName = addOther(u"first"_s, {});
    const int undecided = addOther(u"second"_s, {});
    EXPECT_EQ(text(import({empty})), u"0 imported, 1 bypassed");
    EXPECT_EQ(text(import({sameName})), u"0 imported, 1 bypassed");
    EXPECT_EQ(text(import({undecided})), u"0 imported, 0 bypassed, error 94");
    // The answer of the note before is not forgotten.
    EXPECT_EQ(text(import({empty, undecided})), u"0 imported, 2 bypassed");
    notes(u"true"_s)->remove();
    notes(u"true"_s)->remove();
    EXPECT_EQ(text(import({undecided, sameName})), u"2 imported, 0 bypassed") << "Null equals nothing";
}

TEST_F(ImportingNotes, EndsAtAQuoteInALocationWithTheNotesBeforeIt)
{
    const int good = addOther(u"good"_s, u"u:'1'"_s, "body");
    const int bad = addOther(u"bad"_s, u"u:\"1"_s);
    const int after = addOther(u"after"_s, u"u:2"_s);
    const ImportResult result = import({good, bad, after});
    EXPECT_EQ(text(result), u"1 imported, 0 bypassed, error 3075");
    EXPECT_TRUE(importFailureReport(result, 3).startsWith(
        u"Error Importing Records.\r\n\r\n1 of 3 note(s) imported, 0 identical bypassed."));
    EXPECT_EQ(column(u"FriendlyName"_s), QStringList(u"good"_s));
    EXPECT_EQ(files.read(store.bodyFile(1)), "body");
    // It is put in as it stands: this one asks for all notes.
    const int hostile = addOther(u"hostile"_s, u"x\" or \"1\"=\"1"_s);
    EXPECT_EQ(text(import({hostile})), u"0 imported, 0 bypassed, error 94")
        << "compared with the first of them, as far as a Null";
}

TEST_F(ImportingNotes, PutsNotesIntoACategory)
{
    const int ID = addOther(u"a"_s, u"u:1"_s);
    {
        const auto row = other.notes(u"true"_s);
        row->edit();
        row->setField(u"CAT_ID"_s, 5);
        row->update();
    }
    for (const std::optional<int> category : {std::optional<int>(), std::optional(0), std::optional(9)}) {
        import({ID}, category);
        EXPECT_EQ(notes(u"true"_s)->field(u"CAT_ID"_s), category.value_or(5));
        notes(u"true"_s)->remove();
    }
}

TEST_F(ImportingNotes, GoesOnInBatchesAndStopsBetweenThem)
{
    QVector<int> IDs;
    other.store.database()->beginTrans();
    for (int i = 0; i < 450; ++i)
        IDs.append(addOther(u"note %1"_s.arg(i), u"u:%1"_s.arg(i)));
    other.store.database()->commitTrans();
    int asked = 0;
    const ImportResult result = import(IDs, {}, [&](int done) {
        // All is saved, and whoever wants to write can: another note with a location that is still to come.
        EXPECT_EQ(notes(u"true"_s)->recordCount(), done + asked);
        addNote(u"meanwhile"_s, u"u:449"_s);
        store.requeryNoteIndex();
        return ++asked < 2;
    });
    EXPECT_TRUE(result.isStopped);
    EXPECT_LT(result.imported, 449);
    EXPECT_EQ(column(u"FriendlyName"_s).size(), result.imported + 2);
    EXPECT_EQ(importReport(result, 450),
              u"%1 Note(s) has been successfully imported.\r\nStopped: %2 selected note(s) left."_s
                  .arg(result.imported)
                  .arg(450 - result.imported));
    EXPECT_EQ(text(import(IDs)),
              u"%1 imported, %2 bypassed"_s.arg(449 - result.imported).arg(result.imported + 1));

    // The program may end while events run.
    for (const auto rows = notes(u"true"_s); !rows->eof(); rows->moveNext())
        rows->remove();
    const ImportResult closed = import(IDs, {}, [&](int) {
        store.close();
        return true;
    });
    EXPECT_EQ(closed.failure->number(), kErrorNothingThere);
    store.open();
    EXPECT_EQ(notes(u"true"_s)->recordCount(), closed.imported);
}

} // namespace
