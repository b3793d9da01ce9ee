#include "RunningNorvane.h"

#include "file_bytes.h"

#include <QElapsedTimer>
#include <QMargins>
#include <csignal>
#include <ctime>

namespace norvane::test {

namespace {

/// A window that loses the keyboard shows it up to half a second later.
constexpr int kSettledMs = 900;

/// An attach that found no location yet is tried again, as a person does; not sooner, since a late
/// second one takes the keyboard from the note.
constexpr int kPressAgainMs = 5000;

/// A place on a note's strip beside the pin, pixels.
constexpr QPoint kOnStrip(160, 14);
constexpr int kDragParts = 10;

/// The strip and the edges around a note's text, pixels.
constexpr QMargins kAroundPaper(6, 36, 6, 6);
/// Pixels that a character changes on an average, blanks included; a text cursor has about twenty.
constexpr int kLeastInk = 8;

/// Whether a process has a handler of its own for a signal.
bool handlesSignal(qint64 processId, int signal)
{
    const QList<QByteArray> lines = bytesOf(QStringLiteral("/proc/%1/status").arg(processId)).split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("SigCgt:"))
            return (line.mid(7).trimmed().toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
    }
    return false;
}

} // namespace

RunningNorvane::RunningNorvane(VirtualDesktop &desktop, QString program)
    : m_desktop(desktop), m_program(std::move(program))
{
}

bool RunningNorvane::start(const QStringList &arguments)
{
    m_process = m_desktop.run(m_program, arguments);
    return m_process != nullptr;
}

bool RunningNorvane::end()
{
    return m_desktop.end(m_process, 20000) && hasEndedWell();
}

bool RunningNorvane::isRunning() const
{
    return m_process != nullptr && m_process->state() == QProcess::Running;
}

bool RunningNorvane::hasEndedWell() const
{
    return m_process != nullptr && m_process->state() == QProcess::NotRunning &&
           m_process->exitStatus() == QProcess::NormalExit && m_process->exitCode() == 0;
}

bool RunningNorvane::isArmed() const
{
    return isRunning() && m_desktop.x().isTaken(QStringLiteral("ctrl+alt+a")) &&
           handlesSignal(m_process->processId(), SIGTERM);
}

QString RunningNorvane::errorOutput() const
{
    return m_process != nullptr ? m_desktop.errorOutput(m_process) : QString();
}

xcb_window_t RunningNorvane::noteOn(xcb_window_t target) const
{
    const xcb_window_t note = hiddenNoteOn(target);
    return note != 0 && m_desktop.x().isSeen(note) ? note : 0;
}

xcb_window_t RunningNorvane::hiddenNoteOn(xcb_window_t target) const
{
    if (m_process == nullptr || target == 0)
        return 0;
    XClient &x = m_desktop.x();
    const QVector<xcb_window_t> windows = x.clientsOfProcess(m_process->processId());
    for (const xcb_window_t window : windows) {
        if (x.transientFor(window) == target)
            return window;
    }
    return 0;
}

QVector<xcb_window_t> RunningNorvane::shownWindows() const
{
    QVector<xcb_window_t> shown;
    if (m_process == nullptr)
        return shown;
    const QVector<xcb_window_t> windows = m_desktop.x().clientsOfProcess(m_process->processId());
    for (const xcb_window_t window : windows) {
        if (m_desktop.x().isViewable(window))
            shown.append(window);
    }
    return shown;
}

QRect RunningNorvane::placeIn(xcb_window_t target, xcb_window_t note) const
{
    return m_desktop.x().geometry(note).translated(-m_desktop.x().geometryInShadow(target).topLeft());
}

QImage RunningNorvane::pictureOf(xcb_window_t note) const
{
    return m_desktop.x().screenshot().copy(m_desktop.x().geometry(note));
}

QImage RunningNorvane::settledPictureOf(xcb_window_t note) const
{
    // With the text cursor and without it.
    QImage pictures[2];
    QElapsedTimer same;
    waitFor([&] {
        const QImage now = pictureOf(note);
        if (!same.isValid() || (now != pictures[0] && now != pictures[1])) {
            pictures[1] = pictures[0];
            pictures[0] = now;
            same.start();
        }
        return same.hasExpired(kSettledMs);
    });
    return pictures[0];
}

bool RunningNorvane::bringToFront(xcb_window_t window)
{
    m_desktop.x().activate(window);
    return waitFor([&] { return m_desktop.x().activeWindow() == window; });
}

xcb_window_t RunningNorvane::attach(xcb_window_t target)
{
    if (!bringToFront(target))
        return 0;
    QElapsedTimer sinceKeys;
    waitFor([&] {
        if (noteOn(target) != 0)
            return true;
        if (!sinceKeys.isValid() || sinceKeys.hasExpired(kPressAgainMs)) {
            m_desktop.x().press(QStringLiteral("ctrl+alt+a"));
            sinceKeys.start();
        }
        return false;
    });
    return noteOn(target);
}

bool RunningNorvane::drag(xcb_window_t note, const QPoint &way)
{
    XClient &x = m_desktop.x();
    const QPoint before = x.geometry(note).topLeft();
    const QPoint strip = before + kOnStrip;
    x.moveMouse(strip);
    x.button(1, true);
    for (int part = 1; part <= kDragParts; ++part)
        x.moveMouse(strip + way * part / kDragParts);
    x.button(1, false);
    return waitFor([&] { return x.geometry(note).topLeft() == before + way; });
}

bool RunningNorvane::typeInto(xcb_window_t note, const QString &text)
{
    XClient &x = m_desktop.x();
    // A second click soon after the first would select a word.
    if (x.activeWindow() != note)
        x.click(x.geometry(note).center());
    if (!waitFor([&] { return x.activeWindow() == note; }))
        return false;
    x.press(QStringLiteral("ctrl+End"));
    // The strip and the edge change with the keyboard, and the text cursor blinks.
    const auto paper = [&] {
        return pictureOf(note).copy(QRect({}, x.geometry(note).size()) - kAroundPaper);
    };
    const QImage before = paper();
    x.type(text);
    return waitFor([&] { return differentPixels(paper(), before) > kLeastInk * text.trimmed().size(); });
}

xcb_window_t RunningNorvane::windowTitled(const QString &part) const
{
    xcb_window_t found = 0;
    waitFor([&] {
        for (const xcb_window_t window : shownWindows()) {
            if (m_desktop.x().title(window).contains(part))
                found = window;
        }
        return found != 0 && m_desktop.x().activeWindow() == found;
    });
    return found;
}

QString RunningNorvane::notesFolder() const
{
    return m_desktop.home() + QStringLiteral("/.local/share/norvane/Notes");
}

QString RunningNorvane::databaseFile() const
{
    return notesFolder() + QStringLiteral("/Norvane.DAT");
}

QByteArray RunningNorvane::body(int id) const
{
    return bytesOf(QStringLiteral("%1/Norvane_%2").arg(notesFolder()).arg(id, 8, 10, QLatin1Char('0')));
}

QString RunningNorvane::query(const QString &statement) const
{
    QProcess shell;
    shell.start(QStringLiteral("sqlite3"),
                {QStringLiteral("-cmd"), QStringLiteral(".timeout 5000"), databaseFile(), statement});
    shell.waitForFinished();
    return QString::fromUtf8(shell.readAllStandardOutput() + shell.readAllStandardError()).trimmed();
}

double processorSeconds(qint64 processId)
{
    clockid_t clock = 0;
    timespec used{};
    if (clock_getcpuclockid(static_cast<pid_t>(processId), &clock) != 0 || clock_gettime(clock, &used) != 0)
        return -1;
    return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) / 1e9;
}

qint64 differentPixels(const QImage &one, const QImage &other)
{
    if (one.size() != other.size())
        return static_cast<qint64>(one.width()) * one.height();
    qint64 different = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            different += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
    }
    return different;
}

bool looksAlike(const QImage &one, const QImage &other)
{
    return one.size() == other.size() &&
           differentPixels(one, other) * 200 < static_cast<qint64>(one.width()) * one.height();
}

} // namespace norvane::test
