#include "faults/NoteFaults.h"
#include "harness/MainJob.h"

#include <QDir>
#include <QElapsedTimer>
#include <csignal>

using namespace norvane::test;

namespace {

/// A process that uses less than this share of a processor has come to rest.
constexpr double kRest = 0.1;
constexpr int kShareOverMs = 1000;

/// Other programs take more than their share, or do not react at all.
class BusyDesktop : public NoteFaults
{
protected:
    /// Waits until the process has nothing more to do.
    static bool comesToRest(qint64 process)
    {
        QElapsedTimer since;
        double seconds = 0;
        return waitFor(
            [&] {
                if (since.isValid() && !since.hasExpired(kShareOverMs))
                    return false;
                const double now = processorSeconds(process);
                const bool rests =
                    since.isValid() && (now - seconds) * 1000 < kRest * static_cast<double>(since.elapsed());
                seconds = now;
                since.start();
                return rests;
            },
            60000);
    }
};

TEST_F(BusyDesktop, ThreeHundredWindows)
{
    constexpr int kWindows = 300;
    ASSERT_NO_FATAL_FAILURE(startPlainDesktop());
    OtherProgram sheets(desktop, QStringLiteral("sheets"));
    OtherProgram letters(desktop, QStringLiteral("letters"));
    ASSERT_TRUE(sheets.start() && letters.start());
    ASSERT_TRUE(arm(norvane));
    const qint64 process = norvane.process()->processId();
    const double before = processorSeconds(process);
    ASSERT_NE(sheets.openMany(kWindows - 1, "Sheet"), 0u);
    const xcb_window_t last = letters.open("Letters");
    ASSERT_NE(last, 0u);

    const xcb_window_t note = norvane.attach(last);
    ASSERT_NE(note, 0u);
    EXPECT_TRUE(append(note, QStringLiteral("One of many.")));
    EXPECT_TRUE(comesToRest(process));
    tellFigure("processorSecondsFor300Windows", processorSeconds(process) - before);

    letters.close(last);
    EXPECT_TRUE(waitFor([&] { return norvane.body(1).contains("One of many."); }));
    EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());
}

TEST_F(BusyDesktop, AProgramThatHangsHoldsNobody)
{
    ASSERT_NO_FATAL_FAILURE(startDesktop({}));
    const auto folders = folderTarget(QStringLiteral("thunar"));
    QProcess *thunar = folders->start(desktop);
    ASSERT_NE(thunar, nullptr);
    OtherProgram letters(desktop, QStringLiteral("letters"));
    OtherProgram plans(desktop, QStringLiteral("plans"));
    ASSERT_TRUE(letters.start() && plans.start());
    ASSERT_TRUE(arm(norvane));

    xcb_window_t folder = 0;
    ASSERT_TRUE(waitFor([&] {
        folder = desktop.x().findClient(folders->title(1), folders->wmClass());
        return folder != 0 && desktop.x().isViewable(folder);
    }));
    ASSERT_NE(norvane.attach(folder), 0u);
    xcb_window_t letter = letters.open("Invoice");
    const xcb_window_t plan = plans.open("Plans");
    ASSERT_NE(norvane.attach(letter), 0u);

    ::kill(static_cast<pid_t>(thunar->processId()), SIGSTOP);
    // The window manager can still bring its window to the front, and the keys may be pressed there.
    ASSERT_TRUE(norvane.bringToFront(folder));
    desktop.x().press(QStringLiteral("ctrl+alt+d"));
    EXPECT_TRUE(waitFor([&] { return norvane.noteOn(folder) == 0; }));
    EXPECT_NE(norvane.attach(folder), 0u);
    EXPECT_NE(norvane.attach(plan), 0u);
    EXPECT_TRUE(append(norvane.noteOn(plan), QStringLiteral("Nobody waits.")));
    letters.close(letter);
    letter = letters.open("Invoice");
    EXPECT_NE(noteThatComesTo(letter), 0u);
    EXPECT_NE(norvane.noteOn(folder), 0u);

    ::kill(static_cast<pid_t>(thunar->processId()), SIGCONT);
    desktop.x().activate(folder);
    QElapsedTimer sinceKeys;
    EXPECT_TRUE(waitFor(
        [&] {
            const bool there = desktop.x().findClient(folders->title(2), folders->wmClass()) == folder;
            if (!there && (!sinceKeys.isValid() || sinceKeys.hasExpired(5000))) {
                folders->show(desktop, 2);
                sinceKeys.start();
            }
            return there && norvane.noteOn(folder) == 0;
        },
        40000));
    EXPECT_NE(norvane.noteOn(letter), 0u);
    EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());
}

} // namespace
