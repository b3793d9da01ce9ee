#include "faults/NoteFaults.h"

#include <QFile>
#include <cstdio>
#include <unistd.h>

namespace norvane::test {

namespace {

constexpr int kListedWindows = 12;
/// Pixels that a character changes on an average; a text cursor has about twenty.
constexpr int kLeastInk = 8;

} // namespace

void NoteFaults::TearDown()
{
    if (!HasFailure() || norvane.process() == nullptr)
        return;
    XClient &x = desktop.x();
    std::fprintf(stderr, "active window 0x%x; the windows:\n", x.activeWindow());
    const QVector<xcb_window_t> clients = x.clients().mid(0, kListedWindows);
    for (const xcb_window_t window : clients)
        std::fprintf(stderr, "  0x%x on 0x%x: %s%s\n", window, x.transientFor(window),
                     qPrintable(x.title(window)), x.isViewable(window) ? "" : " (hidden)");
    std::fprintf(stderr, "the notes:\n%s\n%s\n",
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
    VirtualDesktop::Options options;
    options.accessibility = false;
    startDesktop(options);
}

bool NoteFaults::arm(RunningNorvane &program, const QStringList &arguments)
{
    return program.start(arguments) &&
           waitFor([&] { return program.isArmed() || !program.isRunning(); }, 60000) && program.isRunning();
}

bool NoteFaults::append(xcb_window_t note, const QString &text)
{
    XClient &x = desktop.x();
    // A second click soon after the first would select a word.
    if (x.activeWindow() != note)
        x.click(x.geometry(note).center());
    if (!waitFor([&] { return x.activeWindow() == note; }))
        return false;
    x.press(QStringLiteral("ctrl+End"));
    const QImage before = norvane.pictureOf(note);
    x.type(text);
    return waitFor(
        [&] { return differentPixels(norvane.pictureOf(note), before) > kLeastInk * text.trimmed().size(); });
}

xcb_window_t NoteFaults::noteThatComesTo(xcb_window_t target)
{
    waitFor([&] { return norvane.noteOn(target) != 0; });
    return norvane.noteOn(target);
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

double processorSeconds(qint64 processId)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(processId));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    // The name of the program may hold anything; the numbers begin behind its bracket.
    const QByteArray all = file.readAll();
    const QList<QByteArray> fields = all.mid(all.lastIndexOf(')') + 2).split(' ');
    return (fields.value(11).toDouble() + fields.value(12).toDouble()) /
           static_cast<double>(::sysconf(_SC_CLK_TCK));
}

void tellFigure(const char *name, double value)
{
    testing::Test::RecordProperty(name, std::to_string(value));
    std::printf("  %s: %.2f\n", name, value);
}

} // namespace norvane::test
