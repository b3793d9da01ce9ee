#include "platform/errors.h"
#include "shell/tray_menu.h"
#include "store/note_row.h"
#include "unit/store/StoreOnDisk.h"

using namespace norvane;
using namespace norvane::test;

namespace {

class NoteStoreOnDisk : public testing::Test, protected StoreOnDisk
{
protected:
    void SetUp() override { makeDatabase(); }
};

TEST_F(NoteStoreOnDisk, opensItsThreeRecordsets)
{
    store.open();
    EXPECT_EQ(store.NoteSet()->fieldNames().size(), 26);
    EXPECT_EQ(store.NoteIndex()->fieldNames(),
              QStringList({QStringLiteral("ID"), QStringLiteral("WindowName"), QStringLiteral("URL"),
                           QStringLiteral("Active"), QStringLiteral("FriendlyName"),
                           QStringLiteral("LocationName"), QStringLiteral("ClassName")}));
    EXPECT_EQ(store.CategorySet()->fieldNames().size(), 4);
    EXPECT_NE(errorOf([this] { store.NoteIndex()->edit(); }), 0);
}

TEST_F(NoteStoreOnDisk, leavesNothingOpenAfterAFailure)
{
    store.open();
    store.DatabasePassword = QStringLiteral("wrong");
    EXPECT_EQ(errorOf([this] { store.open(); }), kErrorNotAPassword);
    EXPECT_EQ(store.database(), nullptr);
    EXPECT_EQ(store.NoteSet(), nullptr);
    EXPECT_EQ(store.NoteIndex(), nullptr);
    EXPECT_EQ(store.CategorySet(), nullptr);
    EXPECT_EQ(errorOf([this] { store.requeryNoteIndex(); }), kErrorNothingThere);
    EXPECT_EQ(errorOf([this] { store.requeryNoteSet(); }), kErrorNothingThere);
}

TEST_F(NoteStoreOnDisk, countsWhatMakesKeptAnswersOld)
{
    store.open();
    const quint64 opened = store.noteChangeCount();
    store.requeryNoteSet();
    EXPECT_EQ(store.noteChangeCount(), opened);
    store.requeryNoteIndex();
    const quint64 requeried = store.noteChangeCount();
    EXPECT_GT(requeried, opened);
    store.open();
    EXPECT_GT(store.noteChangeCount(), requeried);
}

TEST_F(NoteStoreOnDisk, showsANewNoteInTheIndexOnlyAfterItsRequery)
{
    store.open();
    const auto notes = store.database()->openRecordset(QStringLiteral("select * from Memos where false"));
    notes->addNew();
    notes->setField(QStringLiteral("WindowName"), QStringLiteral("x"));
    notes->setField(QStringLiteral("CAT_ID"), 0);
    notes->update();
    store.NoteIndex()->findFirst(QStringLiteral("WindowName='x'"));
    EXPECT_TRUE(store.NoteIndex()->noMatch());
    store.requeryNoteIndex();
    store.NoteIndex()->findFirst(QStringLiteral("WindowName='x'"));
    EXPECT_FALSE(store.NoteIndex()->noMatch());
}

TEST_F(NoteStoreOnDisk, namesBodyFilesByEightDigits)
{
    EXPECT_EQ(store.bodyFile(7), store.DatabaseFolder + QStringLiteral("Norvane_00000007"));
    EXPECT_EQ(store.bodyFile(123456789), store.DatabaseFolder + QStringLiteral("Norvane_123456789"));
}

TEST_F(NoteStoreOnDisk, savesARowAndNothingElseOfIt)
{
    store.open();
    const int other = addNote(QStringLiteral("Other"));
    const int ID = addNote(QStringLiteral("Page"));
    const QDateTime time(QDate(2001, 2, 3), QTime(4, 5, 6));
    const QString text = QStringLiteral("'quotes\" | שלום 😀\n").repeated(300);
    SaveNoteRow(store, ID, {time, QRectF(15.5, -30.4, 5100.5, 1e6), text});

    const auto row =
        store.database()->openRecordset(QStringLiteral("select * from Memos where ID=%1").arg(ID));
    EXPECT_EQ(row->field(QStringLiteral("LastUpdate")).toDateTime(), time);
    EXPECT_EQ(row->field(QStringLiteral("winLeft")).toInt(), 16);
    EXPECT_EQ(row->field(QStringLiteral("Wintop")).toInt(), -30);
    EXPECT_EQ(row->field(QStringLiteral("winWidth")).toInt(), 5100);
    EXPECT_EQ(row->field(QStringLiteral("winHeight")).toInt(), 1000000);
    EXPECT_EQ(row->field(QStringLiteral("NoteText")).toString(), text);
    EXPECT_EQ(row->field(QStringLiteral("FriendlyName")).toString(), QStringLiteral("Page"));
    const auto untouched =
        store.database()->openRecordset(QStringLiteral("select * from Memos where ID=%1").arg(other));
    EXPECT_FALSE(untouched->field(QStringLiteral("NoteText")).isValid());
}

TEST_F(NoteStoreOnDisk, saysWhyARowCannotBeSaved)
{
    store.open();
    const int ID = addNote(QStringLiteral("Page"));
    const NoteRowValues values = {QDateTime(QDate(2001, 2, 3), QTime(4, 5)), QRectF(0, 0, 100, 100),
                                  QString()};
    NoteRowValues farAway = values;
    farAway.place.moveLeft(1e10);
    NoteRowValues nowhere = values;
    nowhere.place.moveTop(qQNaN());
    EXPECT_EQ(errorOf([&] { SaveNoteRow(store, ID + 1, values); }), kErrorNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { SaveNoteRow(store, ID, farAway); }), kErrorOverflow);
    EXPECT_EQ(errorOf([&] { SaveNoteRow(store, ID, nowhere); }), kErrorOverflow);
    EXPECT_EQ(errorOf([&] { SaveNoteRow(store, ID, values); }), 0);
    store.close();
    EXPECT_EQ(errorOf([&] { SaveNoteRow(store, ID, values); }), kErrorNothingThere);
}

TEST_F(NoteStoreOnDisk, offersThePagesOfNotesWithALocation)
{
    store.open();
    addNote(QStringLiteral("Zoo"), QStringLiteral("https://zoo.example/"));
    addNote(QStringLiteral("plain"), QString());
    addNote(QStringLiteral("blank"), QStringLiteral("   "));
    addNote(QStringLiteral("null"));
    const int first = addNote(QStringLiteral("an \"apple\""), QStringLiteral("/home/user/apple"));
    addNote(QStringLiteral(" "), QStringLiteral("https://nameless.example/"));
    QStringList captions;
    const QVector<OpenPageEntry> pages = openPageEntries(*store.database());
    for (const OpenPageEntry &page : pages)
        captions.append(page.caption);
    EXPECT_EQ(captions, QStringList({QStringLiteral("https://nameless.example/"),
                                     QStringLiteral("an \"apple\""), QStringLiteral("Zoo")}));
    EXPECT_EQ(pages.at(1).ID, first);
}

} // namespace
