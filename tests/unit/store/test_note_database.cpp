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
    QString temporary() const { return folder.filePath(QStringLiteral("Norvane.tmp")); }
};

TEST_F(NoteDatabase, tellsFilesWithAPasswordFromThoseWithout)
{
    makeDatabase();
    EXPECT_FALSE(DatabaseHasPassword(*engine, store.DatabaseFile));
    EXPECT_TRUE(PasswordIsValid(*engine, store.DatabaseFile, QString()));
    EXPECT_EQ(whatIsInFile(*engine, files, store.DatabaseFile).kind, FileContent::Opens);

    setPassword(QStringLiteral("pass;pwd='word"));
    EXPECT_TRUE(DatabaseHasPassword(*engine, store.DatabaseFile));
    EXPECT_FALSE(PasswordIsValid(*engine, store.DatabaseFile, QStringLiteral("PASS;PWD='WORD")));
    EXPECT_TRUE(PasswordIsValid(*engine, store.DatabaseFile, QStringLiteral("pass;pwd='word")));
    EXPECT_EQ(whatIsInFile(*engine, files, store.DatabaseFile).kind, FileContent::NeedsPassword);
}

TEST_F(NoteDatabase, countsWhatCannotBeOpenedAsOneWithAPassword)
{
    EXPECT_TRUE(DatabaseHasPassword(*engine, store.DatabaseFile));
    EXPECT_EQ(whatIsInFile(*engine, files, store.DatabaseFile).kind, FileContent::Missing);
    put(store.DatabaseFile, "hello");
    EXPECT_TRUE(DatabaseHasPassword(*engine, store.DatabaseFile));
    EXPECT_FALSE(PasswordIsValid(*engine, store.DatabaseFile, QStringLiteral("hello")));
    EXPECT_EQ(whatIsInFile(*engine, files, store.DatabaseFile).kind, FileContent::Unusable);
    EXPECT_EQ(bytes(), "hello");
}

TEST_F(NoteDatabase, isLockedWhileItIsHeldAlone)
{
    EXPECT_FALSE(DatabaseIsLocked(*engine, store.DatabaseFile));
    makeDatabase();
    EXPECT_FALSE(DatabaseIsLocked(*engine, store.DatabaseFile));
    const auto alone = engine->workspace(0)->openDatabase(store.DatabaseFile, true, false, QString());
    EXPECT_TRUE(DatabaseIsLocked(*engine, store.DatabaseFile));
    alone->close();
    EXPECT_FALSE(DatabaseIsLocked(*engine, store.DatabaseFile));
}

TEST_F(NoteDatabase, compactsPastAStaleTemporaryFile)
{
    makeDatabase();
    store.open();
    const int kept = addNote(QStringLiteral("kept"));
    for (int i = 0; i < 50; ++i)
        addNote(QStringLiteral("gone %1 ").arg(i) + QString(200, u'x'));
    const auto gone =
        store.database()->openRecordset(QStringLiteral("select * from Memos where WindowName like 'gone*'"));
    for (; !gone->eof(); gone->moveNext())
        gone->remove();
    gone->close();
    store.close();
    const qint64 before = QFileInfo(store.DatabaseFile).size();
    put(temporary(), "stale");

    EXPECT_TRUE(compact());
    EXPECT_FALSE(QFileInfo::exists(temporary()));
    EXPECT_LT(QFileInfo(store.DatabaseFile).size(), before);
    store.open();
    EXPECT_EQ(store.NoteSet()->recordCount(), 1);
    EXPECT_EQ(store.NoteSet()->field(QStringLiteral("ID")).toInt(), kept);
    // A number is not given twice: a stale body file must not turn up in a new note.
    EXPECT_GT(addNote(QStringLiteral("new")), kept + 50);
}

TEST_F(NoteDatabase, compactsUnderItsPassword)
{
    makeDatabase();
    setPassword(QStringLiteral("secret"));
    const QByteArray before = bytes();
    EXPECT_FALSE(compact(QStringLiteral("wrong")));
    EXPECT_EQ(bytes(), before);
    EXPECT_TRUE(compact(QStringLiteral("secret")));
    EXPECT_TRUE(PasswordIsValid(*engine, store.DatabaseFile, QStringLiteral("secret")));
    EXPECT_TRUE(DatabaseHasPassword(*engine, store.DatabaseFile));
}

TEST_F(NoteDatabase, compactingLeavesAFileAloneThatIsInUseOrNoDatabase)
{
    makeDatabase();
    store.open();
    const QByteArray open = bytes();
    EXPECT_FALSE(compact());
    EXPECT_EQ(bytes(), open);
    store.close();

    files.remove(store.DatabaseFile);
    EXPECT_FALSE(compact());
    put(store.DatabaseFile, "text");
    EXPECT_FALSE(compact());
    EXPECT_EQ(bytes(), "text");
    EXPECT_FALSE(QFileInfo::exists(temporary()));
}

TEST_F(NoteDatabase, ofAnEarlierBuildIsRepairedOnceAndNeverWrittenAgain)
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

} // namespace
