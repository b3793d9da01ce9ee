#include "faults/NoteFaults.h"
#include "file_bytes.h"
#include "harness/NotificationService.h"

#include <QDir>
#include <sys/resource.h>

using namespace norvane;
using namespace norvane::test;

namespace {

/// What becomes of a note's files.
using Bodies = FaultsAroundLetters;

/// Files of a process cannot grow beyond a number of bytes: to the process a full disk.
bool limitFiles(qint64 process, rlim_t bytes)
{
    const rlimit limit = {bytes, RLIM_INFINITY};
    return ::prlimit(static_cast<pid_t>(process), RLIMIT_FSIZE, &limit, nullptr) == 0;
}

TEST_F(Bodies, AFullDiskHarmsNoFileAndLosesNoText)
{
    NotificationService notifications(desktop.sessionBus());
    ASSERT_TRUE(notifications.isThere());
    // A disk that is full sends no signal, as the limit would.
    RunningNorvane limited(desktop, QStringLiteral("env"));
    ASSERT_TRUE(arm(limited, {QStringLiteral("--ignore-signal=XFSZ"), QStringLiteral(NORVANE_PROGRAM)}));
    const qint64 process = limited.process()->processId();
    const xcb_window_t note = limited.attach(window);
    ASSERT_NE(note, 0u);
    ASSERT_TRUE(append(note, QStringLiteral("First.")));
    desktop.x().press(QStringLiteral("ctrl+s"));
    ASSERT_TRUE(waitFor([&] { return limited.body(1).contains("First."); }));
    const QByteArray body = limited.body(1);
    const QByteArray database = bytesOf(limited.databaseFile());

    // A save that fails, and one that goes well when there is room again: the note had stayed dirty.
    ASSERT_TRUE(limitFiles(process, 0));
    ASSERT_TRUE(append(note, QStringLiteral(" Second.")));
    desktop.x().press(QStringLiteral("ctrl+s"));
    ASSERT_TRUE(append(note, QStringLiteral(" Third."))); // what shows came after the save
    EXPECT_EQ(limited.body(1), body);
    EXPECT_EQ(bytesOf(limited.databaseFile()), database);
    ASSERT_TRUE(limitFiles(process, RLIM_INFINITY));
    desktop.x().press(QStringLiteral("ctrl+s"));
    EXPECT_TRUE(waitFor([&] { return limited.body(1).contains("First. Second. Third."); }));
    EXPECT_EQ(limited.query(QStringLiteral("select NoteText from Memos")).toStdString(),
              "First. Second. Third.");

    // The window goes while there is no room for the database: the text is in a file of its own.
    const QByteArray saved = limited.body(1);
    ASSERT_TRUE(append(note, QStringLiteral(" Fourth.")));
    constexpr rlim_t kRoomForSmallFiles = 3000;
    ASSERT_TRUE(limitFiles(process, kRoomForSmallFiles));
    other.close(window);
    ASSERT_TRUE(waitFor([&] { return !desktop.x().exists(note); }));
    const QDir rescued(limited.notesFolder() + QStringLiteral("/Rescued"));
    ASSERT_TRUE(waitFor([&] { return !notifications.texts().isEmpty(); }));
    const QStringList files = rescued.entryList(QDir::Files);
    ASSERT_EQ(files.size(), 1) << qPrintable(notifications.texts().join(u'\n'));
    const QByteArray rescue = bytesOf(rescued.filePath(files.constFirst()));
    EXPECT_TRUE(isWholeRtf(rescue));
    EXPECT_TRUE(rescue.contains("First. Second. Third. Fourth.")) << rescue.constData();
    EXPECT_TRUE(notifications.texts().constFirst().contains(rescued.path()));
    EXPECT_EQ(limited.body(1), saved);
    EXPECT_TRUE(DatabaseCopy(limited).isWhole());

    // No room at all: that is told too, each time.
    ASSERT_TRUE(limitFiles(process, RLIM_INFINITY));
    window = other.open("Letters");
    ASSERT_TRUE(waitFor([&] { return limited.noteOn(window) != 0; }));
    const xcb_window_t again = limited.noteOn(window);
    ASSERT_TRUE(append(again, QStringLiteral(" Lost.")));
    ASSERT_TRUE(limitFiles(process, 0));
    other.close(window);
    ASSERT_TRUE(waitFor([&] { return notifications.texts().size() == 2; }));
    EXPECT_TRUE(notifications.texts().constLast().contains(QStringLiteral("its last changes are lost")));
    ASSERT_TRUE(limitFiles(process, RLIM_INFINITY));
    EXPECT_EQ(limited.body(1), saved);
    EXPECT_TRUE(DatabaseCopy(limited).isWhole());
    EXPECT_TRUE(limited.end()) << qPrintable(limited.errorOutput());
}

} // namespace
