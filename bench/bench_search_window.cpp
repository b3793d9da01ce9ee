// What a search costs in its window, from the click on "&Find Now": until the first rows are on the screen,
// and until it is over.

#include "browser/grid/NoteGrid.h"
#include "controls/gridview/vbalGrid.h"
#include "notes_with_texts.h"
#include "platform/linux/LinuxShell.h"
#include "platform/qt/QtEventLoop.h"
#include "run_benchmarks.h"
#include "search/frmSearch.h"
#include "ui/WindowParts.h"
#include "unit/watcher/Desk.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QEvent>
#include <QPushButton>
#include <QStatusBar>
#include <map>

using namespace norvane;

namespace {

/// With the types, the icons and the event loop of a real desktop.
struct RealDesk : tests::Desk
{
    LinuxShell linuxShell;
    QtEventLoop events;
};

/// The search window over a database of that many notes.
class SearchWindow : public RealDesk, public tests::WindowParts, public QObject
{
public:
    explicit SearchWindow(int count) : WindowParts(files, linuxShell, clock)
    {
        store.close();
        bench::addNotesWithTexts(store.DatabaseFile, count);
        store.open();
        window = std::make_unique<frmSearch>(services);
        list = window->findChild<NoteGrid *>(QStringLiteral("DBGrid1"));
        window->resize(1400, 1000);
        window->show();
        QApplication::processEvents();
        for (QWidget *part : list->grid()->findChildren<QWidget *>())
            part->installEventFilter(this);
        list->grid()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && firstRowsMs < 0 && list->Rows() > 0)
            firstRowsMs = milliseconds();
        return QObject::eventFilter(watched, event);
    }

    void find(const QString &text)
    {
        button(QStringLiteral("Command3"))->click();
        window->findChild<QComboBox *>(QStringLiteral("cmbSearch"))->setEditText(text);
        QApplication::processEvents();
        firstRowsMs = -1;
        time.start();
        button(QStringLiteral("Command1"))->click();
        QApplication::processEvents();
        endMs = milliseconds();
    }

    double firstRowsMs = -1;
    double endMs = 0;
    NoteGrid *list = nullptr;

private:
    QPushButton *button(const QString &name) const { return window->findChild<QPushButton *>(name); }
    double milliseconds() const { return static_cast<double>(time.nsecsElapsed()) / 1e6; }

    BrowserServices services = browserServices<RealDesk>(*this, Desk::settings);
    std::unique_ptr<frmSearch> window;
    QElapsedTimer time;
};

std::map<int, std::unique_ptr<SearchWindow>> &windows()
{
    static std::map<int, std::unique_ptr<SearchWindow>> made;
    return made;
}

void search(benchmark::State &state, const char *word)
{
    const auto count = static_cast<int>(state.range(0));
    std::unique_ptr<SearchWindow> &of = windows()[count];
    if (!of)
        of = std::make_unique<SearchWindow>(count);
    double firstRows = 0;
    for (auto _ : state) {
        of->find(QString::fromUtf8(word));
        state.SetIterationTime(of->endMs / 1e3);
        firstRows += of->firstRowsMs;
    }
    if (of->list->Rows() > 0)
        state.counters["firstRowsMs"] = firstRows / static_cast<double>(state.iterations());
    state.counters["found"] = of->list->Rows();
}

#define SEARCH(name, word)                                                                                   \
    BENCHMARK_CAPTURE(search, name, word)                                                                    \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->UseManualTime()                                                                                    \
        ->Arg(10'000)                                                                                        \
        ->Arg(100'000)
SEARCH(all, "");
SEARCH(everywhere, "EveryWhere");
SEARCH(tenth, "Note on page 9");
SEARCH(one, "needle");
SEARCH(nowhere, "nothing like it");

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QApplication>(argc, argv, [] { windows().clear(); });
}
