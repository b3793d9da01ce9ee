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

QString reportBegin(int number)
{
    return QStringLiteral("Norvane Startup Failed.\r\nError Code: %1\r\nError Description: ").arg(number);
}

/// Bytes of a sound database.
QByteArray soundDatabase()
{
    StartUpHarness other;
    other.makeDatabase();
    return StartUpHarness::bytesOf(other.databaseFile());
}

/// The same, told to be of a later build: the number stands at a fixed place of the file.
QByteArray newerDatabase()
{
    QByteArray bytes = soundDatabase();
    constexpr qsizetype kUserVersion = 60;
    bytes.replace(kUserVersion, 4, QByteArray::fromHex("00000fff"));
    return bytes;
}

struct Broken
{
    const char *name;
    QByteArray bytes;
    const char *explanation; ///< a part of what the dialog says
};

TEST(BrokenDatabase, bringsThePasswordDialogWhichSaysWhatItFound)
{
    const QByteArray sound = soundDatabase();
    const std::vector<Broken> rows = {
        {"empty", QByteArray(), "empty"},
        {"text", QByteArray("Dear diary,\nthis is no database.\n").repeated(500), "text"},
        {"foreign", QByteArray::fromHex("89504e470d0a1a0a") + QByteArray(4000, '\xAB'), "not a database"},
        {"truncated", sound.left(sound.size() / 2), "damaged"},
        {"cut in a page", sound.left(700), ""},
        {"newer", newerDatabase(), "newer version"},
    };
    for (const Broken &row : rows) {
        SCOPED_TRACE(row.name);
        StartUpHarness start;
        start.putDatabase(row.bytes);
        EXPECT_EQ(start.run(), StartUp::Result::Failed);
        EXPECT_EQ(start.windows.passwordDialogs, 1);
        EXPECT_THAT(start.windows.explanation.toStdString(), HasSubstr(row.explanation));
        EXPECT_THAT(start.windows.explanation.toStdString(),
                    HasSubstr("Select another database, or cancel."));
        EXPECT_TRUE(start.lastBox().startsWith(reportBegin(3343))) << start.lastBox().toStdString();
        EXPECT_EQ(StartUpHarness::bytesOf(start.databaseFile()), row.bytes);
    }
}

TEST(BrokenDatabase, canBeLeftForAnotherOne)
{
    StartUpHarness other;
    other.makeDatabase();
    StartUpHarness start;
    start.putDatabase("no database");
    start.prompts.folders.enqueue(other.notesFolder().chopped(1));
    start.windows.usePasswordDialog = [](PasswordDialogModel &model) {
        EXPECT_FALSE(model.passwordCanHelp());
        EXPECT_EQ(model.Command3_Click(), PasswordDialogModel::Next::Hide);
    };
    EXPECT_EQ(start.run(), StartUp::Result::Running);
    EXPECT_EQ(start.state.store.DatabaseFolder, other.notesFolder());
    EXPECT_EQ(start.state.store.database()->path(), other.databaseFile());
}

/// What a start in a child process came to.
enum ChildResult { kAsExpected, kStarted, kOtherReport, kFileChanged, kNoRights };

/// Starts as an ordinary user, who must be told the error of that number.
int startWithoutRights(StartUpHarness &start, int number)
{
    if (!becomeOrdinaryUser())
        return kNoRights;
    const QByteArray before = StartUpHarness::bytesOf(start.databaseFile());
    if (start.run() != StartUp::Result::Failed)
        return kStarted;
    if (!start.lastBox().startsWith(reportBegin(number)))
        return kOtherReport;
    return StartUpHarness::bytesOf(start.databaseFile()) == before ? kAsExpected : kFileChanged;
}

/// Gives everything below the harness's folder to the user that the child becomes.
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

void setMode(const QString &path, mode_t mode)
{
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), mode), 0);
}

TEST(UnwritableDatabase, readOnlyFile)
{
    StartUpHarness start;
    start.makeDatabase();
    giveAway(start.folder.path());
    setMode(start.databaseFile(), 0400);
    EXPECT_EQ(inChild([&] { return startWithoutRights(start, 3027); }), kAsExpected);
}

TEST(UnwritableDatabase, readOnlyFolder)
{
    StartUpHarness start;
    start.makeDatabase();
    giveAway(start.folder.path());
    setMode(start.notesFolder(), 0500);
    EXPECT_EQ(inChild([&] { return startWithoutRights(start, 75); }), kAsExpected);
    setMode(start.notesFolder(), 0700);
}

TEST(UnwritableDatabase, unreadableFile)
{
    StartUpHarness start;
    start.makeDatabase();
    giveAway(start.folder.path());
    setMode(start.databaseFile(), 0000);
    EXPECT_EQ(inChild([&] { return startWithoutRights(start, 3027); }), kAsExpected);
}

TEST(UnwritableDatabase, noneCanBeMadeInAReadOnlyFolder)
{
    StartUpHarness start;
    QDir().mkpath(start.notesFolder());
    giveAway(start.folder.path());
    setMode(start.notesFolder(), 0500);
    EXPECT_EQ(inChild([&] { return startWithoutRights(start, 75); }), kAsExpected);
    setMode(start.notesFolder(), 0700);
}

TEST(UnwritableDatabase, noneCanBeMadeOnAFullDisk)
{
    // Full before the file has its first page, and full while the tables are made.
    for (const rlim_t room : {1000u, 20000u}) {
        SCOPED_TRACE(room);
        StartUpHarness start;
        start.files.write(start.programFile(QStringLiteral("MMR1.DLL")), "there already");
        const int result = inChild([&] {
            const rlimit limit = {room, room};
            std::signal(SIGXFSZ, SIG_IGN);
            if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
                return int(kNoRights);
            if (start.run() != StartUp::Result::Failed)
                return int(kStarted);
            if (!start.lastBox().startsWith(reportBegin(3026)))
                return int(kOtherReport);
            return int(kAsExpected);
        });
        EXPECT_EQ(result, kAsExpected);
        // Nothing is left behind that the next start could trip over.
        EXPECT_EQ(start.run(), StartUp::Result::Running);
    }
}

} // namespace
