#include "shell/default_sound.h"
#include "unit/shell/lifecycle/StartUpHarness.h"

#include <QFileInfo>
#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::test;

namespace {

class StartingUp : public testing::Test, protected StartUpHarness
{
protected:
    void set(const char *section, const char *key, const char *value)
    {
        settings.save(QString::fromLatin1(section), QString::fromLatin1(key), QString::fromLatin1(value));
    }
};

TEST_F(StartingUp, goesThroughItsStepsInOrder)
{
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_EQ(windows.log.join(u'\n').toStdString(), "splash, database closed\n"
                                                     "yield\n"
                                                     "load frame, database open\n"
                                                     "lock 77\n"
                                                     "move frame\n"
                                                     "minimise frame\n"
                                                     "yield\n"
                                                     "show browser\n"
                                                     "lock 0\n"
                                                     "Refresh_tbCAT\n"
                                                     "tab 1\n"
                                                     "preview\n"
                                                     "interval 400\n"
                                                     "unload splash");
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(StartingUp, aFirstStartMakesAnEmptyDatabaseAndFillsTheSharedState)
{
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_EQ(state.store.DatabaseFolder, notesFolder());
    EXPECT_EQ(state.store.DatabaseFile, databaseFile());
    EXPECT_EQ(state.store.NoteSet()->recordCount(), 0);
    EXPECT_EQ(state.store.CategorySet()->recordCount(), 0);
    EXPECT_TRUE(state.store.CompactOnExit);
    EXPECT_EQ(state.watch.WatchInterval, 400);
    EXPECT_TRUE(state.watch.IEAvailable);
    EXPECT_FALSE(state.watch.ExactWindowName);
    EXPECT_EQ(state.watch.PartialMatchLength, 6);
    EXPECT_EQ(state.watch.TrackedClasses.size(), 13);
    EXPECT_EQ(state.DesktopWindow, windowSystem.desktopWindow());
    EXPECT_NE(state.TaskList, nullptr);
    EXPECT_TRUE(timer.running());
    EXPECT_EQ(state.DefaultSoundFile, programFile(QStringLiteral("MMR1.DLL")));
    EXPECT_EQ(bytesOf(state.DefaultSoundFile), defaultSound());
}

TEST_F(StartingUp, keepsTheUsersSound)
{
    files.write(programFile(QStringLiteral("MMR1.DLL")), "mine");
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_EQ(bytesOf(state.DefaultSoundFile), "mine");
}

TEST_F(StartingUp, followsItsCommandLine)
{
    ASSERT_EQ(run({QStringLiteral("/notimer"), QStringLiteral("/noie")}), StartUp::Result::Running);
    EXPECT_FALSE(timer.running());
    EXPECT_FALSE(state.watch.IEAvailable);
    EXPECT_EQ(state.commandLine.text(), QStringLiteral("/NOTIMER /NOIE"));
}

TEST_F(StartingUp, anIntervalOutOfRangeEndsTheStart)
{
    ASSERT_EQ(run({QStringLiteral("/INTERVAL=99999")}), StartUp::Result::Failed);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes.constFirst().title, QStringLiteral("Norvane Internal Error"));
    EXPECT_EQ(prompts.boxes.constFirst().style, Prompts::kCritical);
    EXPECT_EQ(lastBox().toStdString(),
              "Norvane Startup Failed.\r\nError Code: 6\r\nError Description: Overflow");
    EXPECT_FALSE(QFileInfo::exists(databaseFile()));
}

TEST_F(StartingUp, aSecondInstanceEndsWithoutAWord)
{
    instanceLock.free = false;
    EXPECT_EQ(run(), StartUp::Result::AlreadyRunning);
    EXPECT_TRUE(prompts.boxes.isEmpty());
    EXPECT_TRUE(windows.log.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(notesFolder()));
}

TEST_F(StartingUp, theCustomFolderIsTheSameWithAndWithoutItsSeparator)
{
    const QString custom = folder.filePath(QStringLiteral("custom"));
    for (const QString &setting :
         {custom, custom + u'/', QStringLiteral(" ") + custom + QStringLiteral("/ ")}) {
        StartUpHarness start;
        start.settings.save(QStringLiteral("DB"), QStringLiteral("Database"), setting);
        ASSERT_EQ(start.run(), StartUp::Result::Running);
        EXPECT_EQ(start.state.store.DatabaseFolder, custom + u'/');
        EXPECT_TRUE(QFileInfo::exists(custom + QStringLiteral("/Norvane.DAT")));
    }
}

TEST_F(StartingUp, aFolderWhoseParentIsMissingEndsTheStart)
{
    const QString custom = folder.filePath(QStringLiteral("no/such"));
    settings.save(QStringLiteral("DB"), QStringLiteral("Database"), custom);
    EXPECT_EQ(run(), StartUp::Result::Failed);
    EXPECT_TRUE(lastBox().startsWith(u"Norvane Startup Failed.\r\nError Code: 76\r\n"))
        << lastBox().toStdString();
}

TEST_F(StartingUp, aLockedDatabaseGivesWayToTheDefaultOne)
{
    // Another process that holds the database for itself, as the engine sees it.
    const QString custom = folder.filePath(QStringLiteral("custom"));
    QDir().mkpath(custom);
    const QString file = custom + QStringLiteral("/Norvane.DAT");
    makeNoteDatabase(*engine, files, file);
    const auto held = engine->workspace(0)->openDatabase(file, true, false, QString());
    settings.save(QStringLiteral("DB"), QStringLiteral("Database"), custom);

    ASSERT_EQ(run(), StartUp::Result::Running);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes.constFirst().style, Prompts::kExclamation);
    EXPECT_EQ(prompts.boxes.constFirst().title, QStringLiteral("Norvane"));
    EXPECT_EQ(lastBox(),
              QStringLiteral("The target Norvane database is not available or locked by another user. "
                             "Default database will be used."));
    EXPECT_EQ(state.store.DatabaseFolder, notesFolder());
    EXPECT_EQ(settings.values.value(QStringLiteral("DB")).value(QStringLiteral("Database")), custom);
}

TEST_F(StartingUp, theFrameTakesTheWorkAreaAndItsPlaceTransposed)
{
    ASSERT_EQ(run(), StartUp::Result::Running);
    // 1920 by 1080 pixels at 96 dots per inch
    EXPECT_EQ(windows.framePlace, QRectF(0, 0, 28800, 16200));

    StartUpHarness moved;
    moved.settings.save(QStringLiteral("Main"), QStringLiteral("Top"), QStringLiteral("100"));
    moved.settings.save(QStringLiteral("Main"), QStringLiteral("Left"), QStringLiteral("2000 twips"));
    moved.settings.save(QStringLiteral("Main"), QStringLiteral("Height"), QStringLiteral("9000"));
    ASSERT_EQ(moved.run(), StartUp::Result::Running);
    EXPECT_EQ(moved.windows.framePlace, QRectF(100, 2000, 28800, 9000));
}

TEST_F(StartingUp, theLastCategoryComesBackIfItIsThere)
{
    const QVector<QPair<QString, QString>> rows = {
        {QStringLiteral("1"), QStringLiteral("tab 1")},    {QStringLiteral("3"), QStringLiteral("tab 3")},
        {QStringLiteral("4"), QStringLiteral("tab 1")},    {QStringLiteral("2nd"), QStringLiteral("tab 2")},
        {QStringLiteral("2.4"), QStringLiteral("tab 2")},  {QStringLiteral("0"), QStringLiteral("tab 1")},
        {QStringLiteral("-3"), QStringLiteral("tab 1")},   {QStringLiteral("x"), QStringLiteral("tab 1")},
        {QStringLiteral("1e99"), QStringLiteral("tab 1")},
    };
    for (const auto &[stored, expected] : rows) {
        StartUpHarness start;
        start.settings.save(QStringLiteral("NoteBrowser"), QStringLiteral("LastCategory"), stored);
        ASSERT_EQ(start.run(), StartUp::Result::Running);
        EXPECT_TRUE(start.windows.log.contains(expected)) << stored.toStdString();
    }
}

TEST_F(StartingUp, readsTheFlagOfExactMatching)
{
    set("DB", "ExactWindowName", "1");
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_TRUE(state.watch.ExactWindowName);
}

TEST_F(StartingUp, asksForThePasswordAndKeepsIt)
{
    makeDatabase(QStringLiteral("Ünlock'me\""));
    windows.usePasswordDialog = [this](PasswordDialogModel &model) {
        EXPECT_TRUE(model.passwordCanHelp());
        EXPECT_EQ(model.toolTip(), QStringLiteral("Database: ") + notesFolder());
        EXPECT_EQ(model.Command1_Click(QStringLiteral("wrong")), PasswordDialogModel::Next::SelectText);
        EXPECT_EQ(model.Command1_Click(QStringLiteral("Ünlock'me\"")), PasswordDialogModel::Next::Hide);
    };
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_EQ(windows.log.constFirst(), QStringLiteral("password"));
    EXPECT_EQ(state.store.DatabasePassword, QStringLiteral("Ünlock'me\""));
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(lastBox(), QStringLiteral("Invalid Password!"));
    EXPECT_EQ(prompts.boxes.constFirst().title, QStringLiteral("Norvane Security"));
}

TEST_F(StartingUp, aCancelledPasswordEndsTheStart)
{
    makeDatabase(QStringLiteral("secret"));
    const QByteArray before = bytesOf(databaseFile());
    EXPECT_EQ(run(), StartUp::Result::Failed);
    EXPECT_TRUE(lastBox().startsWith(u"Norvane Startup Failed.\r\nError Code: 3031\r\n"))
        << lastBox().toStdString();
    EXPECT_EQ(bytesOf(databaseFile()), before);
}

TEST_F(StartingUp, finishesADatabaseWhoseMakingWasInterrupted)
{
    QDir().mkpath(notesFolder());
    const auto unfinished = engine->workspace(0)->createDatabase(databaseFile(), QString());
    unfinished->appendTable(categoryTable());
    unfinished->close();
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_EQ(state.store.NoteSet()->recordCount(), 0);
}

} // namespace
