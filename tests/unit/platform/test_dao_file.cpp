#include "platform/sqlite/Connection.h"
#include "platform/sqlite/FileLock.h"
#include "platform/sqlite/database_file.h"
#include "unit/platform/dao_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <fcntl.h>
#include <unistd.h>

namespace norvane::dao {
namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

class FileTest : public DaoTest
{
protected:
    void createSome(int notes = 3)
    {
        createNotes();
        for (int i = 0; i < notes; ++i)
            add(QStringLiteral("note %1").arg(i), QString(3000, u'u'));
    }

    /// Opening raises the number in every way, and the file stays as it was.
    void expectRefused(int number, const QString &words, const QString &password = {})
    {
        const QByteArray before = contents(file);
        for (const bool readOnly : {false, true}) {
            try {
                open(password, readOnly);
                ADD_FAILURE() << "opened";
            } catch (const RuntimeError &error) {
                EXPECT_EQ(error.number(), number) << error.description().toStdString();
                EXPECT_TRUE(error.description().contains(words)) << error.description().toStdString();
            }
        }
        EXPECT_EQ(contents(file), before);
        EXPECT_FALSE(engine->isLocked(file));
    }

    int count(const QString &password = {})
    {
        return open(password)->openRecordset(QStringLiteral("select ID from Memos"))->recordCount();
    }

    QStringList filesInFolder() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

TEST_F(FileTest, DefinitionsComeBackExactly)
{
    createNotes();
    TableDef other;
    other.name = QStringLiteral("Category");
    FieldDef name;
    name.name = QStringLiteral("Name");
    name.size = 50;
    name.defaultValue = QStringLiteral("It's \"new\"");
    name.ordinalPosition = 22;
    name.required = true;
    name.validationRule = QStringLiteral("r");
    name.validationText = QStringLiteral("t");
    other.fields = {name};
    other.attributes = 3;
    other.connect = QStringLiteral("c");
    other.sourceTableName = QStringLiteral("s");
    database->appendTable(other);
    database->setAllowZeroLength(QStringLiteral("memos"), QStringLiteral("windowname"), false);
    database.reset();
    database = open();
    const QVector<TableDef> tables = database->tableDefs();
    ASSERT_EQ(tables.size(), 2);
    TableDef expected = notesTable();
    expected.fields[1].allowZeroLength = false;
    for (const auto &[table, original] : {std::pair(tables[0], expected), std::pair(tables[1], other)}) {
        EXPECT_EQ(table.name, original.name);
        EXPECT_EQ(table.attributes, original.attributes);
        EXPECT_EQ(table.connect, original.connect);
        EXPECT_EQ(table.sourceTableName, original.sourceTableName);
        ASSERT_EQ(table.fields.size(), original.fields.size());
        for (int i = 0; i < table.fields.size(); ++i) {
            const FieldDef &a = table.fields[i];
            const FieldDef &b = original.fields[i];
            EXPECT_EQ(std::tie(a.name, a.type, a.size, a.attributes, a.defaultValue, a.ordinalPosition,
                               a.required, a.allowZeroLength, a.validationRule, a.validationText),
                      std::tie(b.name, b.type, b.size, b.attributes, b.defaultValue, b.ordinalPosition,
                               b.required, b.allowZeroLength, b.validationRule, b.validationText))
                << a.name.toStdString();
        }
        ASSERT_EQ(table.indexes.size(), original.indexes.size());
        for (int i = 0; i < table.indexes.size(); ++i) {
            const IndexDef &a = table.indexes[i];
            const IndexDef &b = original.indexes[i];
            EXPECT_EQ(std::tie(a.name, a.field, a.primary, a.unique, a.required, a.clustered, a.ignoreNulls),
                      std::tie(b.name, b.field, b.primary, b.unique, b.required, b.clustered, b.ignoreNulls));
        }
    }
    EXPECT_EQ(errorOf([&] { database->appendTable(notesTable()); }), kErrorDuplicate);
    const QByteArray before = contents(file);
    database->setAllowZeroLength(QStringLiteral("Memos"), QStringLiteral("WindowName"), false);
    EXPECT_EQ(contents(file), before) << "nothing was to be changed";
    const auto note = rows(QStringLiteral("select * from Memos where false"));
    note->addNew();
    EXPECT_EQ(errorOf([&] { note->setField(QStringLiteral("WindowName"), QString(QLatin1String(""))); }),
              kErrorNotZeroLength);
}

TEST_F(FileTest, TheStockShellReadsTheFile)
{
    const QString shell = QStandardPaths::findExecutable(QStringLiteral("sqlite3"));
    if (shell.isEmpty())
        GTEST_SKIP() << "no sqlite3 here";
    createSome(1);
    QProcess process;
    process.start(
        shell, {file, QStringLiteral("PRAGMA integrity_check; SELECT WindowName, winWidth, Active FROM Memos"
                                     " WHERE WindowName LIKE 'NOTE%' ORDER BY WindowName;"
                                     " SELECT name FROM pragma_table_info('Memos') LIMIT 2;")});
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
    EXPECT_EQ(filesInFolder(),
              QStringList({QStringLiteral(".Norvane.DAT.lock"), QStringLiteral("Norvane.DAT")}));
    EXPECT_EQ(errorOf([&] { workspace->createDatabase(file, {}); }), kErrorFileAccess);
    EXPECT_EQ(errorOf([&] { workspace->createDatabase(folder.filePath(QStringLiteral("no/x")), {}); }),
              kErrorPathNotFound);
}

TEST_F(FileTest, ForeignFilesAreRefusedAndLeftAsTheyAre)
{
    write(file, {});
    expectRefused(kErrorFormat, QStringLiteral("empty"));
    write(file, QByteArray("Dear diary,\r\n").repeated(400));
    expectRefused(kErrorFormat, QStringLiteral("text"));
    write(file, QByteArray("\x89PNG\r\n\x1a\n\0\0", 10));
    expectRefused(kErrorFormat, QStringLiteral("short"));
    write(file, QByteArray("PK\x03\x04\xff").repeated(1000));
    expectRefused(kErrorFormat, QStringLiteral("another kind"));
    write(file, QByteArray(8192, '\0'));
    expectRefused(kErrorFormat, QStringLiteral("zeros"));
    write(file, QByteArray("\xc3\x28\x9f\x01").repeated(4096));
    expectRefused(kErrorNotAPassword, QStringLiteral("password"));
    expectRefused(kErrorNotAPassword, QStringLiteral("password"), QStringLiteral("guess"));
    QFile::remove(file);
    {
        write(file, {});
        Connection(file, Connection::Mode::ReadWrite, {}).run("CREATE TABLE Memos(ID INTEGER)");
    }
    expectRefused(kErrorFormat, QStringLiteral("another program"));
    QFile::remove(file);
    EXPECT_EQ(errorOf([&] { open(); }), kErrorFileNotFound);
    file = folder.filePath(QStringLiteral("none/Norvane.DAT"));
    EXPECT_EQ(errorOf([&] { open(); }), kErrorPathNotFound);
    file = folder.path();
    EXPECT_EQ(errorOf([&] { open(); }), kErrorFileAccess);
}

TEST_F(FileTest, DamagedAndNewerFilesAreRefused)
{
    createSome();
    database->newPassword({}, QStringLiteral("pw"));
    database.reset();
    const QByteArray keyed = contents(file);
    write(file, keyed.left(keyed.size() / 2 / 4096 * 4096));
    expectRefused(kErrorFormat, QStringLiteral("missing"), QStringLiteral("pw"));
    write(file, keyed.left(keyed.size() - 100));
    expectRefused(kErrorFormat, QStringLiteral("cut short"), QStringLiteral("pw"));
    write(file, keyed);
    database = open(QStringLiteral("pw"));
    database->newPassword(QStringLiteral("pw"), {});
    database.reset();
    const QByteArray whole = contents(file);
    ASSERT_TRUE(whole.startsWith("SQLite format 3"));
    write(file, whole.left(whole.size() - 5000));
    expectRefused(kErrorFormat, QStringLiteral("missing"));
    write(file, whole.left(50));
    expectRefused(kErrorFormat, QString());
    write(file, whole);
    Connection(file, Connection::Mode::ReadWrite, {}).run("PRAGMA user_version=2");
    expectRefused(kErrorFormat, QStringLiteral("newer"));
}

TEST_F(FileTest, PasswordsAreSetCheckedChangedAndRemoved)
{
    createSome();
    const QString odd = QStringLiteral("p;'\"%&?#/ \u00e4\U0001f600=");
    EXPECT_EQ(errorOf([&] { database->newPassword(QStringLiteral("x"), odd); }), kErrorNotAPassword);
    const auto index = rows(QStringLiteral("select ID from Memos"), RecordsetType::Snapshot);
    const auto notes = rows(QStringLiteral("select * from Memos"));
    database->newPassword({}, odd);
    EXPECT_EQ(add(QStringLiteral("after")), 4) << "the database stays open";
    index->findFirst(QStringLiteral("ID=2"));
    EXPECT_EQ(index->field(QStringLiteral("ID")), QVariant(2));
    EXPECT_EQ(notes->field(QStringLiteral("ID")), QVariant(1));
    index->requery();
    EXPECT_EQ(index->recordCount(), 4);
    database.reset();
    EXPECT_FALSE(contents(file).contains("note 1"));
    expectRefused(kErrorNotAPassword, QStringLiteral("password"));
    expectRefused(kErrorNotAPassword, QStringLiteral("password"), odd + u'x');
    EXPECT_EQ(count(odd), 4);
    EXPECT_EQ(workspace->openDatabase(file, false, false, QStringLiteral(";PWD=") + odd)->path(), file);
    database = open(odd);
    database->newPassword(odd, QStringLiteral("second"));
    database->newPassword(QStringLiteral("second"), {});
    database.reset();
    EXPECT_TRUE(contents(file).contains("note 1"));
    EXPECT_EQ(count(), 4);
    expectRefused(kErrorNotAPassword, QStringLiteral("password"), odd);
    EXPECT_EQ(filesInFolder().size(), 2) << "nothing is left over";
}

TEST_F(FileTest, APasswordChangeNeedsTheFileForItself)
{
    createSome();
    const auto other = open();
    EXPECT_EQ(errorOf([&] { database->newPassword({}, QStringLiteral("pw")); }), kErrorLocked);
    EXPECT_EQ(add(QStringLiteral("still open")), 4);
    EXPECT_EQ(other->openRecordset(QStringLiteral("select ID from Memos"))->recordCount(), 4);
}

TEST_F(FileTest, AWrongKeyNeverTouchesAnInterruptedSave)
{
    // What a killed program leaves: new pages in the file, the old ones in the journal beside it.
    createSome(60);
    database->newPassword({}, QStringLiteral("pw"));
    database.reset();
    const QString work = folder.filePath(QStringLiteral("work"));
    ASSERT_TRUE(QFile::rename(file, work));
    {
        Connection connection(work, Connection::Mode::ReadWrite, QStringLiteral("pw"));
        connection.run("PRAGMA cache_size=2");
        const Transaction transaction(connection, Transaction::Kind::Write);
        connection.run("UPDATE Memos SET URL='new', WindowName='new'");
        connection.run("UPDATE Memos SET LocationName=?", {QString(200, u'l')});
        ASSERT_TRUE(QFile::copy(work, file));
        ASSERT_TRUE(QFile::copy(work + QStringLiteral("-journal"), file + QStringLiteral("-journal")));
    }
    ASSERT_NE(contents(file), contents(work));
    const QByteArray journal = contents(file + QStringLiteral("-journal"));
    ASSERT_FALSE(journal.left(8) == QByteArray(8, '\0'));
    for (const char16_t *wrong : {u"", u"wrong"}) {
        expectRefused(kErrorNotAPassword, QStringLiteral("password"), QStringView(wrong).toString());
        EXPECT_EQ(contents(file + QStringLiteral("-journal")), journal);
    }
    EXPECT_EQ(errorOf([&] { engine->replaceDatabase(work, file); }), kErrorFormat);
    // Reading alone rolls back too.
    database = open(QStringLiteral("pw"), true);
    EXPECT_EQ(rows(QStringLiteral("select ID from Memos where URL like 'uuu*' and WindowName like 'note*'"))
                  ->recordCount(),
              60);
    EXPECT_FALSE(QFileInfo::exists(file + QStringLiteral("-journal")));
    checkIntegrity(file, QStringLiteral("pw"));
}

TEST_F(FileTest, CompactsIntoANewFile)
{
    createSome(40);
    for (int i = 0; i < 30; ++i)
        rows(QStringLiteral("select * from Memos"))->remove();
    const QString copy = folder.filePath(QStringLiteral("Norvane.tmp"));
    EXPECT_EQ(errorOf([&] { engine->compactDatabase(file, copy, {}); }), kErrorLocked);
    database->newPassword({}, QStringLiteral("pw"));
    database.reset();
    EXPECT_EQ(errorOf([&] { engine->compactDatabase(file, copy, {}); }), kErrorNotAPassword);
    EXPECT_FALSE(QFileInfo::exists(copy));
    const qint64 size = QFileInfo(file).size();
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    engine->compactDatabase(file, copy, QStringLiteral("pw"));
    EXPECT_LE(QFileInfo(copy).size(), size);
    engine->replaceDatabase(copy, file);
    EXPECT_EQ(contents(file), contents(copy));
    EXPECT_TRUE(QFileInfo(file).permission(QFile::ReadGroup)) << "permissions stay";
    database = open(QStringLiteral("pw"));
    EXPECT_EQ(rows(QStringLiteral("select * from Memos"))->recordCount(), 10);
    EXPECT_EQ(add(QStringLiteral("new")), 41) << "numbers are not used again";
    EXPECT_EQ(errorOf([&] { engine->replaceDatabase(copy, file); }), kErrorLocked);
    database.reset();

    // A save between the copy and its use is not lost.
    QFile::remove(copy);
    engine->compactDatabase(file, copy, QStringLiteral("pw"));
    database = open(QStringLiteral("pw"));
    add(QStringLiteral("between"));
    database.reset();
    EXPECT_EQ(errorOf([&] { engine->replaceDatabase(copy, file); }), kErrorLocked);
    EXPECT_EQ(count(QStringLiteral("pw")), 12);
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

} // namespace
} // namespace norvane::dao
