#include "faults/NoteFaults.h"
#include "faults/SessionManager.h"

#include <QDir>
#include <csignal>

using namespace norvane::test;

namespace {

/// Norvane ends in the middle of things: what was typed must be in the row and in the body.
class Ends : public FaultsAroundLetters
{
protected:
    /// Types into the window's note, which is attached or comes by itself.
    bool type(RunningNorvane &program, const QString &text)
    {
        waitFor([&] { return program.noteOn(window) != 0; }, typed.isEmpty() ? 0 : 20000);
        const xcb_window_t note = typed.isEmpty() ? program.attach(window) : program.noteOn(window);
        typed += text;
        return note != 0 && append(note, text);
    }

    void expectSaved(const RunningNorvane &program)
    {
        EXPECT_EQ(program.query(QStringLiteral("select NoteText from Memos where ID=1")).toStdString(),
                  typed.toStdString());
        EXPECT_EQ(program.query(QStringLiteral("select Active from Memos where ID=1")).toStdString(), "-1");
        EXPECT_TRUE(program.body(1).contains(typed.toLatin1())) << program.body(1).constData();
        EXPECT_TRUE(isWholeRtf(program.body(1)));
        EXPECT_TRUE(DatabaseCopy(program).isWhole());
        const QDir folder(program.notesFolder());
        EXPECT_EQ(
            folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).join(u' ').toStdString(),
            ".Norvane.DAT.lock Norvane.DAT Norvane_00000001");
    }

    bool waitForEnd(RunningNorvane &program)
    {
        return waitFor([&] { return !program.isRunning(); });
    }

    QString typed;
};

TEST_F(Ends, SignalsSaveWhatWasTyped)
{
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        SCOPED_TRACE(signal);
        ASSERT_TRUE(arm(norvane)) << qPrintable(norvane.errorOutput());
        ASSERT_TRUE(type(norvane, QStringLiteral("signal %1.").arg(signal)));
        ::kill(static_cast<pid_t>(norvane.process()->processId()), signal);
        ASSERT_TRUE(waitForEnd(norvane));
        EXPECT_TRUE(norvane.hasEndedWell()) << qPrintable(norvane.errorOutput());
        expectSaved(norvane);
    }
}

TEST_F(Ends, TheDisplayGoesAndWhatWasTypedIsSaved)
{
    ASSERT_TRUE(arm(norvane)) << qPrintable(norvane.errorOutput());
    ASSERT_TRUE(type(norvane, QStringLiteral("No display any more.")));
    desktop.killDisplay();
    ASSERT_TRUE(waitForEnd(norvane));
    EXPECT_EQ(norvane.process()->exitStatus(), QProcess::NormalExit) << qPrintable(norvane.errorOutput());
    expectSaved(norvane);
}

TEST_F(Ends, TheSessionEndsAndWhatWasTypedIsSaved)
{
    SessionManager session;
    ASSERT_FALSE(session.address().isEmpty());
    RunningNorvane inSession(desktop, QStringLiteral("env"));
    ASSERT_TRUE(arm(
        inSession, {QStringLiteral("SESSION_MANAGER=") + session.address(), QStringLiteral(NORVANE_PROGRAM)}))
        << qPrintable(inSession.errorOutput());
    ASSERT_TRUE(waitFor([&] { return session.hasClient(); })) << qPrintable(inSession.errorOutput());

    // An end that is called off leaves a program that goes on.
    ASSERT_TRUE(type(inSession, QStringLiteral("First. ")));
    session.askToSave();
    ASSERT_TRUE(waitFor([&] { return session.hasSaved(); }));
    EXPECT_TRUE(inSession.body(1).contains("First. "));
    session.cancel();
    ASSERT_TRUE(type(inSession, QStringLiteral("Second.")));
    EXPECT_TRUE(inSession.isRunning());

    session.askToSave();
    ASSERT_TRUE(waitFor([&] { return session.hasSaved(); }));
    EXPECT_TRUE(inSession.body(1).contains("First. Second."));
    session.die();
    ASSERT_TRUE(waitForEnd(inSession));
    EXPECT_TRUE(inSession.hasEndedWell()) << qPrintable(inSession.errorOutput());
    expectSaved(inSession);
}

} // namespace
