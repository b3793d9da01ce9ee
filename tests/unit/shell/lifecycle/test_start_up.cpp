#include "shell/default_sound.h"
#include "unit/shell/lifecycle/StartUpHarness.h"

#include <QFileInfo>
#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::test;

namespace {

class StartingUp : public testing::Test, protected StartUpHarness
{
};

TEST_F(StartingUp, GoesThroughItsStepsInOrder)
{
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_EQ(windows.log.join(u','), u"splash,yield,load frame*,lock 77*,move frame*,minimise frame*,yield*,"
                                      "show browser*,lock 0*,Refresh_tbCAT*,tab 1*,preview*,interval 400*,"
                                      "unload splash*");
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(StartingUp, MakesAnEmptyDatabaseAtFirstAndFillsTheSharedState)
{
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_EQ(state.store.DatabaseFolder, notesFolder());
    EXPECT_EQ(state.store.DatabaseFile, databaseFile());
    EXPECT_EQ(state.store.NoteSet()->recordCount(), 0);
    EXPECT_EQ(state.store.CategorySet()->recordCount(), 0);
    EXPECT_TRUE(state.store.CompactOnExit);
    EXPECT_TRUE(state.watch.IEAvailable && shellWindows.started);
    EXPECT_FALSE(state.watch.ExactWindowName);
    EXPECT_EQ(state.watch.PartialMatchLength, 6);
    EXPECT_EQ(state.watch.TrackedClasses.size(), 13);
    EXPECT_EQ(state.DesktopWindow, windowSystem.desktopWindow());
    EXPECT_NE(state.TaskList, nullptr);
    EXPECT_TRUE(timer.running());
    EXPECT_EQ(state.DefaultSoundFile, programFile(u"MMR1.DLL"_s));
    EXPECT_EQ(bytesOf(state.DefaultSoundFile), defaultSound());
}

TEST_F(StartingUp, FollowsItsCommandLineAndKeepsTheUsersOwn)
{
    files.write(programFile(u"MMR1.DLL"_s), "mine");
    settings.save(u"DB"_s, u"ExactWindowName"_s, u"1"_s);
    ASSERT_EQ(run({u"/notimer"_s, u"/noie"_s}), StartUp::Result::Running);
    EXPECT_FALSE(timer.running());
    EXPECT_FALSE(state.watch.IEAvailable || shellWindows.started);
    EXPECT_EQ(state.commandLine.text(), u"/NOTIMER /NOIE");
    EXPECT_TRUE(state.watch.ExactWindowName);
    EXPECT_EQ(bytesOf(state.DefaultSoundFile), "mine");
}

TEST_F(StartingUp, AnErrorIsReportedAndEndsTheStart)
{
    ASSERT_EQ(run({u"/INTERVAL=99999"_s}), StartUp::Result::Failed);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes[0].title, u"Norvane Internal Error");
    EXPECT_EQ(prompts.boxes[0].style, Prompts::kCritical);
    EXPECT_EQ(lastBox(), u"Norvane Startup Failed.\r\nError Code: 6\r\nError Description: Overflow");
    EXPECT_FALSE(QFileInfo::exists(databaseFile()));

    // One of a folder whose parent is missing, and one that a window raises.
    settings.save(u"DB"_s, u"Database"_s, folder.filePath(u"no/such"_s));
    EXPECT_EQ(run(), StartUp::Result::Failed);
    EXPECT_TRUE(reported(76)) << lastBox().toStdString();
    settings.values.clear();
    windows.browserFault = 6;
    EXPECT_EQ(run(), StartUp::Result::Failed);
    EXPECT_TRUE(reported(6)) << lastBox().toStdString();
    EXPECT_FALSE(timer.running());
}

TEST_F(StartingUp, ASecondInstanceEndsWithoutAWord)
{
    instanceLock.free = false;
    EXPECT_EQ(run(), StartUp::Result::AlreadyRunning);
    EXPECT_TRUE(prompts.boxes.isEmpty());
    EXPECT_TRUE(windows.log.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(notesFolder()));
}

TEST_F(StartingUp, TheCustomFolderIsTheSameWithAndWithoutItsSeparator)
{
    const QString custom = folder.filePath(u"custom"_s);
    for (const QString &setting : {custom, u" "_s + custom + u"/ "_s}) {
        StartUpHarness start;
        start.settings.save(u"DB"_s, u"Database"_s, setting);
        ASSERT_EQ(start.run(), StartUp::Result::Running);
        EXPECT_EQ(start.state.store.DatabaseFolder, custom + u'/');
        EXPECT_TRUE(QFileInfo::exists(custom + u"/Norvane.DAT"_s));
    }
}

TEST_F(StartingUp, ALockedDatabaseGivesWayToTheDefaultOne)
{
    const QString custom = folder.filePath(u"custom"_s);
    QDir().mkpath(custom);
    makeNoteDatabase(*engine, files, custom + u"/Norvane.DAT"_s);
    const auto held = engine->workspace(0)->openDatabase(custom + u"/Norvane.DAT"_s, false, false, {});
    settings.save(u"DB"_s, u"Database"_s, custom);
    ASSERT_EQ(run(), StartUp::Result::Running);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes[0].style, Prompts::kExclamation);
    EXPECT_EQ(prompts.boxes[0].title, u"Norvane");
    EXPECT_EQ(lastBox(), u"The target Norvane database is not available or locked by another user. "
                         "Default database will be used.");
    EXPECT_EQ(state.store.DatabaseFolder, notesFolder());
    EXPECT_EQ(settings.get(u"DB"_s, u"Database"_s, {}), custom);
}

TEST_F(StartingUp, TheFrameTakesTheWorkAreaOrItsPlaceTransposed)
{
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_EQ(windows.framePlace, QRectF(0, 0, 28800, 16200)); // 1920 by 1080 pixels
    StartUpHarness moved;
    moved.settings.values[u"Main"_s] = {
        {u"Top"_s, u"100"_s}, {u"Left"_s, u"2000 twips"_s}, {u"Height"_s, u"9000"_s}};
    ASSERT_EQ(moved.run(), StartUp::Result::Running);
    EXPECT_EQ(moved.windows.framePlace, QRectF(100, 2000, 28800, 9000));
}

TEST_F(StartingUp, TheLastCategoryComesBackIfItIsThere)
{
    const QVector<QPair<QString, int>> rows = {{u"3"_s, 3}, {u"4"_s, 1}, {u"2nd"_s, 2}, {u"2.4"_s, 2},
                                               {u"0"_s, 1}, {u"x"_s, 1}, {u"1e99"_s, 1}};
    for (const auto &[stored, tab] : rows) {
        StartUpHarness start;
        start.settings.save(u"NoteBrowser"_s, u"LastCategory"_s, stored);
        ASSERT_EQ(start.run(), StartUp::Result::Running);
        EXPECT_TRUE(start.windows.log.contains(u"tab %1*"_s.arg(tab))) << stored.toStdString();
    }
}

TEST_F(StartingUp, AsksForThePasswordAndKeepsIt)
{
    makeDatabase(u"Ünlock'me\""_s);
    const QByteArray before = bytesOf(databaseFile());
    EXPECT_EQ(run(), StartUp::Result::Failed) << "cancelled";
    EXPECT_TRUE(reported(3031)) << lastBox().toStdString();
    EXPECT_EQ(bytesOf(databaseFile()), before);

    windows.usePasswordDialog = [](PasswordDialogModel &model) { model.Command1_Click(u"Ünlock'me\""_s); };
    windows.log.clear();
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_EQ(windows.log.constFirst(), u"password");
    EXPECT_EQ(state.store.DatabasePassword, u"Ünlock'me\"");
}

TEST_F(StartingUp, FinishesADatabaseWhoseMakingWasInterrupted)
{
    QDir().mkpath(notesFolder());
    const auto unfinished = engine->workspace(0)->createDatabase(databaseFile(), QString());
    unfinished->appendTable(categoryTable());
    unfinished->close();
    ASSERT_EQ(run(), StartUp::Result::Running);
    EXPECT_EQ(state.store.NoteSet()->recordCount(), 0);
}

} // namespace
