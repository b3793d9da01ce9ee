#include "platform/errors.h"
#include "store/note_database.h"
#include "store/what_is_in_file.h"
#include "unit/store/StoreOnDisk.h"

#include <QFileInfo>

using namespace norvane;
using namespace norvane::test;

namespace {

class NoteDatabase : public testing::Test, protected StoreOnDisk
{
protected:
    bool compact(const QString &password = {})
    {
        return CompactNoteDatabase(*engine, files, store.DatabaseFile, store.programFolder, password);
    }
    bool opensWith(const QString &password) { return PasswordIsValid(*engine, store.DatabaseFile, password); }
    void expectContent(FileContent content, bool hasPassword)
    {
        EXPECT_EQ(whatIsInFile(*engine, files, store.DatabaseFile).kind, content);
        EXPECT_EQ(DatabaseHasPassword(*engine, store.DatabaseFile), hasPassword);
    }
    QString temporary() const { return folder.filePath(u"Norvane.tmp"_s); }
};

TEST_F(NoteDatabase, WithoutAPasswordIsToldFromAnythingElse)
{
    expectContent(FileContent::Missing, true);
    files.write(store.DatabaseFile, "hello");
    expectContent(FileContent::Unusable, true);
    EXPECT_FALSE(opensWith(u"hello"_s));
    EXPECT_EQ(bytes(), "hello");
    files.remove(store.DatabaseFile);

    makeDatabase();
    expectContent(FileContent::Opens, false);
    setPassword(store.DatabaseFile, u"pass;pwd='word"_s);
    expectContent(FileContent::NeedsPassword, true);
    EXPECT_FALSE(opensWith(u"PASS;PWD='WORD"_s));
    EXPECT_TRUE(opensWith(u"pass;pwd='word"_s));
}

TEST_F(NoteDatabase, CompactsPastAStaleTemporaryFile)
{
    makeDatabase();
    store.open();
    const int kept = addNote(u"kept"_s);
    for (int i = 0; i < 50; ++i)
        addNote(u"gone %1 "_s.arg(i) + QString(200, u'x'));
    for (const auto gone = notes(u"WindowName like 'gone*'"_s); !gone->eof(); gone->moveNext())
        gone->remove();
    const QByteArray open = bytes();
    EXPECT_FALSE(compact()) << "it is in use";
    EXPECT_EQ(bytes(), open);
    store.close();
    files.write(temporary(), "stale");

    EXPECT_TRUE(compact());
    EXPECT_FALSE(QFileInfo::exists(temporary()));
    EXPECT_LT(bytes().size(), open.size());
    store.open();
    EXPECT_EQ(store.NoteSet()->recordCount(), 1);
    EXPECT_EQ(store.NoteSet()->field(u"ID"_s), QVariant(kept));
}

TEST_F(NoteDatabase, OfAnEarlierBuildIsRepairedOnceAndNeverWrittenAgain)
{
    dao::TableDef memos = memosTable();
    memos.fields[1].allowZeroLength = false;
    const auto old = engine->workspace(0)->createDatabase(store.DatabaseFile, QString());
    old->appendTable(categoryTable());
    old->appendTable(memos);
    old->close();

    store.open();
    EXPECT_GT(addNote(QString()), 0); // an empty window name, which the old file refused
    store.close();
    const QByteArray repaired = bytes();
    store.open();
    store.close();
    EXPECT_EQ(bytes(), repaired);
}

TEST_F(NoteDatabase, IsNotPutOverAFileThatIsThere)
{
    makeDatabase();
    const QByteArray before = bytes();
    EXPECT_FALSE(CreateNoteDatabase(*engine, files, store.DatabaseFile));
    EXPECT_EQ(bytes(), before);
    const QString nowhere = folder.filePath(u"none/Norvane.DAT"_s);
    EXPECT_FALSE(CreateNoteDatabase(*engine, files, nowhere));
    EXPECT_EQ(errorOf([&] { makeNoteDatabase(*engine, files, nowhere); }), kErrorPathNotFound);
}

} // namespace
