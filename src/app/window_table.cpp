#include "app/window_table.h"

#include "app/Backends.h"
#include "shell/tracked_classes.h"
#include "watcher/WatchSettings.h"
#include "watcher/window_location.h"
#include "windowlist/CTaskList.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTextStream>

namespace norvane {

namespace {

constexpr int kPatienceMs = 6000;
constexpr int kSettledMs = 2500; // a browser may take 2000 ms to tell its page

/// Refreshes until no new row or location has come for a while.
void refreshUntilSettled(CTaskList &tasks)
{
    const QDeadlineTimer deadline(kPatienceMs);
    QDeadlineTimer settled(kSettledMs);
    quint64 seen = tasks.changeCount();
    QEventLoop loop;
    while (!deadline.hasExpired() && !settled.hasExpired()) {
        tasks.Refresh();
        if (tasks.changeCount() != seen)
            settled.setRemainingTime(kSettledMs);
        seen = tasks.changeCount();
        loop.processEvents(QEventLoop::AllEvents, 50);
    }
}

} // namespace

void printWindowTable(QTextStream &out)
{
    Backends backends;
    WatchSettings settings;
    settings.IEAvailable = true;
    settings.TrackedClasses = trackedClasses(backends.settings);
    WindowLocation location(backends.windows, backends.shellWindows, backends.processes, settings);
    CTaskList tasks(backends.windows, backends.shellWindows, location);
    refreshUntilSettled(tasks);
    for (int row = 1; row <= tasks.Count(); ++row) {
        out << QStringLiteral("0x%1").arg(tasks.hWnd(row), 8, 16, QLatin1Char('0')) << '\t'
            << location.GetClassText(tasks.hWnd(row)) << '\t' << tasks.Caption(row) << '\t'
            << tasks.DocumentName(row) << '\n';
    }
}

} // namespace norvane
