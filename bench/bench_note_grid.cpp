// What the browser's list of notes costs with a database of 10,000 and 100,000 notes.

#include "browser/grid/NoteGrid.h"
#include "browser/grid/note_columns.h"
#include "controls/gridview/vbalGrid.h"
#include "memory_in_use.h"
#include "platform/linux/LinuxShell.h"
#include "run_benchmarks.h"
#include "ui/WindowParts.h"
#include "unit/watcher/Desk.h"

#include <QApplication>
#include <QProcess>
#include <QRandomGenerator>

using namespace norvane;

namespace {

constexpr int kCategories = 10;

/// With the types and icons of a real desktop.
struct DeskWithTypes : tests::Desk
{
    LinuxShell linuxShell;
};

/// The list on the screen over a database of notes in ten categories: web pages, documents of a dozen kinds,
/// folders and plain notes.
class Notes : public DeskWithTypes, public tests::WindowParts
{
public:
    explicit Notes(int count) : WindowParts(files, linuxShell, clock)
    {
        const auto categories = store.database()->openRecordset(QStringLiteral("select * from Category"));
        for (int i = 0; i < kCategories; ++i) {
            categories->addNew();
            categories->setField(QStringLiteral("Name"), QStringLiteral("Category %1").arg(i));
            categoryIds.append(categories->field(QStringLiteral("ID")).toInt());
            categories->update();
        }
        categories->close();
        store.close();
        addAll(count);
        store.open();
        list.setObjectName(QStringLiteral("GRD"));
        list.setGridDB(store.database());
        list.resize(1400, 1000);
        list.show();
    }

    QVector<int> categoryIds;
    BrowserServices services = browserServices<tests::Desk>(*this, Desk::settings);
    NoteGrid list{services};

private:
    /// By the shell of the database's own program: a note that is saved takes a sync of the disk.
    void addAll(int count)
    {
        static const QStringList kinds{QStringLiteral("pdf"), QStringLiteral("odt"), QStringLiteral("txt"),
                                       QStringLiteral("ods"), QStringLiteral("jpg"), QStringLiteral("png"),
                                       QStringLiteral("cpp"), QStringLiteral("html")};
        QRandomGenerator random(7);
        const QDateTime start(QDate(2004, 1, 1), QTime(8, 0));
        QByteArray sql = "begin;\n";
        for (int i = 0; i < count; ++i) {
            const auto number = static_cast<int>(random.bounded(1'000'000));
            QString place = QStringLiteral("https://example.org/pages/%1/index.html").arg(number);
            if (i % 10 == 7)
                place =
                    QStringLiteral("/home/ann/letters/%1.%2").arg(number).arg(kinds[i / 10 % kinds.size()]);
            else if (i % 10 == 8)
                place = QStringLiteral("/home/ann/projects/%1").arg(number);
            else if (i % 10 == 9)
                place.clear();
            const auto date = [&] {
                return start.addSecs(random.bounded(600'000'000))
                    .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
            };
            sql += QStringLiteral(
                       "insert into Memos(FriendlyName,WindowName,URL,Active,Cat_ID,DateCreated,"
                       "LastUpdate) values('Note on page %1 of the site','Page %1','%2',%3,%4,'%5','%6');\n")
                       .arg(number)
                       .arg(place)
                       .arg(i % 3 == 0 ? 0 : -1)
                       .arg(categoryIds[number % kCategories])
                       .arg(date(), date())
                       .toUtf8();
        }
        QProcess program;
        program.start(QStringLiteral("sqlite3"), {store.DatabaseFile});
        program.write(sql + "commit;\n");
        program.closeWriteChannel();
        if (!program.waitForFinished(120'000) || program.exitCode() != 0)
            qFatal("The notes could not be made: %s", program.readAllStandardError().constData());
    }
};

std::map<int, std::unique_ptr<Notes>> &allNotes()
{
    static std::map<int, std::unique_ptr<Notes>> made;
    return made;
}

Notes &notes(int count)
{
    std::unique_ptr<Notes> &of = allNotes()[count];
    if (!of)
        of = std::make_unique<Notes>(count);
    return *of;
}

void memory(benchmark::State &state)
{
    Notes &of = notes(100'000);
    for (auto _ : state) {
        const double before = memoryInUse();
        of.list.Refresh_Grid();
        state.counters["MB"] = (memoryInUse() - before) / 1024;
        state.counters["rows"] = of.list.Rows();
    }
}

void read(benchmark::State &state)
{
    Notes &of = notes(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const auto rows = of.store.database()->openRecordset(
            QStringLiteral(
                "select ID,Active,FriendlyName,DateCreated,LastUpdate,URL,Cat_ID from memos order by "
                "FriendlyName"),
            dao::RecordsetType::ForwardOnly);
        benchmark::DoNotOptimize(rows->eof());
    }
}

void fill(benchmark::State &state)
{
    Notes &of = notes(static_cast<int>(state.range(0)));
    of.list.FilterCategory = 0;
    for (auto _ : state) {
        of.list.setGridDB(of.store.database()); // all rows are read again
        of.list.Refresh_Grid();
    }
    state.counters["rows"] = of.list.Rows();
}

/// From one category to the next, drawn.
void switchCategory(benchmark::State &state)
{
    Notes &of = notes(static_cast<int>(state.range(0)));
    int turn = 0;
    for (auto _ : state) {
        of.list.FilterCategory = of.categoryIds[++turn % kCategories];
        of.list.Refresh_Grid();
        QApplication::processEvents();
    }
    state.counters["rows"] = of.list.Rows();
}

/// A click on each header, to and fro.
void sort(benchmark::State &state)
{
    Notes &of = notes(100'000);
    of.list.FilterCategory = 0;
    of.list.Refresh_Grid();
    for (auto _ : state)
        emit of.list.grid()->ColumnClick(static_cast<int>(state.range(0)));
}

/// What a note's save, a new note or a deleted one costs the list, sorted by a column; not the save itself.
void refresh(benchmark::State &state)
{
    enum Edit { kSave, kAdd, kDelete };
    Notes &of = notes(static_cast<int>(state.range(0)));
    const auto edit = static_cast<Edit>(state.range(2));
    of.list.FilterCategory = 0;
    emit of.list.grid()->ColumnClick(static_cast<int>(state.range(1)));
    of.list.Refresh_Grid();
    const auto rows = of.store.database()->openRecordset(QStringLiteral("select * from Memos"));
    int turn = 0;
    for (auto _ : state) {
        state.PauseTiming();
        rows->findFirst(QStringLiteral("ID=%1").arg(of.list.GetCelText(++turn * 37, kColumnID)));
        if (edit == kDelete) {
            rows->remove();
        } else {
            if (edit == kAdd) {
                rows->addNew();
                rows->setField(QStringLiteral("WindowName"), QStringLiteral("new"));
                rows->setField(QStringLiteral("CAT_ID"), 0);
                rows->setField(QStringLiteral("FriendlyName"),
                               QStringLiteral("Note on page %1x").arg(turn * 7));
            } else {
                rows->edit();
            }
            rows->setField(QStringLiteral("LastUpdate"),
                           QDateTime(QDate(2024, 1, 1), QTime(8, 0)).addSecs(turn * 60));
            rows->update();
        }
        state.ResumeTiming();
        of.list.Refresh_Grid();
        QApplication::processEvents();
    }
}

BENCHMARK(memory)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(read)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000);
BENCHMARK(fill)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000);
BENCHMARK(switchCategory)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000);
BENCHMARK(refresh)
    ->Unit(benchmark::kMillisecond)
    ->ArgNames({"notes", "column", "edit"})
    ->ArgsProduct({{10'000, 100'000}, {kColumnTitle, kColumnLastUpdate, kColumnType}, {0, 1, 2}})
    ->Iterations(10);
BENCHMARK(sort)
    ->Unit(benchmark::kMillisecond)
    ->ArgName("column")
    ->Arg(kColumnActive)
    ->Arg(kColumnTitle)
    ->Arg(kColumnDateCreated)
    ->Arg(kColumnLastUpdate)
    ->Arg(kColumnLocation)
    ->Arg(kColumnType)
    ->Arg(kColumnCategory);

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QApplication>(argc, argv, [] { allNotes().clear(); });
}
