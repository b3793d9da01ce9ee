#include "unit/platform/linux/in_child.h"
#include "unit/shell/lifecycle/StartUpHarness.h"

#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace norvane;
using namespace norvane::test;

namespace {

using testing::HasSubstr;

TEST(BrokenDatabase, BringsThePasswordDialogWhichSaysWhatItFound)
{
    StartUpHarness other;
    other.makeDatabase();
    const QByteArray sound = bytesOf(other.databaseFile());
    QByteArray newer = sound;
    constexpr qsizetype kUserVersion = 60; // where the file tells which build made it
    newer.replace(kUserVersion, 4, QByteArray::fromHex("00000fff"));

    const std::pair<QByteArray, const char *> rows[] = {
        {QByteArray(), "empty"},
        {QByteArray("Dear diary,\nthis is no database.\n").repeated(500), "text"},
        {QByteArray::fromHex("89504e470d0a1a0a") + QByteArray(4000, '\xAB'), "not a database"},
        {sound.left(sound.size() / 2), "damaged"},
        {newer, "newer version"},
    };
    for (const auto &[bytes, explanation] : rows) {
        SCOPED_TRACE(explanation);
        StartUpHarness start;
        QDir().mkpath(start.notesFolder());
        start.files.write(start.databaseFile(), bytes);
        EXPECT_EQ(start.run(), StartUp::Result::Failed);
        EXPECT_EQ(start.windows.passwordDialogs, 1);
        EXPECT_THAT(start.windows.explanation.toStdString(), HasSubstr(explanation));
        EXPECT_THAT(start.windows.explanation.toStdString(),
                    HasSubstr("Select another database, or cancel."));
        EXPECT_TRUE(start.reported(3343)) << start.lastBox().toStdString();
        EXPECT_EQ(bytesOf(start.databaseFile()), bytes);

        // The dialog leads to another one.
        start.prompts.folders.enqueue(other.notesFolder().chopped(1));
        start.windows.usePasswordDialog = [](PasswordDialogModel &model) { model.Command3_Click(); };
        EXPECT_EQ(start.run(), StartUp::Result::Running);
        EXPECT_EQ(start.state.store.DatabaseFolder, other.notesFolder());
        EXPECT_EQ(start.state.store.database()->path(), other.databaseFile());
    }
}

/// What a start in a child process came to.
enum ChildResult { kAsExpected, kStarted, kOtherReport, kFileChanged, kNoRights };

/// A start that must end with the report of an error of that number, and the file as it was.
int failingStart(StartUpHarness &start, int number)
{
    const QByteArray before = bytesOf(start.databaseFile());
    if (start.run() != StartUp::Result::Failed)
        return kStarted;
    if (!start.reported(number))
        return kOtherReport;
    return bytesOf(start.databaseFile()) == before ? kAsExpected : kFileChanged;
}

/// Gives everything below a folder to the user that the child becomes.
void giveAway(const QString &path)
{
    constexpr uid_t kNobody = 65534;
    if (geteuid() != 0)
        return;
    const QStringList names = QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &name : names)
        giveAway(path + u'/' + name);
    ASSERT_EQ(chown(QFile::encodeName(path).constData(), kNobody, kNobody), 0);
}

TEST(UnwritableDatabase, IsReportedAndLeftAsItIs)
{
    const struct
    {
        const char *what;
        bool database;
        mode_t fileMode;
        mode_t folderMode;
        int number;
    } rows[] = {{"read-only file", true, 0400, 0700, 3027},
                {"unreadable file", true, 0000, 0700, 3027},
                {"read-only folder", true, 0600, 0500, 75},
                {"none can be made", false, 0600, 0500, 75}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        StartUpHarness start;
        QDir().mkpath(start.notesFolder());
        if (row.database)
            start.makeDatabase();
        giveAway(start.folder.path());
        chmod(QFile::encodeName(start.databaseFile()).constData(), row.fileMode);
        chmod(QFile::encodeName(start.notesFolder()).constData(), row.folderMode);
        EXPECT_EQ(
            inChild([&] { return becomeOrdinaryUser() ? failingStart(start, row.number) : int(kNoRights); }),
            kAsExpected);
        chmod(QFile::encodeName(start.notesFolder()).constData(), 0700);
    }
}

TEST(UnwritableDatabase, IsNotLeftBehindOnAFullDisk)
{
    // Full before the file has its first page, and full while the tables are made.
    for (const rlim_t room : {1000u, 20000u}) {
        SCOPED_TRACE(room);
        StartUpHarness start;
        start.files.write(start.programFile(u"MMR1.DLL"_s), "there already");
        EXPECT_EQ(inChild([&] {
                      const rlimit limit = {room, room};
                      std::signal(SIGXFSZ, SIG_IGN);
                      return setrlimit(RLIMIT_FSIZE, &limit) == 0 ? failingStart(start, 3026)
                                                                  : int(kNoRights);
                  }),
                  kAsExpected);
        EXPECT_EQ(start.run(), StartUp::Result::Running);
    }
}

} // namespace
