// What a turn of the watch cycle costs: 10,000 notes, 20 windows.

#include "run_benchmarks.h"
#include "unit/watcher/Desk.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace norvane;

namespace {

constexpr int kNotes = 10'000;
constexpr int kWindows = 20;
constexpr int kOpenNotes = 5;

class FullDesk : public tests::Desk
{
public:
    FullDesk()
    {
        addNotes();
        for (int i = 0; i < kWindows; ++i) {
            // The first few windows show pages that have notes.
            const int page = i < kOpenNotes ? i : kNotes + i;
            openPage(title(page), url(page));
        }
        tick(3);
        if (openNotes().size() != kOpenNotes)
            qFatal("The notes of the benchmark did not open");
    }

    static QString title(int page) { return QStringLiteral("%1 page of a site").arg(page); }
    static QString url(int page) { return QStringLiteral("https://example.org/%1/index.html").arg(page); }

private:
    void addNotes()
    {
        const auto notes = store.database()->openRecordset(QStringLiteral("select * from Memos"));
        for (int i = 0; i < kNotes; ++i) {
            notes->addNew();
            notes->setField(QStringLiteral("WindowName"), title(i));
            notes->setField(QStringLiteral("LocationName"), title(i));
            notes->setField(QStringLiteral("FriendlyName"), title(i));
            notes->setField(QStringLiteral("URL"), url(i));
            notes->setField(QStringLiteral("Active"), true);
            notes->setField(QStringLiteral("CAT_ID"), 0);
            notes->update();
        }
        store.requeryNoteIndex();
        store.requeryNoteSet();
    }
};

FullDesk &desk()
{
    static FullDesk shared;
    return shared;
}

void unchangedTick(benchmark::State &state)
{
    FullDesk &full = desk();
    const quint64 statements = full.statements();
    const int trips = full.windows.roundTrips;
    for (auto _ : state)
        full.tick();
    state.counters["statements"] = static_cast<double>(full.statements() - statements);
    state.counters["roundTrips"] = static_cast<double>(full.windows.roundTrips - trips);
}

/// One of the windows goes on to a page without a note.
void tickAfterAPageChange(benchmark::State &state)
{
    FullDesk &full = desk();
    int page = 2 * kNotes;
    for (auto _ : state) {
        ++page;
        full.goTo(full.windows.order.first(), FullDesk::title(page), FullDesk::url(page));
        full.tick();
    }
}

/// Something moved in the stacking order and nothing else.
void tickAfterARestack(benchmark::State &state)
{
    FullDesk &full = desk();
    for (auto _ : state) {
        full.windows.change();
        full.tick();
    }
}

/// A note was saved that belongs to none of the windows.
void tickAfterANoteChange(benchmark::State &state)
{
    FullDesk &full = desk();
    int times = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto notes = full.store.database()->openRecordset(
            QStringLiteral("select * from Memos where ID=%1").arg(kNotes / 2));
        notes->edit();
        notes->setField(QStringLiteral("KeyWords"), QString::number(++times));
        notes->update();
        full.store.requeryNoteIndex();
        state.ResumeTiming();
        full.tick();
    }
}

BENCHMARK(unchangedTick)->Unit(benchmark::kMicrosecond);
BENCHMARK(tickAfterARestack)->Unit(benchmark::kMicrosecond);
BENCHMARK(tickAfterAPageChange)->Unit(benchmark::kMicrosecond);
BENCHMARK(tickAfterANoteChange)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    // Ten thousand durable saves would measure the disk for minutes before the first figure.
    if (QFileInfo(QStringLiteral("/dev/shm")).isWritable())
        qputenv("TMPDIR", "/dev/shm");
    return runBenchmarks<QCoreApplication>(argc, argv);
}
