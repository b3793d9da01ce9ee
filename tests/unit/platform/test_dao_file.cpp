#include "file_bytes.h"
#include "platform/sqlite/Connection.h"
#include "platform/sqlite/FileLock.h"
#include "platform/sqlite/database_file.h"
#include "unit/platform/dao_fixture.h"
#include "unit/platform/linux/in_child.h"

#include <QProcess>
#include <QStandardPaths>
#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace norvane::dao {
namespace {

class FileTest : public DaoTest
{
protected:
    void createSome(int count = 3)
    {
        createNotes();
        for (int i = 0; i < count; ++i)
            add(u"note %1"_s.arg(i), QString(3000, u'u'));
    }

    /// Opening raises the number in every way, and the file stays as it was.
    void expectRefused(int number, const QString &words, const QString &password = {})
    {
        const QByteArray before = bytesOf(file);
        for (const bool readOnly : {false, true}) {
            try {
                open(password, readOnly);
                ADD_FAILURE() << "opened";
            } catch (const RuntimeError &error) {
                EXPECT_EQ(error.number(), number) << error.description().toStdString();
                EXPECT_TRUE(error.description().contains(words)) << error.description().toStdString();
            }
        }
        EXPECT_EQ(bytesOf(file), before);
        EXPECT_FALSE(engine->isLocked(file));
    }
    void expectRefused(int number, const QString &words, const QByteArray &bytes, const QString &password)
    {
        ASSERT_TRUE(putBytes(file, bytes));
        expectRefused(number, words, password);
    }

    int count(const QString &password = {})
    {
        return open(password)->openRecordset(u"select ID from Memos"_s)->recordCount();
    }

    QStringList filesInFolder() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

TEST_F(FileTest, TheStockShellReadsTheFile)
{
    const QString shell = QStandardPaths::findExecutable(u"sqlite3"_s);
    if (shell.isEmpty())
        GTEST_SKIP() << "no sqlite3 here";
    createSome(1);
    QProcess process;
    process.start(shell, {file, u"PRAGMA integrity_check; SELECT WindowName, winWidth, Active FROM Memos"
                                " WHERE WindowName LIKE 'NOTE%' ORDER BY WindowName;"
                                " SELECT name FROM pragma_table_info('Memos') LIMIT 2;"_s});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.readAllStandardOutput(), "ok\nnote 0|5100|-1\nID\nWindowName\n");
}

TEST_F(FileTest, FilesAreForTheUserAlone)
{
    createSome();
    for (const QString &name : filesInFolder())
        EXPECT_EQ(QFileInfo(folder.filePath(name)).permissions() &
                      (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                  QFile::Permissions())
            << name.toStdString();
    EXPECT_EQ(filesInFolder(), QStringList({u".Norvane.DAT.lock"_s, u"Norvane.DAT"_s}));
    EXPECT_EQ(errorOf([&] { workspace->createDatabase(file, {}); }), kErrorFileAccess);
    EXPECT_EQ(errorOf([&] { database->appendTable(memosTable()); }), kErrorDuplicate);
    EXPECT_EQ(errorOf([&] { workspace->createDatabase(folder.filePath(u"no/x"_s), {}); }),
              kErrorPathNotFound);
}

TEST_F(FileTest, ForeignFilesAreRefusedAndLeftAsTheyAre)
{
    expectRefused(kErrorFormat, u"empty"_s, QByteArray(), {});
    expectRefused(kErrorFormat, u"text"_s, QByteArray("Dear diary,\r\n").repeated(400), {});
    expectRefused(kErrorFormat, u"short"_s, QByteArray("\x89PNG\r\n\x1a\n\0\0", 10), {});
    expectRefused(kErrorFormat, u"another kind"_s, QByteArray("PK\x03\x04\xff").repeated(1000), {});
    expectRefused(kErrorFormat, u"zeros"_s, QByteArray(8192, '\0'), {});
    const QByteArray noise = QByteArray("\xc3\x28\x9f\x01").repeated(4096);
    expectRefused(kErrorNotAPassword, u"password"_s, noise, {});
    expectRefused(kErrorNotAPassword, u"password"_s, noise, u"guess"_s);
    ASSERT_TRUE(putBytes(file, {}));
    Connection(file, Connection::Mode::ReadWrite, {}).run("CREATE TABLE Memos(ID INTEGER)");
    expectRefused(kErrorFormat, u"another program"_s);
    QFile::remove(file);
    EXPECT_EQ(errorOf([&] { open(); }), kErrorFileNotFound);
    file = folder.filePath(u"none/Norvane.DAT"_s);
    EXPECT_EQ(errorOf([&] { open(); }), kErrorPathNotFound);
    file = folder.path();
    EXPECT_EQ(errorOf([&] { open(); }), kErrorFileAccess);
}

TEST_F(FileTest, DamagedAndNewerFilesAreRefused)
{
    createSome();
    database.reset();
    const QByteArray whole = bytesOf(file);
    ASSERT_TRUE(whole.startsWith("SQLite format 3"));
    database = open();
    database->newPassword({}, u"pw"_s);
    database.reset();
    const QByteArray keyed = bytesOf(file);
    expectRefused(kErrorFormat, u"missing"_s, keyed.left(keyed.size() / 2 / 4096 * 4096), u"pw"_s);
    expectRefused(kErrorFormat, u"cut short"_s, keyed.left(keyed.size() - 100), u"pw"_s);
    expectRefused(kErrorFormat, u"missing"_s, whole.left(whole.size() - 5000), {});
    expectRefused(kErrorFormat, {}, whole.left(50), {});
    ASSERT_TRUE(putBytes(file, whole));
    Connection(file, Connection::Mode::ReadWrite, {}).run("PRAGMA user_version=2");
    expectRefused(kErrorFormat, u"newer"_s);
}

TEST_F(FileTest, PasswordsAreSetCheckedChangedAndRemoved)
{
    createSome();
    const QString odd = u"p;'\"%&?#/ \u00e4\U0001f600="_s;
    EXPECT_EQ(errorOf([&] { database->newPassword(u"x"_s, odd); }), kErrorNotAPassword);
    auto other = open();
    EXPECT_EQ(errorOf([&] { database->newPassword({}, odd); }), kErrorLocked);
    other.reset();
    const auto index = rows(u"select ID from Memos"_s, RecordsetType::Snapshot);
    const auto set = notes();
    database->newPassword({}, odd);
    EXPECT_EQ(add(u"after"_s), 4) << "the database stays open";
    index->findFirst(u"ID=2"_s);
    EXPECT_EQ(index->field(u"ID"_s), 2);
    EXPECT_EQ(set->field(u"ID"_s), 1);
    index->requery();
    EXPECT_EQ(index->recordCount(), 4);
    database.reset();
    EXPECT_FALSE(bytesOf(file).contains("note 1"));
    expectRefused(kErrorNotAPassword, u"password"_s);
    expectRefused(kErrorNotAPassword, u"password"_s, odd + u'x');
    EXPECT_EQ(count(odd), 4);
    EXPECT_EQ(workspace->openDatabase(file, false, false, u";PWD="_s + odd)->path(), file);
    database = open(odd);
    database->newPassword(odd, u"second"_s);
    database->newPassword(u"second"_s, {});
    database.reset();
    EXPECT_TRUE(bytesOf(file).contains("note 1"));
    EXPECT_EQ(count(), 4);
    expectRefused(kErrorNotAPassword, u"password"_s, odd);
    EXPECT_EQ(filesInFolder().size(), 2) << "nothing is left over";
}

TEST_F(FileTest, AWrongKeyNeverTouchesAnInterruptedSave)
{
    // What a killed program leaves: new pages in the file, the old ones in the journal beside it.
    createSome(60);
    database->newPassword({}, u"pw"_s);
    database.reset();
    const QString work = folder.filePath(u"work"_s);
    ASSERT_TRUE(QFile::rename(file, work));
    {
        Connection connection(work, Connection::Mode::ReadWrite, u"pw"_s);
        connection.run("PRAGMA cache_size=2");
        const Transaction transaction(connection, Transaction::Kind::Write);
        connection.run("UPDATE Memos SET URL='new', WindowName='new'");
        connection.run("UPDATE Memos SET LocationName=?", {QString(200, u'l')});
        ASSERT_TRUE(QFile::copy(work, file));
        ASSERT_TRUE(QFile::copy(work + u"-journal"_s, file + u"-journal"_s));
    }
    ASSERT_NE(bytesOf(file), bytesOf(work));
    const QByteArray journal = bytesOf(file + u"-journal"_s);
    ASSERT_FALSE(journal.left(8) == QByteArray(8, '\0'));
    for (const char16_t *wrong : {u"", u"wrong"}) {
        expectRefused(kErrorNotAPassword, u"password"_s, QStringView(wrong).toString());
        EXPECT_EQ(bytesOf(file + u"-journal"_s), journal);
    }
    EXPECT_EQ(errorOf([&] { engine->replaceDatabase(work, file); }), kErrorFormat);
    // Reading alone rolls back in a copy.
    const QByteArray before = bytesOf(file);
    for (const bool readOnly : {true, false}) {
        database = open(u"pw"_s, readOnly);
        EXPECT_EQ(
            rows(u"select ID from Memos where URL like 'uuu*' and WindowName like 'note*'"_s)->recordCount(),
            60);
        EXPECT_EQ(bytesOf(file) == before && bytesOf(file + u"-journal"_s) == journal, readOnly);
    }
    EXPECT_FALSE(QFileInfo::exists(file + u"-journal"_s));
    checkIntegrity(file, u"pw"_s);
}

TEST_F(FileTest, SavesManyTogetherOrNotAtAll)
{
    createSome(1);
    database->reserveNumbers(u"memos"_s, 3);
    database->beginTrans();
    EXPECT_EQ(add(u"a"_s), 2);
    EXPECT_EQ(open()->openRecordset(u"select ID from Memos"_s)->recordCount(), 1) << "not yet";
    database->rollback();
    database->rollback();
    EXPECT_EQ(notes()->recordCount(), 1);
    EXPECT_EQ(errorOf([&] { database->commitTrans(); }), kErrorNothingThere);

    database->beginTrans();
    EXPECT_EQ(add(u"b"_s), 3) << "the first number is gone";
    EXPECT_EQ(errorOf([&] { add(QString(300, u'x')); }), kErrorFieldTooLong);
    EXPECT_EQ(errorOf([&] {
                  const auto target = notes(u"false"_s);
                  target->addNew();
                  target->update();
              }),
              kErrorRequired);
    EXPECT_EQ(add(u"c"_s), 5) << "behind the reserved ones";
    database->commitTrans();
    EXPECT_EQ(ids(u"select ID from Memos"_s), u"1 3 5 ");
    database->reserveNumbers(u"Memos"_s, 2);
    database = open();
    EXPECT_EQ(ids(u"select ID from Memos"_s), u"1 3 5 ");
    EXPECT_EQ(add(u"d"_s), 8) << "what was reserved is never given out again";
    EXPECT_EQ(errorOf([&] { open({}, true)->beginTrans(); }), kErrorReadOnly);
}

TEST_F(FileTest, CompactsIntoANewFile)
{
    createSome(40);
    for (int i = 0; i < 30; ++i)
        notes()->remove();
    const QString copy = folder.filePath(u"Norvane.tmp"_s);
    EXPECT_EQ(errorOf([&] { engine->compactDatabase(file, copy, {}); }), kErrorLocked);
    database->newPassword({}, u"pw"_s);
    database.reset();
    EXPECT_EQ(errorOf([&] { engine->compactDatabase(file, copy, {}); }), kErrorNotAPassword);
    EXPECT_FALSE(QFileInfo::exists(copy));
    const qint64 size = QFileInfo(file).size();
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    engine->compactDatabase(file, copy, u"pw"_s);
    EXPECT_LE(QFileInfo(copy).size(), size);
    engine->replaceDatabase(copy, file);
    EXPECT_EQ(bytesOf(file), bytesOf(copy));
    EXPECT_TRUE(QFileInfo(file).permission(QFile::ReadGroup)) << "permissions stay";
    database = open(u"pw"_s);
    EXPECT_EQ(notes()->recordCount(), 10);
    EXPECT_EQ(add(u"new"_s), 41) << "numbers are not used again";
    EXPECT_EQ(errorOf([&] { engine->replaceDatabase(copy, file); }), kErrorLocked);
    database.reset();

    // A save between the copy and its use is not lost.
    QFile::remove(copy);
    engine->compactDatabase(file, copy, u"pw"_s);
    database = open(u"pw"_s);
    add(u"between"_s);
    database.reset();
    EXPECT_EQ(errorOf([&] { engine->replaceDatabase(copy, file); }), kErrorLocked);
    EXPECT_EQ(count(u"pw"_s), 12);
}

TEST_F(FileTest, TheLockProbeLooksAtTheSideFileOnly)
{
    EXPECT_FALSE(engine->isLocked(file)) << "no such file";
    createSome();
    EXPECT_TRUE(engine->isLocked(file));
    const auto other = makeSqliteEngine();
    EXPECT_TRUE(other->isLocked(file));
    // An open transaction of this process keeps its locks while the probe runs.
    Connection connection(file, Connection::Mode::ReadWrite, {});
    Transaction transaction(connection, Transaction::Kind::Write);
    connection.run("UPDATE Memos SET winWidth=1");
    EXPECT_TRUE(engine->isLocked(file));
    const int descriptor = ::open(QFile::encodeName(file).constData(), O_RDWR | O_CLOEXEC);
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    EXPECT_EQ(fcntl(descriptor, F_OFD_GETLK, &lock), 0);
    EXPECT_NE(lock.l_type, F_UNLCK) << "the lock of the transaction is gone";
    ::close(descriptor);
    transaction.commit();
    database.reset();
    EXPECT_FALSE(engine->isLocked(file));
    const auto alone = open({}, false, true);
    EXPECT_TRUE(engine->isLocked(file));
    EXPECT_EQ(errorOf([&] { open({}, true, true); }), kErrorLocked);
}

/// Sets the rights of a path for everybody.
void permit(const QString &path, mode_t mode)
{
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), mode), 0);
}

TEST_F(FileTest, WithoutRightsNothingIsWrittenAndTheErrorIsClear)
{
    createSome(1);
    database.reset();
    const QByteArray before = bytesOf(file);
    const struct
    {
        mode_t fileMode;
        mode_t folderMode;
        bool sideFile;
        int writing; ///< errors
        int reading;
    } rows[] = {{0444, 0777, true, kErrorReadOnly, 0},
                {0666, 0555, true, kErrorFileAccess, 0},
                {0666, 0555, false, kErrorFileAccess, 0},
                {0002, 0555, false, kErrorFileAccess, kErrorFileAccess}};
    for (const auto &row : rows) {
        if (!row.sideFile)
            QFile::remove(folder.filePath(u".Norvane.DAT.lock"_s));
        permit(file, row.fileMode);
        permit(folder.path(), row.folderMode);
        const int wrong = test::inChild([&] {
            if (!test::becomeOrdinaryUser())
                return 3;
            return (errorOf([&] { open(); }) == row.writing ? 0 : 1) +
                   (errorOf([&] { open({}, true); }) == row.reading ? 0 : 2);
        });
        EXPECT_EQ(wrong, 0) << row.fileMode << ' ' << row.folderMode;
        permit(folder.path(), 0777);
    }
    EXPECT_EQ(bytesOf(file), before);
}

TEST_F(FileTest, AFullDiskLeavesTheFileAsItWas)
{
    createSome(20);
    database.reset();
    const auto limitFiles = [](rlim_t bytes) {
        rlimit limit = {bytes, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &limit);
    };
    for (const int room : {0, 8192, 500000}) {
        // Save, save with room again, password, compact.
        EXPECT_EQ(test::inChild([&] {
                      std::signal(SIGXFSZ, SIG_IGN);
                      const auto full = [](const std::function<void()> &call) {
                          return errorOf(call) == kErrorDiskFull ? 0 : 1;
                      };
                      database = open();
                      limitFiles(static_cast<rlim_t>(QFileInfo(file).size() + room));
                      int wrong = full([&] { add(u"n"_s, QString(2'000'000, u'u')); });
                      limitFiles(RLIM_INFINITY);
                      add(u"n"_s);
                      limitFiles(static_cast<rlim_t>(QFileInfo(file).size() / 2));
                      wrong += 2 * full([&] { database->newPassword({}, u"secret"_s); });
                      database.reset();
                      return wrong + 4 * full([&] { engine->compactDatabase(file, file + u".tmp"_s, {}); });
                  }),
                  0);
        EXPECT_EQ(filesInFolder().size(), 2) << "nothing is left over";
        checkIntegrity(file, {});
    }
    EXPECT_EQ(count(), 20 + 3);
}

} // namespace
} // namespace norvane::dao
