#include "OptionsLogic.h"
#include "options/settings/PasswordChange.h"
#include "options/settings/RecentFolders.h"
#include "unit/platform/linux/in_child.h"

#include <QFile>
#include <QFileInfo>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace norvane;
using namespace norvane::test;
using Outcome = DatabaseChange::Outcome;

namespace {

const QString kAsk = u"36 Norvane database not found. Do you want to create a new database?"_s;
const QString kProceed = u"52 Norvane database path has been changed. | Are you sure you want to proceed?"_s;

class ChangingTheDatabase : public testing::Test, protected OptionsLogic
{
protected:
    Outcome change(const QString &folderText, bool asDefault = false)
    {
        return DatabaseChange(parts.database).changeTo(folderText, asDefault);
    }
    /// No file can grow, which to a process is a full disk. Only in a child.
    static bool fillDisk()
    {
        const rlimit none = {0, 0};
        return ::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &none) == 0;
    }
    /// Nothing has happened to the open database, to the clock and to the settings.
    void expectUntouched()
    {
        EXPECT_EQ(note(), u"here");
        EXPECT_EQ(store.DatabaseFolder, folder.path() + u'/');
        EXPECT_EQ(store.DatabaseFile, databaseFileIn(folder.path() + u'/'));
        EXPECT_TRUE(store.DatabasePassword.isEmpty());
        EXPECT_EQ(timer.interval(), watch.WatchInterval);
        EXPECT_TRUE(settings.values.isEmpty());
    }
};

TEST_F(ChangingTheDatabase, MakesAMissingOneAndComesBack)
{
    fakes::script(prompts.answers, {Prompts::kYes, Prompts::kYes});
    EXPECT_EQ(change(otherFolder, true), Outcome::Changed);
    EXPECT_EQ(boxes(), QStringList({kAsk, kProceed}));
    EXPECT_EQ(store.database()->path(), otherFile);
    EXPECT_EQ(note(), QString());
    EXPECT_EQ(settings.values[u"DB"_s][u"Database"_s], otherFolder);
    EXPECT_EQ(settings.values[u"DB"_s][u"MRU1"_s], otherFolder);
    EXPECT_EQ(timer.interval(), watch.WatchInterval);
    addNote(u"there"_s);

    EXPECT_EQ(change(otherFolder.toUpper()), Outcome::Same);
    fakes::script(prompts.answers, {Prompts::kYes});
    EXPECT_EQ(change(folder.path() + u'/'), Outcome::Changed);
    EXPECT_EQ(note(), u"here");
    EXPECT_EQ(settings.values[u"DB"_s][u"Database"_s], otherFolder) << "the default stays";
    EXPECT_EQ(settings.values[u"DB"_s][u"MRU1"_s], folder.path() + u'/');
}

TEST_F(ChangingTheDatabase, StopsAtEachNoWithTheOldOneOpen)
{
    EXPECT_EQ(change(otherFolder), Outcome::Stopped);
    EXPECT_FALSE(QFile::exists(otherFile));
    fakes::script(prompts.answers, {Prompts::kYes, Prompts::kNo});
    EXPECT_EQ(change(otherFolder), Outcome::Declined);
    fakes::script(prompts.answers, {Prompts::kYes});
    editorsMayClose = false;
    EXPECT_EQ(change(otherFolder), Outcome::Stopped);
    EXPECT_EQ(log.last(), u"editors");
    expectUntouched();
}

TEST_F(ChangingTheDatabase, StopsAtAFolderThatWillNotDo)
{
    // Gone, and not to be made; of another kind of file system; taken.
    fakes::script(prompts.answers, {Prompts::kYes});
    EXPECT_EQ(change(folder.filePath(u"gone/"_s)), Outcome::Stopped);
    EXPECT_TRUE(boxes().last().startsWith(u"16 The database could not be created."));
    fakes::script(prompts.answers, {Prompts::kYes});
    EXPECT_EQ(change(u"/proc/"_s), Outcome::Stopped);
    EXPECT_TRUE(boxes().last().startsWith(u"16 The database could not be created."));

    makeNoteDatabase(*engine, files, otherFile);
    {
        const auto user = engine->workspace(0)->openDatabase(otherFile, false, false, {});
        EXPECT_EQ(change(otherFolder), Outcome::Stopped);
        EXPECT_EQ(boxes().last(), u"16 Can not start Norvane database. | Database located in '"_s +
                                      otherFolder + u"' is currently locked by another user."_s);
    }
    // Opens, and is no note database: the program must not end of it.
    QFile::remove(otherFile);
    engine->workspace(0)->createDatabase(otherFile, {})->close();
    const QByteArray bare = bytesOf(otherFile);
    fakes::script(prompts.answers, {Prompts::kYes, Prompts::kYes});
    editorsMayClose = false;
    EXPECT_EQ(change(otherFolder), Outcome::Stopped);
    EXPECT_EQ(bytesOf(otherFile), bare) << "not written before the last question";
    expectUntouched();
    editorsMayClose = true;
    EXPECT_EQ(change(otherFolder), Outcome::Changed) << "it is made whole";
    addNote(u"there"_s);
    EXPECT_FALSE(log.contains(u"program ends"_s));
}

TEST_F(ChangingTheDatabase, NeedsTheRightPassword)
{
    makeNoteDatabase(*engine, files, otherFile);
    setPassword(otherFile, u"sesame"_s);
    for (const QString &typed : {QString(), u"guess"_s}) {
        typedPassword = typed;
        fakes::script(prompts.answers, {Prompts::kYes});
        EXPECT_EQ(change(otherFolder), Outcome::Stopped);
        EXPECT_EQ(log.last(), u"password for "_s + otherFile);
        expectUntouched();
    }
    typedPassword = u"sesame"_s;
    fakes::script(prompts.answers, {Prompts::kYes});
    EXPECT_EQ(change(otherFolder), Outcome::Changed);
    EXPECT_EQ(store.DatabasePassword, u"sesame");
    EXPECT_EQ(store.database()->path(), otherFile);

    fakes::script(prompts.answers, {Prompts::kYes});
    EXPECT_EQ(change(folder.path() + u'/'), Outcome::Changed);
    EXPECT_TRUE(store.DatabasePassword.isEmpty());
    // A file of another kind looks like one with a password that nothing satisfies.
    files.write(otherFile, "shopping list");
    fakes::script(prompts.answers, {Prompts::kYes});
    EXPECT_EQ(change(otherFolder), Outcome::Stopped);
    EXPECT_EQ(bytesOf(otherFile), "shopping list");
}

TEST_F(ChangingTheDatabase, LeavesAFolderThatHasVanished)
{
    makeNoteDatabase(*engine, files, otherFile);
    QFile::remove(store.DatabaseFile);
    fakes::script(prompts.answers, {Prompts::kYes});
    EXPECT_EQ(change(otherFolder), Outcome::Changed);
    EXPECT_EQ(store.database()->path(), otherFile);
    EXPECT_FALSE(QFile::exists(databaseFileIn(folder.path() + u'/')));
}

TEST_F(ChangingTheDatabase, LeavesAFolderThatVanishesWhileItIsOpen)
{
    store.CompactOnExit = true;
    fakes::script(prompts.answers, {Prompts::kYes, Prompts::kYes});
    ASSERT_EQ(change(otherFolder), Outcome::Changed);
    addNote(u"there"_s);
    ASSERT_TRUE(QDir(otherFolder).removeRecursively());
    EXPECT_NE(errorOf([&] { addNote(u"late"_s); }), 0) << "not lost without a word";
    fakes::script(prompts.answers, {Prompts::kYes});
    EXPECT_EQ(change(folder.path() + u'/'), Outcome::Changed);
    EXPECT_EQ(note(), u"here");
    EXPECT_FALSE(QFile::exists(otherFolder));
}

TEST_F(ChangingTheDatabase, GoesToAnotherDiskAndBack)
{
    const QTemporaryDir memory(u"/dev/shm/norvane-XXXXXX"_s);
    struct stat here = {};
    struct stat there = {};
    if (!memory.isValid() || ::stat(QFile::encodeName(folder.path()).constData(), &here) != 0 ||
        ::stat(QFile::encodeName(memory.path()).constData(), &there) != 0 || here.st_dev == there.st_dev)
        GTEST_SKIP() << "there is one disk alone";
    // A database is compacted by way of the program's folder, which stands on the first.
    store.CompactOnExit = true;
    fakes::script(prompts.answers, {Prompts::kYes, Prompts::kYes});
    ASSERT_EQ(change(memory.path() + u'/'), Outcome::Changed);
    addNote(u"there"_s);
    fakes::script(prompts.answers, {Prompts::kYes, Prompts::kYes});
    EXPECT_EQ(change(folder.path() + u'/'), Outcome::Changed);
    EXPECT_EQ(note(), u"here");
    EXPECT_EQ(change(memory.path() + u'/'), Outcome::Changed);
    EXPECT_EQ(note(), u"there");
}

TEST_F(ChangingTheDatabase, StopsAtAFolderThatCannotBeWritten)
{
    makeNoteDatabase(*engine, files, otherFile);
    store.close();
    // For an ordinary user, to whom permissions count.
    for (const QString &each : {folder.path(), store.DatabaseFile, otherFolder, otherFile}) {
        QFile::remove(QFileInfo(each).path() + u"/.Norvane.DAT.lock"_s);
        ASSERT_EQ(::chown(QFile::encodeName(each).constData(), kNobody, kNobody), ::geteuid() == 0 ? 0 : -1);
    }
    const QByteArray there = bytesOf(otherFile);
    for (const bool isThere : {true, false}) {
        ASSERT_EQ(::chmod(QFile::encodeName(otherFolder).constData(), 0755), 0);
        if (!isThere)
            QFile::remove(otherFile);
        ASSERT_EQ(::chmod(QFile::encodeName(otherFolder).constData(), 0555), 0);
        const int result = inChild([&] {
            if (!becomeOrdinaryUser())
                return 1;
            store.open();
            fakes::script(prompts.answers, {Prompts::kYes});
            EXPECT_EQ(change(otherFolder), Outcome::Stopped);
            EXPECT_TRUE(boxes().last().startsWith(isThere ? u"16 Can not start Norvane database. | "
                                                          : u"16 The database could not be created."))
                << boxes().join(u'\n').toStdString();
            expectUntouched();
            return HasFailure() ? 2 : 0;
        });
        EXPECT_EQ(result, 0);
        EXPECT_EQ(bytesOf(otherFile), isThere ? there : QByteArray());
    }
    ASSERT_EQ(::chmod(QFile::encodeName(otherFolder).constData(), 0755), 0);
}

TEST_F(ChangingTheDatabase, OnAFullDiskLeavesBothAsTheyAre)
{
    store.CompactOnExit = true;
    store.close();
    const QByteArray here = bytes();
    EXPECT_EQ(inChild([&] {
                  store.open();
                  if (!fillDisk())
                      return 1;
                  fakes::script(prompts.answers, {Prompts::kYes});
                  EXPECT_EQ(change(otherFolder), Outcome::Stopped);
                  EXPECT_TRUE(boxes().last().startsWith(u"16 The database could not be created."));
                  expectUntouched();
                  return HasFailure() ? 2 : 0;
              }),
              0);
    EXPECT_FALSE(QFile::exists(otherFile));
    EXPECT_EQ(bytes(), here);

    makeNoteDatabase(*engine, files, otherFile);
    const QByteArray there = bytesOf(otherFile);
    EXPECT_EQ(inChild([&] {
                  store.open();
                  if (!fillDisk())
                      return 1;
                  fakes::script(prompts.answers, {Prompts::kYes, Prompts::kYes});
                  EXPECT_EQ(change(otherFolder), Outcome::Changed) << "to look at it takes no room";
                  EXPECT_EQ(change(folder.path() + u'/'), Outcome::Changed);
                  EXPECT_EQ(note(), u"here");
                  return HasFailure() ? 2 : 0;
              }),
              0);
    EXPECT_EQ(bytes(), here);
    EXPECT_EQ(bytesOf(otherFile), there);
}

TEST_F(ChangingTheDatabase, ChangesThePasswordOfTheOpenOne)
{
    EXPECT_FALSE(changePassword(store, prompts, u"x"_s, u"new"_s, u"new"_s));
    EXPECT_FALSE(changePassword(store, prompts, {}, u"new"_s, u"New"_s));
    EXPECT_TRUE(store.DatabasePassword.isEmpty());
    EXPECT_TRUE(changePassword(store, prompts, {}, u"new"_s, u"new"_s));
    EXPECT_EQ(store.DatabasePassword, u"new");
    EXPECT_FALSE(bytes().contains("here"));
    EXPECT_EQ(note(), u"here") << "it goes on";
    EXPECT_FALSE(changePassword(store, prompts, {}, {}, {}));
    EXPECT_TRUE(changePassword(store, prompts, u"new"_s, {}, {}));
    EXPECT_TRUE(bytes().contains("here"));
    store.close();
    store.DatabasePassword = u"new"_s;
    EXPECT_FALSE(changePassword(store, prompts, u"new"_s, u"other"_s, u"other"_s));
    EXPECT_EQ(boxes(),
              QStringList(
                  {u"48 Current password is not correct."_s, u"48 Confirmation field does not match."_s,
                   u"64 Database password has been changed."_s, u"48 Current password is not correct."_s,
                   u"64 Database password has been changed."_s, u"16 Error changing Database password."_s}));
}

TEST(RecentFolders, KeepFiveNewestFirstAndKnowThoseThatAreThere)
{
    fakes::MemorySettings settings;
    RecentFolders recent(settings);
    for (const char16_t *name : {u"/a/", u"/b/", u"/c/", u"/B/", u"/d/", u"/e/", u"/f/"})
        recent.AddMRU(QString::fromUtf16(name));
    EXPECT_EQ(recent.list().join(u' '), u"/f/ /e/ /d/ /c/ /b/");
    settings.save(u"DB"_s, u"MRU2"_s, {});
    EXPECT_EQ(recent.list().join(u' '), u"/f/ /d/ /c/ /b/");
}

} // namespace
