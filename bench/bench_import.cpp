// What an import costs: notes with a kilobyte of text and a body file each, into an empty database. The peer
// is `cp` of the same folder, synced.

#include "exchange/import/ImportList.h"
#include "exchange/import/ImportSource.h"
#include "exchange/import/NoteImport.h"
#include "platform/linux/PosixFileSystem.h"
#include "platform/sqlite/SqliteEngine.h"
#include "run_benchmarks.h"
#include "store/NoteStore.h"
#include "store/note_schema.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <map>

using namespace norvane;

namespace {

/// A folder with a database, which has that many notes.
class Notes
{
public:
    explicit Notes(int count)
    {
        store.DatabaseFolder = folder.path() + u'/';
        store.DatabaseFile = databaseFileIn(store.DatabaseFolder);
        store.programFolder = folder.path();
        makeNoteDatabase(*engine, files, store.DatabaseFile);
        store.open();
        if (count > 0)
            addAll(count);
    }

    QTemporaryDir folder;
    PosixFileSystem files;
    std::unique_ptr<dao::Engine> engine = dao::makeSqliteEngine();
    NoteStore store{*engine, files};

private:
    void addAll(int count)
    {
        const QByteArray body = "{\\rtf1\\ansi " + QByteArray("A word and another. ").repeated(100) + '}';
        const QDateTime date(QDate(2024, 1, 1), QTime(8, 0));
        QStringList bodies;
        store.database()->beginTrans();
        const auto rows = store.database()->openRecordset(QStringLiteral("select * from Memos where false"));
        for (int i = 0; i < count; ++i) {
            rows->addNew();
            rows->setField(QStringLiteral("WindowName"), QStringLiteral("Page %1").arg(i));
            rows->setField(QStringLiteral("FriendlyName"), QStringLiteral("Page %1").arg((i * 7919) % count));
            rows->setField(QStringLiteral("URL"), QStringLiteral("https://example.org/pages/%1").arg(i));
            rows->setField(QStringLiteral("NoteText"), QString::fromLatin1(body.mid(12, 1000)));
            rows->setField(QStringLiteral("CAT_ID"), 0);
            rows->setField(QStringLiteral("DateCreated"), date.addSecs(i * 1000));
            rows->setField(QStringLiteral("LastUpdate"), date.addSecs(i * 1000));
            const int ID = rows->field(QStringLiteral("ID")).toInt();
            rows->update();
            if (count > 10'000)
                continue; // for the list alone
            QFile file(store.bodyFile(ID));
            if (!file.open(QIODevice::WriteOnly) || file.write(body) != body.size())
                qFatal("The notes cannot be made.");
        }
        store.database()->commitTrans();
        store.close();
    }
};

Notes &notes(int count)
{
    static std::map<int, std::unique_ptr<Notes>> made;
    std::unique_ptr<Notes> &of = made[count];
    if (!of)
        of = std::make_unique<Notes>(count);
    return *of;
}

/// What the window lists.
void list(benchmark::State &state)
{
    Notes &of = notes(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const ImportSource source(*of.engine, of.store.DatabaseFile, {});
        benchmark::DoNotOptimize(source.rows());
    }
}

void sort(benchmark::State &state)
{
    Notes &of = notes(static_cast<int>(state.range(0)));
    ImportList all;
    all.setRows(ImportSource(*of.engine, of.store.DatabaseFile, {}).rows());
    int turn = 0;
    for (auto _ : state)
        all.sort(ImportList::kURL, ++turn % 2 == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
}

/// @param again whether all of them stand there already
void import(benchmark::State &state, bool again)
{
    Notes &of = notes(static_cast<int>(state.range(0)));
    const ImportSource source(*of.engine, of.store.DatabaseFile, {});
    QVector<int> IDs;
    for (const ImportRow &row : source.rows())
        IDs.append(row.ID);
    qint64 longest = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Notes target(0);
        NoteImport notesOf(target.store, source.database(), of.store.DatabaseFolder, {});
        if (again)
            notesOf.run(IDs, [](int) { return true; });
        QElapsedTimer asked;
        asked.start();
        state.ResumeTiming();
        const ImportResult result = notesOf.run(IDs, [&](int) {
            longest = std::max(longest, asked.restart());
            return true;
        });
        state.PauseTiming();
        if (result.failure || (again ? result.bypassed : result.imported) != IDs.size())
            qFatal("The import has failed.");
        state.ResumeTiming();
    }
    state.counters["longest_without_events_ms"] = static_cast<double>(longest);
}

void copy(benchmark::State &state)
{
    Notes &of = notes(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const QTemporaryDir target;
        QProcess program;
        program.start(QStringLiteral("sh"),
                      {QStringLiteral("-c"), QStringLiteral("cp -r \"$0\" \"$1/copy\" && sync \"$1\"/copy/*"),
                       of.folder.path(), target.path()});
        program.waitForFinished(-1);
    }
}

BENCHMARK(list)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000);
BENCHMARK(sort)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000);
BENCHMARK_CAPTURE(import, all, false)
    ->Unit(benchmark::kMillisecond)
    ->Arg(10'000)
    ->Iterations(3)
    ->UseRealTime();
BENCHMARK_CAPTURE(import, again, true)
    ->Unit(benchmark::kMillisecond)
    ->Arg(10'000)
    ->Iterations(3)
    ->UseRealTime();
BENCHMARK(copy)->Unit(benchmark::kMillisecond)->Arg(10'000)->Iterations(3)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QCoreApplication>(argc, argv);
}
