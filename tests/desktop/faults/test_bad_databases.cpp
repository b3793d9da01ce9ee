#include "faults/AccessibleTexts.h"
#include "faults/NoteFaults.h"
#include "platform/linux/PosixFileSystem.h"
#include "platform/sqlite/SqliteEngine.h"
#include "store/note_schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <unistd.h>

using namespace norvane::test;

namespace {

const QString kPassword = QStringLiteral("open sesame");

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Starts on a database that is not as it should be. What a person is told stands on the screen, and
/// the file stays as it was.
class BadDatabase : public NoteFaults
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(startDesktop({}));
        QDir().mkpath(norvane.notesFolder());
        texts = std::make_unique<AccessibleTexts>(
            desktop.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    }

    void put(const QByteArray &bytes)
    {
        QFile file(norvane.databaseFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// Puts a sound database in place.
    void makeDatabase(const QString &password = {})
    {
        norvane::PosixFileSystem files;
        const auto engine = norvane::dao::makeSqliteEngine();
        norvane::makeNoteDatabase(*engine, files, norvane.databaseFile());
        if (password.isEmpty())
            return;
        const auto database =
            engine->workspace(0)->openDatabase(norvane.databaseFile(), false, false, QString());
        database->newPassword(QString(), password);
        database->close();
    }

    /// A window of the program by its title, with the keyboard; 0 when it does not come.
    xcb_window_t windowTitled(const RunningNorvane &program, const QString &title)
    {
        xcb_window_t found = 0;
        waitFor([&] {
            for (const xcb_window_t window : program.shownWindows()) {
                if (desktop.x().title(window) == title)
                    found = window;
            }
            return found != 0 && desktop.x().activeWindow() == found;
        });
        return found;
    }

    /// Whether the program's windows say something.
    bool says(const RunningNorvane &program, const QString &text)
    {
        return waitFor([&] { return texts->of(program.process()->processId()).join(u'\n').contains(text); });
    }

    std::string told(const RunningNorvane &program)
    {
        return texts->of(program.process()->processId()).join(u'\n').toStdString();
    }

    /// The start has failed: a box tells the error, and the process ends.
    void expectFailure(RunningNorvane &program, int number)
    {
        ASSERT_NE(windowTitled(program, QStringLiteral("Norvane Internal Error")), 0u) << told(program);
        EXPECT_TRUE(says(program, QStringLiteral("Norvane Startup Failed."))) << told(program);
        EXPECT_TRUE(says(program, QStringLiteral("Error Code: %1").arg(number))) << told(program);
        desktop.x().press(QStringLiteral("Return"));
        ASSERT_TRUE(waitFor([&] { return !program.isRunning(); }));
        EXPECT_EQ(program.process()->exitStatus(), QProcess::NormalExit) << qPrintable(program.errorOutput());
        EXPECT_EQ(program.process()->exitCode(), 1);
    }

    /// Norvane without the right to pass over permissions, which an administrator has.
    bool startWithoutRights(RunningNorvane &program)
    {
        return program.start(m_withoutRights + QStringList{QStringLiteral(NORVANE_PROGRAM)});
    }
    bool isWritableWithoutRights(const QString &path) const
    {
        QProcess test;
        test.start(QStringLiteral("setpriv"),
                   m_withoutRights + QStringList{QStringLiteral("test"), QStringLiteral("-w"), path});
        return test.waitForFinished() && test.exitCode() == 0;
    }

    std::unique_ptr<AccessibleTexts> texts;

private:
    const QStringList m_withoutRights =
        ::geteuid() == 0
            ? QStringList{QStringLiteral("--bounding-set"), QStringLiteral("-dac_override,-dac_read_search")}
            : QStringList{};
};

struct Foreign
{
    const char *name;
    QByteArray bytes;
    QString explanation; ///< a part of what the dialog says
};

TEST_F(BadDatabase, ForeignFilesAreExplainedAndLeftAlone)
{
    makeDatabase();
    const QByteArray sound = bytesOf(norvane.databaseFile());
    ASSERT_GT(sound.size(), 1000);
    QByteArray newer = sound;
    newer.replace(60, 4, QByteArray::fromHex("00000fff")); // the number of the format
    const QVector<Foreign> files = {
        {"empty", {}, QStringLiteral("it is empty")},
        {"text", QByteArray("Dear diary,\n").repeated(900), QStringLiteral("it is a text file")},
        {"truncated", sound.left(sound.size() / 2), QStringLiteral("damaged")},
        {"newer", newer, QStringLiteral("newer version")},
    };
    for (const Foreign &file : files) {
        SCOPED_TRACE(file.name);
        put(file.bytes);
        ASSERT_TRUE(norvane.start());
        ASSERT_NE(windowTitled(norvane, QStringLiteral("Norvane Password")), 0u);
        EXPECT_TRUE(says(norvane, file.explanation)) << told(norvane);
        desktop.x().press(QStringLiteral("Escape"));
        ASSERT_NO_FATAL_FAILURE(expectFailure(norvane, 3343));
        EXPECT_EQ(bytesOf(norvane.databaseFile()), file.bytes);
    }
}

TEST_F(BadDatabase, APasswordIsAskedUntilItIsRightOrThePersonGivesUp)
{
    makeDatabase(kPassword);
    const QByteArray before = bytesOf(norvane.databaseFile());
    for (const bool knowsIt : {false, true}) {
        ASSERT_TRUE(norvane.start());
        ASSERT_NE(windowTitled(norvane, QStringLiteral("Norvane Password")), 0u);
        desktop.x().type(QStringLiteral("open barley\n"));
        ASSERT_NE(windowTitled(norvane, QStringLiteral("Norvane Security")), 0u);
        EXPECT_TRUE(says(norvane, QStringLiteral("Invalid Password!"))) << told(norvane);
        desktop.x().press(QStringLiteral("Return"));
        ASSERT_NE(windowTitled(norvane, QStringLiteral("Norvane Password")), 0u);
        EXPECT_EQ(bytesOf(norvane.databaseFile()), before);
        if (knowsIt) {
            desktop.x().type(kPassword + u'\n');
            EXPECT_TRUE(waitFor([&] { return norvane.isArmed(); }));
            EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());
        } else {
            desktop.x().press(QStringLiteral("Escape"));
            ASSERT_NO_FATAL_FAILURE(expectFailure(norvane, 3031));
            EXPECT_EQ(bytesOf(norvane.databaseFile()), before);
        }
    }
}

TEST_F(BadDatabase, WhatCannotBeWrittenIsToldAndLeftAlone)
{
    makeDatabase();
    const QByteArray before = bytesOf(norvane.databaseFile());
    RunningNorvane limited(desktop, QStringLiteral("setpriv"));

    QFile::setPermissions(norvane.databaseFile(), QFile::ReadOwner);
    ASSERT_FALSE(isWritableWithoutRights(norvane.databaseFile()));
    ASSERT_TRUE(startWithoutRights(limited));
    ASSERT_NO_FATAL_FAILURE(expectFailure(limited, 3027));

    QFile::setPermissions(norvane.databaseFile(), QFile::ReadOwner | QFile::WriteOwner);
    QFile::setPermissions(norvane.notesFolder(), QFile::ReadOwner | QFile::ExeOwner);
    ASSERT_FALSE(isWritableWithoutRights(norvane.notesFolder()));
    ASSERT_TRUE(startWithoutRights(limited));
    ASSERT_NO_FATAL_FAILURE(expectFailure(limited, 75));
    EXPECT_EQ(bytesOf(norvane.databaseFile()), before);

    QFile::setPermissions(norvane.notesFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(arm(norvane)) << "the same file, with its rights again";
    EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());
}

TEST_F(BadDatabase, AFolderThatCannotBeMadeIsTold)
{
    QFile settings(desktop.home() + QStringLiteral("/.config/norvane/norvane.conf"));
    ASSERT_TRUE(settings.open(QIODevice::Append));
    settings.write("[DB]\nDatabase=/nowhere/at/all\n");
    settings.close();
    ASSERT_TRUE(norvane.start());
    ASSERT_NO_FATAL_FAILURE(expectFailure(norvane, 76));
    EXPECT_FALSE(QFileInfo::exists(QStringLiteral("/nowhere")));
}

} // namespace
