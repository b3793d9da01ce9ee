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
    void SetUp() override
    {
        makeDatabase();
        store.open();
    }
};

TEST_F(NoteStoreOnDisk, LeavesNothingOpenAfterAFailure)
{
    store.DatabasePassword = u"wrong"_s;
    EXPECT_EQ(errorOf([this] { store.open(); }), kErrorNotAPassword);
    EXPECT_EQ(store.database(), nullptr);
    EXPECT_EQ(store.NoteSet(), nullptr);
    EXPECT_EQ(store.NoteIndex(), nullptr);
    EXPECT_EQ(store.CategorySet(), nullptr);
    EXPECT_EQ(errorOf([this] { store.requeryNoteIndex(); }), kErrorNothingThere);
    EXPECT_EQ(errorOf([this] { store.requeryNoteSet(); }), kErrorNothingThere);
}

TEST_F(NoteStoreOnDisk, ShowsANewNoteInTheIndexOnlyAfterItsRequery)
{
    const auto found = [this] {
        store.NoteIndex()->findFirst(u"WindowName='x'"_s);
        return !store.NoteIndex()->noMatch();
    };
    EXPECT_EQ(store.NoteIndex()->fieldNames().join(u','),
              u"ID,WindowName,URL,Active,FriendlyName,LocationName,ClassName");
    EXPECT_EQ(errorOf([this] { store.NoteIndex()->addNew(); }), kErrorReadOnly);
    const quint64 opened = store.noteChangeCount();
    const int ID = addNote(u"x"_s);
    store.requeryNoteSet();
    EXPECT_FALSE(found());
    EXPECT_EQ(store.noteChangeCount(), opened);
    store.requeryNoteIndex();
    EXPECT_TRUE(found());
    EXPECT_EQ(store.noteChangeCount(), opened + 1) << "answers kept from it are old";
    EXPECT_EQ(store.notesChangedSince(opened), QSet<int>{ID});
    EXPECT_EQ(store.notesChangedSince(opened + 1), QSet<int>()) << "nothing since";
    store.open();
    EXPECT_EQ(store.notesChangedSince(opened), std::nullopt) << "another database, perhaps";
    EXPECT_EQ(store.noteChangeCount(), opened + 2);
}

TEST_F(NoteStoreOnDisk, NamesBodyFilesByEightDigits)
{
    EXPECT_EQ(store.bodyFile(7), store.DatabaseFolder + u"Norvane_00000007"_s);
    EXPECT_EQ(store.bodyFile(123456789), store.DatabaseFolder + u"Norvane_123456789"_s);
}

TEST_F(NoteStoreOnDisk, SavesARowAndNothingElseOfIt)
{
    addNote(u"Other"_s);
    const int ID = addNote(u"Page"_s);
    const QDateTime time(QDate(2001, 2, 3), QTime(4, 5, 6));
    const QString text = u"'quotes\" | שלום 😀\n"_s.repeated(300);
    SaveNoteRow(store, ID, {time, QRectF(15.5, -30.4, 5100.5, 1e6), text});

    const auto row = notes(u"NoteText is not null"_s);
    EXPECT_EQ(row->recordCount(), 1);
    const std::pair<QString, QVariant> expected[] = {{u"ID"_s, ID},         {u"LastUpdate"_s, time},
                                                     {u"winLeft"_s, 16},    {u"Wintop"_s, -30},
                                                     {u"winWidth"_s, 5100}, {u"winHeight"_s, 1000000},
                                                     {u"NoteText"_s, text}, {u"FriendlyName"_s, u"Page"_s}};
    for (const auto &[field, value] : expected)
        EXPECT_EQ(row->field(field), value) << field.toStdString();
}

TEST_F(NoteStoreOnDisk, SaysWhyARowCannotBeSaved)
{
    const int ID = addNote(u"Page"_s);
    const auto save = [this](int id, const QRectF &place) {
        return errorOf([&] { SaveNoteRow(store, id, {QDateTime::currentDateTime(), place, {}}); });
    };
    EXPECT_EQ(save(ID + 1, QRectF(0, 0, 1, 1)), kErrorNoCurrentRecord);
    EXPECT_EQ(save(ID, QRectF(1e10, 0, 1, 1)), kErrorOverflow);
    EXPECT_EQ(save(ID, QRectF(0, qQNaN(), 1, 1)), kErrorOverflow);
    EXPECT_EQ(save(ID, QRectF(0, 0, 1, 1)), 0);
    store.close();
    EXPECT_EQ(save(ID, QRectF(0, 0, 1, 1)), kErrorNothingThere);
}

TEST_F(NoteStoreOnDisk, OffersThePagesOfNotesWithALocation)
{
    addNote(u"Zoo"_s, u"https://zoo.example/"_s);
    addNote(u"plain"_s, QString());
    addNote(u"blank"_s, u"   "_s);
    addNote(u"null"_s);
    const int apple = addNote(u"an \"apple\""_s, u"/home/user/apple"_s);
    addNote(u" "_s, u"https://nameless.example/"_s);
    QStringList captions;
    const QVector<OpenPageEntry> pages = openPageEntries(*store.database());
    for (const OpenPageEntry &page : pages)
        captions.append(page.caption);
    EXPECT_EQ(captions.join(u','), u"https://nameless.example/,an \"apple\",Zoo");
    EXPECT_EQ(pages.at(1).ID, apple);
}

} // namespace
