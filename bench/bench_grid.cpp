// What a grid of 100,000 rows costs: filling, sorting, scrolling, memory.

#include "controls/ImageList.h"
#include "controls/gridview/vbalGrid.h"
#include "memory_in_use.h"
#include "run_benchmarks.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QRandomGenerator>

using namespace norvane;

namespace {

constexpr int kRows = 100'000;
constexpr int kTitles = 2;
constexpr int kTypes = 6;
constexpr int kUpdated = 9;

/// Notes as a browser lists them: titles that begin alike, a few kinds, many different dates.
class FullGrid
{
public:
    FullGrid()
    {
        QPixmap square(32, 32);
        square.fill(Qt::darkCyan);
        images = std::make_unique<IconList>(QVector<QIcon>{QIcon(square)});
        grid.setImageList(images.get());
        const QStringList keys{QStringLiteral("Active"),      QStringLiteral("Name"),
                               QStringLiteral("DateCreated"), QStringLiteral("LastUpdate"),
                               QStringLiteral("Location"),    QStringLiteral("Type"),
                               QStringLiteral("ID"),          QStringLiteral("DC"),
                               QStringLiteral("LU"),          QStringLiteral("Category")};
        const QVector<int> widths{20, 250, 90, 90, 250, 120, 60, 60, 60, 120};
        for (int column = 0; column < keys.size(); ++column)
            grid.AddColumn(keys[column], keys[column], kAlignLeft, kNoGridIcon, widths[column],
                           column < 6 || column == 9);
        grid.setRowMode(true);
        grid.setMultiSelect(true);
        grid.setGridLines(true);
        grid.setShellIcons([square](const QString &) { return QIcon(square); });
        fill();
    }

    void fill()
    {
        QRandomGenerator random(7);
        const QDateTime start(QDate(2004, 1, 1), QTime(8, 0));
        grid.setRedraw(false);
        grid.Clear();
        for (int row = 1; row <= kRows; ++row) {
            const auto number = static_cast<int>(random.bounded(1'000'000));
            const QDateTime created = start.addSecs(random.bounded(200'000'000));
            const QString created2 = created.toString(QStringLiteral("dd.MM.yyyy  HH:mm"));
            grid.AddRow(-1, QString::number(row));
            if (number % 3 != 0)
                grid.CellDetails(row, 1, {}, kAlignCenter, 0, 0xFFFFFF);
            grid.CellDetails(row, kTitles, QStringLiteral("Note on page %1 of the site").arg(number),
                             kAlignLeft, kNoGridIcon, -1, 0x800000);
            grid.CellDetails(row, 3, created2);
            grid.CellDetails(row, 4, created2);
            grid.CellDetails(row, 5, QStringLiteral("https://example.org/pages/%1/index.html").arg(number));
            grid.CellDetails(row, kTypes, QStringLiteral("HTML document %1").arg(number % 4), kAlignLeft,
                             kNoGridIcon, -1, -1, {}, 0, kShellIcon, QStringLiteral(".HTM"));
            grid.CellDetails(row, 7, row);
            grid.CellDetails(row, 8, created);
            grid.CellDetails(row, kUpdated, created);
            grid.CellDetails(row, 10, QStringLiteral("Category"));
        }
        grid.setRedraw(true);
    }

    std::unique_ptr<IconList> images;
    vbalGrid grid;
};

FullGrid &full()
{
    static FullGrid shared;
    return shared;
}

void fill(benchmark::State &state)
{
    FullGrid &of = full();
    for (auto _ : state)
        of.fill();
}

void memory(benchmark::State &state)
{
    for (auto _ : state) {
        const double before = memoryInUse();
        const FullGrid another;
        state.counters["MB"] = (memoryInUse() - before) / 1024;
    }
}

/// A click on each header, as the browser states its keys: ties go on to keys that compare nothing.
void sort(benchmark::State &state)
{
    vbalGrid &grid = full().grid;
    const auto column = static_cast<int>(state.range(0));
    int order = kSortDescending;
    for (auto _ : state) {
        order = order == kSortAscending ? kSortDescending : kSortAscending;
        cShellSortTGridCells &keys = grid.SortObject();
        keys.Clear();
        keys.setSortColumn(1, static_cast<qint16>(column));
        keys.setSortOrder(1, order);
        keys.setLastSortIndex(column);
        keys.setSortType(1, static_cast<qint32>(state.range(1)));
        grid.Sort();
    }
}

/// Frames of a steady scroll, the whole window drawn in each or only what comes in.
void scroll(benchmark::State &state)
{
    vbalGrid &grid = full().grid;
    const bool drawsAll = state.range(0) != 0;
    grid.resize(1400, 1000);
    grid.show();
    QApplication::processEvents();
    QVector<qint64> frames;
    int value = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        value = (value + 37) % 1'000'000;
        grid.setVScrollValue(value);
        if (drawsAll)
            grid.viewport()->repaint();
        QApplication::processEvents();
        frames.append(timer.nsecsElapsed());
    }
    std::sort(frames.begin(), frames.end());
    state.counters["p95_ms"] = static_cast<double>(frames[frames.size() * 95 / 100]) / 1e6;
    state.counters["max_ms"] = static_cast<double>(frames.last()) / 1e6;
}

void selectAll(benchmark::State &state)
{
    vbalGrid &grid = full().grid;
    for (auto _ : state) {
        grid.selectAll();
        grid.setSelectedRow(1);
    }
}

void fitWidth(benchmark::State &state)
{
    vbalGrid &grid = full().grid;
    for (auto _ : state)
        grid.AutoWidthColumn(kTitles);
    grid.setColumnWidth(kTitles, 250);
}

void searchWithoutAHit(benchmark::State &state)
{
    vbalGrid &grid = full().grid;
    grid.setKeySearchColumn(kTitles);
    for (auto _ : state)
        benchmark::DoNotOptimize(grid.FindSearchMatchRow(QStringLiteral("NOTE ON X")));
}

BENCHMARK(memory)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(fill)->Unit(benchmark::kMillisecond);
BENCHMARK(sort)
    ->Unit(benchmark::kMillisecond)
    ->ArgNames({"column", "type"})
    ->Args({1, kSortIcon})
    ->Args({kTitles, kSortTextNoCase})
    ->Args({5, kSortTextNoCase})
    ->Args({kTypes, kSortTextNoCase})
    ->Args({8, kSortDateMinute})
    ->Args({kUpdated, kSortDateMinute})
    ->Args({10, kSortTextNoCase})
    ->Args({7, kSortNumeric});
BENCHMARK(scroll)->Unit(benchmark::kMillisecond)->ArgNames({"all"})->Args({0})->Args({1});
BENCHMARK(selectAll)->Unit(benchmark::kMillisecond);
BENCHMARK(fitWidth)->Unit(benchmark::kMillisecond);
BENCHMARK(searchWithoutAHit)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QApplication>(argc, argv);
}
