#include "faults/NoteFaults.h"
#include "file_bytes.h"
#include "platform/linux/PosixFileSystem.h"
#include "platform/sqlite/SqliteEngine.h"
#include "store/note_schema.h"

#include <QDir>

using namespace norvane;
using namespace norvane::test;

namespace {

const QString kPassword = QStringLiteral("open sesame");

/// Starts on a database that is not as it should be. What a person is told stands on the screen, and
/// the file stays as it was.
class BadDatabase : public NoteFaults
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(startDesktop({}));
        QDir().mkpath(norvane.notesFolder());
    }

    /// Puts a sound database in place.
    void makeDatabase(const QString &password = {})
    {
        PosixFileSystem files;
        const auto engine = dao::makeSqliteEngine();
        makeNoteDatabase(*engine, files, norvane.databaseFile());
        if (password.isEmpty())
            return;
        const auto database =
            engine->workspace(0)->openDatabase(norvane.databaseFile(), false, false, QString());
        database->newPassword(QString(), password);
        database->close();
    }

    /// The start has failed: a box tells the error, and the process ends.
    void expectFailure()
    {
        ASSERT_NE(norvane.windowTitled(QStringLiteral("Norvane Internal Error")), 0u);
        desktop.x().press(QStringLiteral("Return"));
        ASSERT_TRUE(waitFor([&] { return !norvane.isRunning(); }));
        EXPECT_EQ(norvane.process()->exitStatus(), QProcess::NormalExit) << qPrintable(norvane.errorOutput());
        EXPECT_EQ(norvane.process()->exitCode(), 1);
    }
};

TEST_F(BadDatabase, AForeignFileIsLeftAlone)
{
    const QByteArray diary = QByteArray("Dear diary,\n").repeated(900);
    ASSERT_TRUE(putBytes(norvane.databaseFile(), diary));
    ASSERT_TRUE(norvane.start());
    ASSERT_NE(norvane.windowTitled(QStringLiteral("Norvane Password")), 0u);
    desktop.x().press(QStringLiteral("Escape"));
    ASSERT_NO_FATAL_FAILURE(expectFailure());
    EXPECT_EQ(bytesOf(norvane.databaseFile()), diary);
}

TEST_F(BadDatabase, APasswordIsAskedUntilItIsRightOrThePersonGivesUp)
{
    makeDatabase(kPassword);
    const QByteArray before = bytesOf(norvane.databaseFile());
    for (const bool knowsIt : {false, true}) {
        ASSERT_TRUE(norvane.start());
        ASSERT_NE(norvane.windowTitled(QStringLiteral("Norvane Password")), 0u);
        desktop.x().type(QStringLiteral("open barley\n"));
        ASSERT_NE(norvane.windowTitled(QStringLiteral("Norvane Security")), 0u);
        desktop.x().press(QStringLiteral("Return"));
        ASSERT_NE(norvane.windowTitled(QStringLiteral("Norvane Password")), 0u);
        EXPECT_EQ(bytesOf(norvane.databaseFile()), before);
        if (knowsIt) {
            desktop.x().type(kPassword + u'\n');
            EXPECT_TRUE(waitFor([&] { return norvane.isArmed(); }));
            EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());
        } else {
            desktop.x().press(QStringLiteral("Escape"));
            ASSERT_NO_FATAL_FAILURE(expectFailure());
            EXPECT_EQ(bytesOf(norvane.databaseFile()), before);
        }
    }
}

} // namespace
