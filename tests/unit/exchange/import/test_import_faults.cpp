#include "TwoDatabases.h"
#include "platform/sqlite/Connection.h"
#include "platform/sqlite/database_file.h"
#include "store/note_database.h"
#include "unit/platform/linux/in_child.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace norvane;
using namespace norvane::test;

namespace {

class ImportFaults : public testing::Test, protected TwoDatabases
{
protected:
    /// What was imported is whole, and nothing else came with it.
    void expectWhole(const ImportResult &result)
    {
        int count = 0;
        for (const auto rows = notes(u"true"_s); !rows->eof(); rows->moveNext(), ++count)
            EXPECT_EQ(files.read(store.bodyFile(rows->field(u"ID"_s).toInt())),
                      rows->field(u"FriendlyName"_s).toString().toUtf8());
        EXPECT_EQ(count, result.imported);
        EXPECT_EQ(QDir(folder.path()).entryList({u"Norvane_*"_s}, QDir::Files).size(), count);
        dao::checkIntegrity(store.DatabaseFile, {});
    }
    /// Notes whose body is their name.
    QVector<int> addOthers(int count, qsizetype length)
    {
        other.store.database()->beginTrans();
        QVector<int> IDs;
        for (int i = 0; i < count; ++i) {
            const QString name = u"note %1 "_s.arg(i).leftJustified(length, u'x');
            IDs.append(addOther(name.left(250), u"u:%1"_s.arg(i) + name, name.left(250).toUtf8()));
        }
        other.store.database()->commitTrans();
        return IDs;
    }
};

TEST_F(ImportFaults, ABodyThatCannotBeCopiedLeavesNoNote)
{
    const QVector<int> IDs = addOthers(3, 10);
    const QString body = other.store.bodyFile(IDs[1]);
    files.remove(body);
    QDir().mkpath(body); // is there, and is no file that can be read
    const ImportResult result = import(IDs);
    EXPECT_EQ(result.failure->number(), kErrorFileAccess);
    EXPECT_EQ(result.imported, 1);
    expectWhole(result);
}

TEST_F(ImportFaults, AFullDiskLeavesWholeNotesAndTellsHowMany)
{
    const QVector<int> IDs = addOthers(400, 4000);
    other.store.close();
    const auto ready = store.DatabaseFile;
    for (const int room : {0, 1'000'000}) {
        // In a child, whose limit on the size of files fails the database's first.
        const int outcome = inChild([&] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit = {static_cast<rlim_t>(QFileInfo(ready).size() + room), RLIM_INFINITY};
            setrlimit(RLIMIT_FSIZE, &limit);
            const ImportResult result = import(IDs);
            if (!result.failure || result.failure->number() != kErrorDiskFull)
                return 1;
            const rlimit none = {RLIM_INFINITY, RLIM_INFINITY};
            setrlimit(RLIMIT_FSIZE, &none);
            files.write(folder.filePath(u"count"_s), QByteArray::number(result.imported));
            return 0;
        });
        ASSERT_EQ(outcome, 0) << room;
        ImportResult result;
        result.imported = bytesOf(folder.filePath(u"count"_s)).toInt();
        EXPECT_LT(result.imported, 400);
        EXPECT_EQ(result.imported > 0, room > 0);
        store.open();
        expectWhole(result);
        store.database()->beginTrans();
        for (const auto rows = notes(u"true"_s); !rows->eof(); rows->moveNext()) {
            QFile::remove(store.bodyFile(rows->field(u"ID"_s).toInt()));
            rows->remove();
        }
        store.database()->commitTrans();
    }
    const ImportResult result = import(IDs);
    EXPECT_EQ(result.imported, 400);
    expectWhole(result);
}

TEST_F(ImportFaults, TheSourceStaysAsItIs)
{
    const QVector<int> IDs = addOthers(60, 3000);
    other.store.close();
    QFile::remove(other.folder.filePath(u".Norvane.DAT.lock"_s)); // as in a copy of the folder
    const auto before = everythingIn(other.folder.path());
    ASSERT_EQ(before.size(), 61);
    EXPECT_EQ(import(IDs).imported, 60);
    EXPECT_EQ(everythingIn(other.folder.path()), before);

    // Nor does anything of it change where that is forbidden.
    chmod(QFile::encodeName(other.folder.path()).constData(), 0555);
    chmod(QFile::encodeName(other.store.DatabaseFile).constData(), 0444);
    EXPECT_EQ(inChild([&] {
                  if (!becomeOrdinaryUser())
                      return 1;
                  const ImportSource source(*engine, other.store.DatabaseFile, {});
                  return source.rows().size() == 60 ? 0 : 2;
              }),
              0);
    chmod(QFile::encodeName(other.folder.path()).constData(), 0755);
    EXPECT_EQ(everythingIn(other.folder.path()), before);
}

TEST_F(ImportFaults, AnInterruptedSaveOfTheSourceIsReadInACopy)
{
    const QVector<int> IDs = addOthers(60, 3000);
    other.store.close();
    const QString file = other.store.DatabaseFile;
    const QString work = folder.filePath(u"work"_s);
    ASSERT_TRUE(QFile::rename(file, work));
    {
        // What a killed program leaves: new pages in the file, the old ones in the journal beside it.
        dao::Connection connection(work, dao::Connection::Mode::ReadWrite, {});
        connection.run("PRAGMA cache_size=2");
        const dao::Transaction transaction(connection, dao::Transaction::Kind::Write);
        connection.run("UPDATE Memos SET URL='half', FriendlyName='half'");
        connection.run("UPDATE Memos SET LocationName=?", {QString(200, u'l')});
        ASSERT_TRUE(QFile::copy(work, file));
        ASSERT_TRUE(QFile::copy(work + u"-journal"_s, file + u"-journal"_s));
    }
    ASSERT_NE(bytesOf(file), bytesOf(work));
    const auto before = everythingIn(other.folder.path());
    const ImportResult result = import(IDs);
    EXPECT_EQ(result.imported, 60);
    expectWhole(result);
    EXPECT_EQ(everythingIn(other.folder.path()), before);
}

TEST_F(ImportFaults, ASourceWithALogIsReadInACopy)
{
    const QVector<int> IDs = addOthers(60, 10);
    other.store.close();
    for (const QString &password : {QString(), u"secret"_s}) {
        if (!password.isEmpty())
            engine->workspace(0)
                ->openDatabase(other.store.DatabaseFile, true, false, {})
                ->newPassword({}, password);
        otherPassword = password;
        const QString file = other.store.DatabaseFile;
        const QString work = folder.filePath(u"work"_s);
        ASSERT_TRUE(QFile::rename(file, work));
        {
            // As another program may leave it: nothing is in the file alone.
            dao::Connection connection(work, dao::Connection::Mode::ReadWrite, password);
            connection.run("PRAGMA journal_mode=WAL");
            connection.run("UPDATE Memos SET LocationName='logged'");
            ASSERT_TRUE(QFile::copy(work, file));
            ASSERT_TRUE(QFile::copy(work + u"-wal"_s, file + u"-wal"_s));
        }
        for (const bool hasLog : {true, false}) {
            if (!hasLog) {
                QFile::remove(file + u"-wal"_s);
                QFile::remove(file);
                ASSERT_TRUE(QFile::rename(work, file));
            }
            chmod(QFile::encodeName(other.folder.path()).constData(), 0555);
            for (const QString &each : {file, QString(file + u"-wal"_s)})
                chmod(QFile::encodeName(each).constData(), 0444);
            const auto before = everythingIn(other.folder.path());
            EXPECT_EQ(inChild([&] {
                          if (!becomeOrdinaryUser())
                              return 1;
                          const ImportSource source(*engine, file, password);
                          const auto logged = source.database().openRecordset(
                              u"select ID from Memos where LocationName='logged'"_s);
                          return logged->recordCount() == 60 ? 0 : 2;
                      }),
                      0);
            EXPECT_EQ(openingFault(*engine, file, u"wrong"_s)->number(), kErrorNotAPassword);
            chmod(QFile::encodeName(other.folder.path()).constData(), 0755);
            EXPECT_EQ(everythingIn(other.folder.path()), before) << hasLog << password.toStdString();
        }
    }
}

TEST_F(ImportFaults, NobodyWritesTheSourceMeanwhile)
{
    addOthers(1, 10);
    other.store.close();
    const QString file = other.store.DatabaseFile;
    const auto save = [&] {
        dao::Connection connection(file, dao::Connection::Mode::ReadWrite, {});
        connection.run("PRAGMA busy_timeout=0");
        connection.run("UPDATE Memos SET URL='new'");
    };
    for (const bool hasSideFile : {true, false}) {
        if (!hasSideFile)
            QFile::remove(other.folder.filePath(u".Norvane.DAT.lock"_s));
        {
            const ImportSource source(*engine, file, {});
            EXPECT_EQ(engine->isLocked(file), hasSideFile);
            EXPECT_EQ(errorOf(save), kErrorLocked);
        }
        EXPECT_EQ(errorOf(save), 0);
    }
    other.store.open();
    EXPECT_EQ(errorOf([&] { const ImportSource again(*engine, file, {}); }), kErrorLocked);
}

} // namespace
