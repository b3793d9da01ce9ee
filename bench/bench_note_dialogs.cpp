// What opening and saving the properties of a note cost: 2,000 notes, 200 categories.

#include "run_benchmarks.h"
#include "unit/watcher/Desk.h"

#include "browser/dialogs/frmProperty.h"
#include "ui/WindowParts.h"

#include <QApplication>

using namespace norvane;

namespace {

constexpr int kNotes = 2'000;
constexpr int kCategories = 200;

class FullDesk : public tests::Desk, public tests::WindowParts
{
public:
    FullDesk() : WindowParts(files, shell, clock)
    {
        const auto categories = store.database()->openRecordset(QStringLiteral("select * from Category"));
        for (int i = 0; i < kCategories; ++i) {
            categories->addNew();
            categories->setField(QStringLiteral("Name"), QStringLiteral("Category %1").arg(i));
            categories->update();
        }
        store.CategorySet()->requery();
        const auto notes = store.database()->openRecordset(QStringLiteral("select * from Memos"));
        for (int i = 0; i < kNotes; ++i) {
            notes->addNew();
            notes->setField(QStringLiteral("WindowName"), QString::number(i));
            notes->setField(QStringLiteral("FriendlyName"), QStringLiteral("Note %1").arg(i));
            notes->setField(QStringLiteral("URL"), QStringLiteral("/home/me/%1.txt").arg(i));
            notes->setField(QStringLiteral("CAT_ID"), i % kCategories);
            notes->update();
        }
        store.requeryNoteIndex();
        store.requeryNoteSet();
    }

    BrowserServices services = browserServices<tests::Desk>(*this, tests::Desk::settings);
};

FullDesk &desk()
{
    static FullDesk shared;
    return shared;
}

/// Until the dialog is on the screen, painted.
void openProperties(benchmark::State &state)
{
    const BrowserServices &services = desk().services;
    for (auto _ : state) {
        frmProperty dialog(services, kNotes / 2);
        dialog.show();
        QCoreApplication::processEvents();
        dialog.hide();
    }
}
BENCHMARK(openProperties)->Unit(benchmark::kMillisecond);

/// With a durable write for each note.
void saveProperties(benchmark::State &state)
{
    const PropertyTargets targets{desk().store, desk().forms, desk().windows, desk().browserView};
    QVector<int> IDs;
    for (int i = 1; i <= state.range(0); ++i)
        IDs.append(i);
    for (auto _ : state)
        saveProperties(targets, IDs, NoteProperties{});
}
BENCHMARK(saveProperties)->Arg(1)->Arg(100)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QApplication>(argc, argv);
}
