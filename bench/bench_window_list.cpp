// What the Window List costs each second, with 100 windows: reading the table, and painting.

#include "run_benchmarks.h"
#include "ui/windowlist/WindowListDesk.h"
#include "windowlist/windows/FTaskMgr.h"
#include "windowlist/windows/TaskImages.h"
#include "windowlist/windows/TaskViews.h"

#include <QApplication>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

constexpr int kWindows = 100;

class FullDesk : public tests::WindowListDesk
{
public:
    FullDesk()
    {
        for (int i = 0; i < kWindows; ++i)
            all.append(openDocument(u"File %1 of a hundred.txt - Editor"_s.arg(i), u"/usr/bin/editor"_s));
        ShowWindowList(services);
        window = dynamic_cast<FTaskMgr *>(forms.named(u"FTaskMgr"_s).constFirst());
        rows = window->findChild<TaskImages *>();
        views = window->findChild<TaskViews *>();
        QApplication::processEvents();
        if (rows->rowCount() != kWindows)
            qFatal("The windows of the benchmark are not listed");
    }
    void refresh()
    {
        rows->refresh();
        QApplication::processEvents(); // paints what has changed
    }

    QVector<WindowHandle> all;
    FTaskMgr *window = nullptr;
    TaskImages *rows = nullptr;
    TaskViews *views = nullptr;
};

FullDesk &desk()
{
    static FullDesk shared;
    return shared;
}

void nothingChanged(benchmark::State &state)
{
    FullDesk &full = desk();
    full.refresh();
    const int trips = full.windows.roundTrips;
    for (auto _ : state)
        full.refresh();
    state.counters["roundTrips"] = full.windows.roundTrips - trips;
}

/// The windows were stacked anew and nothing else.
void stackedAnew(benchmark::State &state)
{
    FullDesk &full = desk();
    for (auto _ : state) {
        full.windows.change();
        full.refresh();
    }
}

/// In each of the views, so many titles.
void titlesChanged(benchmark::State &state)
{
    FullDesk &full = desk();
    full.views->setView(static_cast<TaskViews::View>(state.range(0)));
    QApplication::processEvents();
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        ++round;
        for (int i = 0; i < state.range(1); ++i)
            full.windows.setCaption(full.all[i], u"File %1 at %2.txt - Editor"_s.arg(i).arg(round));
        state.ResumeTiming();
        full.refresh();
    }
}

void firstShown(benchmark::State &state)
{
    FullDesk &full = desk();
    for (auto _ : state) {
        TaskImages rows(full.windows, full.tasks, full.location);
        rows.refresh();
        benchmark::DoNotOptimize(rows.rowCount());
    }
}

BENCHMARK(nothingChanged)->Unit(benchmark::kMicrosecond);
BENCHMARK(stackedAnew)->Unit(benchmark::kMicrosecond);
BENCHMARK(titlesChanged)
    ->ArgsProduct({{TaskViews::kLargeIcons, TaskViews::kSmallIcons, TaskViews::kList, TaskViews::kDetails},
                   {10, 100}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(firstShown)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QApplication>(argc, argv);
}
