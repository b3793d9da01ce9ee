// What it costs to open a database of notes, with a password and without, to change the password, to compact
// it, and to go from one to another as the Options window does.

#include "fakes/FakeEventLoop.h"
#include "fakes/FakePrompts.h"
#include "fakes/ManualTimer.h"
#include "fakes/MemorySettings.h"
#include "notes_with_texts.h"
#include "options/settings/DatabaseChange.h"
#include "platform/linux/PosixFileSystem.h"
#include "platform/sqlite/SqliteEngine.h"
#include "run_benchmarks.h"
#include "shell/Forms.h"
#include "store/NoteDatabaseSwitch.h"
#include "store/NoteStore.h"
#include "store/PasswordDialogModel.h"
#include "store/note_database.h"
#include "store/note_schema.h"
#include "watcher/WatchSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

using namespace norvane;

namespace {

const QString kPassword = QStringLiteral("open sesame");

/// Two folders with a database of that many notes each; the second one has the password.
class TwoDatabases
{
public:
    explicit TwoDatabases(int count)
    {
        for (const QString &each : {first, second}) {
            QDir().mkpath(each);
            makeNoteDatabase(*engine, files, databaseFileIn(each));
            bench::addNotesWithTexts(databaseFileIn(each), count);
        }
        open(databaseFileIn(second), {})->newPassword({}, kPassword);
        store.programFolder = folder.path();
        choose(first, {});
    }

    std::unique_ptr<dao::Database> open(const QString &file, const QString &password)
    {
        return engine->workspace(0)->openDatabase(file, false, false, QStringLiteral(";pwd=") + password);
    }
    void choose(const QString &which, const QString &password)
    {
        store.close();
        store.DatabaseFolder = which;
        store.DatabaseFile = databaseFileIn(which);
        store.DatabasePassword = password;
    }

    QTemporaryDir folder;
    const QString first = folder.filePath(QStringLiteral("first/"));
    const QString second = folder.filePath(QStringLiteral("second/"));
    PosixFileSystem files;
    std::unique_ptr<dao::Engine> engine = dao::makeSqliteEngine();
    NoteStore store{*engine, files};
};

TwoDatabases &databases()
{
    static TwoDatabases both(10'000);
    return both;
}

/// As start-up does it.
void open(benchmark::State &state)
{
    TwoDatabases &of = databases();
    const bool hasPassword = state.range(0) != 0;
    of.choose(hasPassword ? of.second : of.first, hasPassword ? kPassword : QString());
    for (auto _ : state) {
        of.store.open();
        state.PauseTiming();
        of.store.close();
        state.ResumeTiming();
    }
}

/// What the password dialog waits for.
void provePassword(benchmark::State &state)
{
    TwoDatabases &of = databases();
    for (auto _ : state)
        benchmark::DoNotOptimize(PasswordIsValid(*of.engine, databaseFileIn(of.second), kPassword));
}

void changePassword(benchmark::State &state)
{
    TwoDatabases &of = databases();
    of.store.close();
    const auto database = of.open(databaseFileIn(of.second), kPassword);
    QString now = kPassword;
    for (auto _ : state) {
        const QString next = now == kPassword ? QStringLiteral("another") : kPassword;
        database->newPassword(now, next);
        now = next;
    }
    if (now != kPassword)
        database->newPassword(now, kPassword);
}

void compact(benchmark::State &state)
{
    TwoDatabases &of = databases();
    of.store.close();
    for (auto _ : state) {
        if (!CompactNoteDatabase(*of.engine, of.files, databaseFileIn(of.first), of.store.programFolder, {}))
            state.SkipWithError("not compacted");
    }
}

/// To the database with a password and back; the questions are answered at once. The old one is compacted.
void change(benchmark::State &state)
{
    TwoDatabases &of = databases();
    of.store.CompactOnExit = state.range(0) != 0;
    of.choose(of.first, {});
    of.store.open();
    fakes::FakePrompts prompts;
    fakes::MemorySettings settings;
    fakes::FakeEventLoop events;
    fakes::ManualTimer timer;
    FormList forms;
    const WatchSettings watch;
    NoteDatabaseSwitch databases(of.store, forms, prompts, {[](const QString &) {}, [] {}});
    DatabaseChange change({.store = of.store,
                           .databases = databases,
                           .settings = settings,
                           .prompts = prompts,
                           .events = events,
                           .timer = timer,
                           .watch = watch,
                           .askPassword = [](PasswordDialogModel &model) { model.Command1_Click(kPassword); },
                           .editorsMayClose = [] { return true; }});
    bool toSecond = true;
    for (auto _ : state) {
        fakes::script(prompts.answers, {Prompts::kYes});
        if (change.changeTo(toSecond ? of.second : of.first, false) != DatabaseChange::Outcome::Changed)
            state.SkipWithError("not changed");
        toSecond = !toSecond;
    }
    of.store.close();
}

BENCHMARK(open)->Unit(benchmark::kMillisecond)->ArgName("password")->Arg(0)->Arg(1);
BENCHMARK(provePassword)->Unit(benchmark::kMillisecond);
BENCHMARK(changePassword)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(compact)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(change)->Unit(benchmark::kMillisecond)->ArgName("compacted")->Arg(0)->Arg(1)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QCoreApplication>(argc, argv);
}
