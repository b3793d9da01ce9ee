// Measures what a person waits for and what the desktop pays, with the real program:
//   norvane_figures PROGRAM
// 20 tracked windows, 10,000 notes. Times are taken from the X server's answers, CPU time from the
// process clock of Norvane alone.

#include "file_bytes.h"
#include "harness/PageServer.h"
#include "harness/Programs.h"
#include "harness/RunningNorvane.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <cstdio>

using namespace norvane;
using namespace norvane::test;

namespace {

constexpr int kWindows = 20;
constexpr int kNotes = 10'000;
constexpr int kRounds = 20;
constexpr int kIdleMs = 60'000;
constexpr double kNothingMuch = 0.002; ///< seconds of CPU in one second

/// Proportional set size in megabytes; -1 when it cannot be read.
double pssMegabytes(const QProcess &process)
{
    const QByteArray rollup = bytesOf(QStringLiteral("/proc/%1/smaps_rollup").arg(process.processId()));
    static const QRegularExpression pss(QStringLiteral("Pss:\\s+(\\d+) kB"));
    const QRegularExpressionMatch match = pss.match(QString::fromLatin1(rollup));
    return match.hasMatch() ? match.captured(1).toDouble() / 1024 : -1;
}

bool pass(int milliseconds)
{
    waitFor([] { return false; }, milliseconds);
    return true;
}

/// Milliseconds until a condition holds, looked at without pause; -1 when it never does.
double timeUntil(const std::function<bool()> &condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        QCoreApplication::processEvents(); // the page server answers meanwhile
        if (timer.hasExpired(20'000))
            return -1;
    }
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void print(const char *what, std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    std::printf("%-46s median %.0f ms, best %.0f, worst %.0f (of %zu)\n", what, times.at(times.size() / 2),
                times.front(), times.back(), times.size());
}

class Figures
{
public:
    Figures(VirtualDesktop &desktop, QString program)
        : m_desktop(desktop), m_x(desktop.x()), m_norvane(desktop, std::move(program))
    {
    }

    bool run()
    {
        return makeNotes() && startAlone() && openWindows() && startAmongWindows() && idle() &&
               attachAndDetach() && turnPages() && m_norvane.end();
    }

private:
    static bool failed(const char *why)
    {
        std::fprintf(stderr, "%s\n", why);
        return false;
    }

    /// The program makes its database itself; the sqlite3 shell fills it.
    bool makeNotes()
    {
        if (!m_norvane.start() || !waitFor([&] { return m_norvane.isArmed(); }) || !m_norvane.end())
            return failed("Norvane did not start");
        QProcess *filling = m_desktop.run(
            QStringLiteral("sqlite3"),
            {m_norvane.databaseFile(),
             QStringLiteral("with recursive n(i) as (select 1 union all select i+1 from n where "
                            "i < %1) insert into Memos(WindowName, LocationName, FriendlyName, "
                            "URL, Active, CAT_ID, AutoSave) select i||' page', i||' page', "
                            "i||' page', 'https://example.org/'||i, -1, 0, -1 from n;")
                 .arg(kNotes)});
        return filling != nullptr && filling->waitForFinished(60'000) && filling->exitCode() == 0;
    }

    bool openWindows()
    {
        for (int i = 0; i < kWindows; ++i) {
            const QString folder = m_desktop.home() + QStringLiteral("/folder-%1").arg(i);
            QDir().mkpath(folder);
            m_desktop.run(QStringLiteral("thunar"), {folder});
            if (!waitFor([&] { return m_x.findClient(QFileInfo(folder).fileName()) != 0; }, 60'000))
                return false;
        }
        return true;
    }

    bool start()
    {
        pass(3000);
        if (!m_norvane.start() || !waitFor([&] { return m_norvane.isArmed(); }))
            return failed("Norvane did not start");
        return true;
    }

    /// Until nothing more is done.
    void settle()
    {
        double before = -1;
        double now = 0;
        while (now - before > kNothingMuch) {
            before = now;
            pass(1000);
            now = processorSeconds(m_norvane.process()->processId());
        }
    }

    bool startAlone()
    {
        if (!start())
            return false;
        std::printf("%-46s %.3f s\n", "CPU from start to an armed watcher",
                    processorSeconds(m_norvane.process()->processId()));
        settle();
        std::printf("%-46s %.1f MB\n", "PSS after start", pssMegabytes(*m_norvane.process()));
        return m_norvane.end();
    }

    bool startAmongWindows()
    {
        if (!start())
            return false;
        settle();
        std::printf("%-46s %.3f s\n", "CPU from start, with 20 windows looked at",
                    processorSeconds(m_norvane.process()->processId()));
        return true;
    }

    bool idle()
    {
        const double before = processorSeconds(m_norvane.process()->processId());
        pass(kIdleMs);
        std::printf("%-46s %.4f s\n", "CPU in 60 s idle, 20 tracked windows",
                    processorSeconds(m_norvane.process()->processId()) - before);
        return true;
    }

    bool attachAndDetach()
    {
        const xcb_window_t target = m_x.findClient(QStringLiteral("folder-3"));
        m_x.activate(target);
        if (!waitFor([&] { return m_x.activeWindow() == target; }))
            return false;
        std::vector<double> times;
        for (int round = 0; round <= kRounds; ++round) {
            m_x.press(QStringLiteral("ctrl+alt+a"));
            const double time = timeUntil([&] { return m_norvane.noteOn(target) != 0; });
            if (time < 0)
                return false;
            // The first makes the note, the others bring it back.
            if (round == 0)
                std::printf("%-46s %.0f ms\n", "attach key to a new note on screen", time);
            else
                times.push_back(time);
            pass(300);
            m_x.press(QStringLiteral("ctrl+alt+d"));
            if (!waitFor([&] { return m_norvane.noteOn(target) == 0; }))
                return false;
            pass(300);
        }
        print("attach key to its note on screen", times);
        return true;
    }

    /// From the title's change, which is when the page is there for others, to the other page's note.
    bool turnPages()
    {
        PageServer pages;
        const QString keys = QStringLiteral("addEventListener('keydown', event => {"
                                            " if (event.key === '1') location = '/reading';"
                                            " if (event.key === '2') location = '/garden'; });");
        pages.addPage(QStringLiteral("/garden"), QStringLiteral("Garden plan"), QStringLiteral("Beds."),
                      keys);
        const QString first = pages.addPage(QStringLiteral("/reading"), QStringLiteral("Reading list"),
                                            QStringLiteral("Books."), keys);
        QProcess *browser = startFirefox(m_desktop, QStringLiteral("figures"), {first});
        xcb_window_t window = 0;
        if (!waitFor([&] { return (window = m_x.findClient(QStringLiteral("Reading list"))) != 0; }, 60'000))
            return failed("the browser did not open its page");
        m_x.activate(window);
        pass(3000);
        const QString titles[] = {QStringLiteral("Reading list"), QStringLiteral("Garden plan")};
        std::vector<double> times;
        xcb_window_t note = 0;
        for (int turn = 0; turn < kRounds + 2; ++turn) {
            const QString &title = titles[turn % 2];
            m_x.press(QString::number(1 + turn % 2));
            if (timeUntil([&] { return m_x.title(window).startsWith(title); }) < 0)
                return failed("the browser did not turn the page");
            // The pages get their notes at their first turn, when the browser is ready to tell of them.
            if (turn < 2 &&
                (!waitFor([&] { return m_norvane.noteOn(window) == 0; }) || m_norvane.attach(window) == 0))
                return failed("a page took no note");
            const double time =
                timeUntil([&] { return m_norvane.noteOn(window) != note && m_norvane.noteOn(window) != 0; });
            if (time < 0)
                return failed("a page's note did not come");
            if (turn >= 2)
                times.push_back(time);
            note = m_norvane.noteOn(window);
            pass(1200);
        }
        print("page change to its note on screen (Firefox)", times);
        return m_desktop.end(browser);
    }

    VirtualDesktop &m_desktop;
    XClient &m_x;
    RunningNorvane m_norvane;
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (argc < 2) {
        std::fputs("usage: norvane_figures PROGRAM\n", stderr);
        return 2;
    }
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    VirtualDesktop desktop;
    if (!desktop.start({})) {
        std::fprintf(stderr, "%s\n", qPrintable(desktop.error()));
        return 1;
    }
    Figures figures(desktop, QFileInfo(QCoreApplication::arguments().at(1)).absoluteFilePath());
    if (!figures.run()) {
        std::fputs("A figure could not be taken.\n", stderr);
        return 1;
    }
    return 0;
}
