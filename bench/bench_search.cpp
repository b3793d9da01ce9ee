// What a search costs: a text condition over all notes, then the filter of dates on its hits. The peer
// is `grep -c` over the same texts in one file.

#include "platform/sqlite/SqliteEngine.h"
#include "store/note_schema.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <map>

using namespace norvane;

namespace {

constexpr int kWordsOfNote = 150; // about a kilobyte
constexpr int kFirstRows = 50;

/// Words of Latin and, in every tenth note, of Cyrillic letters.
QStringList makeWords(QRandomGenerator &random, char16_t first, int letters)
{
    QStringList words;
    for (int i = 0; i < 2000; ++i) {
        QString word;
        for (int length = static_cast<int>(random.bounded(2, 11)); length > 0; --length)
            word += QChar(first + random.bounded(letters));
        words.append(word);
    }
    return words;
}

/// A database of that many notes with a kilobyte of text each. All of them hold "everywhere", the one in
/// the middle holds "Needle".
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
        addAll(count);
        database = m_engine->workspace(0)->openDatabase(path, false, false, {});
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("Norvane.DAT"));
    QString texts = folder.filePath(QStringLiteral("texts"));
    std::unique_ptr<dao::Database> database;

private:
    /// By the shell of the database's own program: a note that is saved takes a sync of the disk.
    void addAll(int count)
    {
        QRandomGenerator random(11);
        const QStringList latin = makeWords(random, u'a', 26);
        const QStringList cyrillic = makeWords(random, u'\u0430', 32);
        const QDateTime start(QDate(2004, 1, 1), QTime(8, 0));
        QFile bodies(texts);
        QProcess program;
        program.start(QStringLiteral("sqlite3"), {path});
        if (!bodies.open(QIODevice::WriteOnly) || !program.waitForStarted())
            qFatal("The notes cannot be made.");
        program.write("begin;\n");
        for (int i = 0; i < count; ++i) {
            const QStringList &words = i % 10 == 9 ? cyrillic : latin;
            QString text = QStringLiteral("This is found everywhere.");
            for (int word = 0; word < kWordsOfNote; ++word)
                text += u' ' + words[random.bounded(words.size())];
            if (i == count / 2)
                text += QStringLiteral(" Needle");
            bodies.write(text.toUtf8() + '\n');
            const auto date = [&] {
                return start.addSecs(random.bounded(600'000'000))
                    .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
            };
            program.write(
                QStringLiteral("insert into Memos(FriendlyName,WindowName,URL,Active,Cat_ID,DateCreated,"
                               "LastUpdate,KeyWords,NoteText) values('Note on page %1 of the site','Page %1',"
                               "'https://example.org/pages/%1/index.html',-1,%2,'%3','%4','','%5');\n")
                    .arg(QString::number(random.bounded(1'000'000)), QString::number(i % 7), date(), date(),
                         text)
                    .toUtf8());
            if (i % 1000 == 0)
                while (program.bytesToWrite() > 0)
                    program.waitForBytesWritten();
        }
        program.write("commit;\n");
        program.closeWriteChannel();
        if (!program.waitForFinished(300'000) || program.exitCode() != 0)
            qFatal("The notes could not be made: %s", program.readAllStandardError().constData());
    }

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
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
