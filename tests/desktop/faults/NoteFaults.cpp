#include "faults/NoteFaults.h"

#include <QFile>
#include <cstdio>

namespace norvane::test {

void NoteFaults::TearDown()
{
    if (!HasFailure() || norvane.process() == nullptr)
        return;
    std::fprintf(stderr, "%sthe notes:\n%s\n%s\n", qPrintable(desktop.x().whatIsThere()),
                 qPrintable(norvane.query(QStringLiteral("select ID,Active,WindowName,URL from Memos"))),
                 qPrintable(norvane.errorOutput()));
}

void NoteFaults::startDesktop(const VirtualDesktop::Options &options)
{
    ASSERT_TRUE(desktop.start(options)) << qPrintable(desktop.error());
    writeSettings(desktop);
}

void NoteFaults::startPlainDesktop()
{
    startDesktop({.accessibility = false});
}

bool NoteFaults::arm(RunningNorvane &program, const QStringList &arguments)
{
    return program.start(arguments) &&
           waitFor([&] { return program.isArmed() || !program.isRunning(); }, 60000) && program.isRunning();
}

xcb_window_t NoteFaults::noteThatComesTo(xcb_window_t target)
{
    waitFor([&] { return norvane.noteOn(target) != 0; });
    return norvane.noteOn(target);
}

void FaultsAroundLetters::SetUp()
{
    ASSERT_NO_FATAL_FAILURE(startPlainDesktop());
    ASSERT_TRUE(other.start());
    window = other.open("Letters");
    ASSERT_NE(window, 0u);
}

bool isWholeRtf(const QByteArray &bytes)
{
    if (!bytes.startsWith("{\\rtf1"))
        return false;
    int depth = 0;
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        if (bytes[at] == '\\')
            ++at; // what follows is no brace of the structure
        else if (bytes[at] == '{')
            ++depth;
        else if (bytes[at] == '}' && --depth == 0)
            return bytes.mid(at + 1).trimmed().isEmpty();
    }
    return false;
}

DatabaseCopy::DatabaseCopy(const RunningNorvane &norvane)
{
    for (const QString &suffix : {QString(), QStringLiteral("-journal")})
        QFile::copy(norvane.databaseFile() + suffix, m_folder.filePath(QStringLiteral("copy")) + suffix);
}

QString DatabaseCopy::query(const QString &statement) const
{
    QProcess shell;
    shell.start(QStringLiteral("sqlite3"), {m_folder.filePath(QStringLiteral("copy")), statement});
    shell.waitForFinished();
    return QString::fromUtf8(shell.readAllStandardOutput() + shell.readAllStandardError()).trimmed();
}

void tellFigure(const char *name, double value)
{
    testing::Test::RecordProperty(name, std::to_string(value));
    std::printf("  %s: %.2f\n", name, value);
}

} // namespace norvane::test
