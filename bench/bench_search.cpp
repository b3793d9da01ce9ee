// What a search costs: a text condition over all notes, then the filter of dates on its hits. The peer
// is `grep -c` over the same texts in one file.

#include "notes_with_texts.h"
#include "platform/sqlite/SqliteEngine.h"
#include "run_benchmarks.h"
#include "store/note_schema.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <map>

using namespace norvane;

namespace {

constexpr int kFirstRows = 50;

/// A database of that many notes with texts.
class Notes
{
public:
    explicit Notes(int count)
    {
        m_engine->workspace(0)->createDatabase(path, {})->close();
        database = m_engine->workspace(0)->openDatabase(path, false, false, {});
        database->appendTable(categoryTable());
        database->appendTable(memosTable());
        database->close();
        bench::addNotesWithTexts(path, count, texts);
        database = m_engine->workspace(0)->openDatabase(path, false, false, {});
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("Norvane.DAT"));
    QString texts = folder.filePath(QStringLiteral("texts"));
    std::unique_ptr<dao::Database> database;

private:
    std::unique_ptr<dao::Engine> m_engine = dao::makeSqliteEngine();
};

Notes &notes(int count)
{
    static std::map<int, std::unique_ptr<Notes>> made;
    std::unique_ptr<Notes> &of = made[count];
    if (!of)
        of = std::make_unique<Notes>(count);
    return *of;
}

/// As the search window does it, with the first rows read.
void search(benchmark::State &state, const char *word, const char *dates)
{
    Notes &of = notes(static_cast<int>(state.range(0)));
    const QString pattern = QString::fromUtf8(word);
    int found = 0;
    for (auto _ : state) {
        const auto hits = of.database->openRecordset(
            QStringLiteral("Select * From Memos where WindowName like \"%1\" OR  URL like \"%1\" OR "
                           "FriendlyName like \"%1\" OR NoteText like \"%1\" Or KeyWords Like \"%1\" "
                           "order by FriendlyName")
                .arg(pattern));
        hits->setFilter(QString::fromUtf8(dates));
        const auto rows = hits->openRecordset(dao::RecordsetType::Dynaset);
        found = rows->recordCount();
        if (found > 0) {
            rows->moveLast();
            rows->moveFirst();
        }
        for (int i = 0; i < kFirstRows && !rows->eof(); ++i, rows->moveNext())
            benchmark::DoNotOptimize(rows->field(QStringLiteral("FriendlyName")));
    }
    state.counters["found"] = found;
}

void grep(benchmark::State &state, const char *word)
{
    Notes &of = notes(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QProcess program;
        program.start(QStringLiteral("grep"), {QStringLiteral("-ci"), QString::fromUtf8(word), of.texts});
        program.waitForFinished();
    }
}

constexpr char kAllDates[] = "format(DateCreated,'yyyy-mm-dd') >= '2000-01-01' AND "
                             "format(DateCreated,'yyyy-mm-dd') <= '2040-01-01' AND "
                             "format(LastUpdate,'yyyy-mm-dd') >='2000-01-01' AND "
                             "format(LastUpdate,'yyyy-mm-dd') <='2040-01-01'";
constexpr char kSomeDates[] = "format(DateCreated,'yyyy-mm-dd') >= '2010-01-01' AND "
                              "format(DateCreated,'yyyy-mm-dd') <= '2012-01-01' AND "
                              "format(LastUpdate,'yyyy-mm-dd') >='2000-01-01' AND "
                              "format(LastUpdate,'yyyy-mm-dd') <='2040-01-01' And Cat_ID=3";

#define SEARCH(name, word, dates)                                                                            \
    BENCHMARK_CAPTURE(search, name, word, dates)->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000)
SEARCH(all, "*", kAllDates);
SEARCH(everywhere, "*EveryWhere*", kAllDates);
SEARCH(everywhereSomeDates, "*EveryWhere*", kSomeDates);
SEARCH(one, "*needle*", kAllDates);
SEARCH(nowhere, "*nothing like it*", kAllDates);
SEARCH(short, "*zq*", kAllDates);
SEARCH(cyrillic, "*ЫЫЩ*", kAllDates);
SEARCH(wildcards, "*ne[a-e]dl?*", kAllDates);
BENCHMARK_CAPTURE(grep, one, "needle")->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000);

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QCoreApplication>(argc, argv);
}
