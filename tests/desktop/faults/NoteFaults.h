#pragma once

#include "faults/OtherProgram.h"
#include "harness/RunningNorvane.h"

#include <gtest/gtest.h>

namespace norvane::test {

/// A desktop on which things go wrong for Norvane and its notes.
class NoteFaults : public testing::Test
{
protected:
    /// Tells what is on the desktop of a test that has failed.
    void TearDown() override;

    /// Starts the desktop, with windows of OtherProgram's class tracked; Norvane does not run yet.
    void startDesktop(const VirtualDesktop::Options &options);
    /// The same, without an accessibility bus: plain windows need none.
    void startPlainDesktop();

    /// Starts Norvane and waits until it answers its keys.
    bool arm(RunningNorvane &norvane, const QStringList &arguments = {});
    /// Puts text at the end of a note, and waits until it shows.
    bool append(xcb_window_t note, const QString &text) { return norvane.typeInto(note, text); }
    /// The note that comes by itself on a window; 0 when none does.
    xcb_window_t noteThatComesTo(xcb_window_t target);

    VirtualDesktop desktop;
    RunningNorvane norvane{desktop, QStringLiteral(NORVANE_PROGRAM)};
};

/// The same, with a program that has a window open; the desktop is a plain one.
class FaultsAroundLetters : public NoteFaults
{
protected:
    void SetUp() override;

    OtherProgram other{desktop, QStringLiteral("letters")};
    xcb_window_t window = 0;
};

/// Whether a file is rich text from its first brace to the brace that closes it, with nothing behind.
bool isWholeRtf(const QByteArray &bytes);

/// A copy of the database as it lies there, with the journal of a save that was interrupted, so that
/// looking at it changes nothing.
class DatabaseCopy
{
public:
    explicit DatabaseCopy(const RunningNorvane &norvane);

    /// Runs a statement by the sqlite3 shell. @return what it printed, trimmed
    QString query(const QString &statement) const;
    /// Whether its integrity check finds nothing.
    bool isWhole() const { return query(QStringLiteral("PRAGMA integrity_check")) == u"ok"; }

private:
    QTemporaryDir m_folder;
};

/// Writes a figure into the test's record and on its output; nothing is asserted by it.
void tellFigure(const char *name, double value);

} // namespace norvane::test
