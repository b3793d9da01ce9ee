// Figures of the editor: opening it, and working in a document of 1 MB and 20,000 paragraphs.

#include "fakes/Editing.h"
#include "richtext/NV_RTFEdit.h"
#include "richtext/links/document_scan.h"
#include "run_benchmarks.h"

#include <QApplication>
#include <QKeyEvent>

using namespace norvane;

namespace {

constexpr int kParagraphs = 20'000;

/// About 1 MB of text.
QString longText()
{
    QString text;
    for (int i = 0; i < kParagraphs; ++i) {
        text += QStringLiteral("paragraph %1 with some words in it").arg(i);
        if (i % 10 == 0)
            text += QStringLiteral(" and www.example%1.org or <me%1@example.org> too").arg(i);
        text += QStringLiteral("\r\n");
    }
    return text;
}

/// An editor with the long text, on the screen and laid out.
struct LongDocument : Editing
{
    explicit LongDocument(bool toolBar = true)
    {
        edit.setToolBar(toolBar);
        edit.resize(640, 400);
        edit.setText(longText());
        edit.show();
        edit.box()->document()->documentLayout();
        edit.setSelStart(500'000);
        QCoreApplication::processEvents();
    }
    void press(int key, const QString &text)
    {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(edit.box(), &down);
    }

    NV_RTFEdit edit{services};
};

/// What a note without a tool bar costs until it is on the screen.
void openEditor(benchmark::State &state)
{
    Editing editing;
    for ([[maybe_unused]] auto unused : state) {
        NV_RTFEdit editor(editing.services);
        editor.setToolBar(false);
        editor.setBackColor(0xC0FFFF);
        editor.setTextRTF("{\\rtf1 a few words\\par}");
        editor.resize(340, 250);
        editor.show();
        QCoreApplication::processEvents();
    }
}

void typeCharacters(benchmark::State &state)
{
    LongDocument document(state.range(0) != 0);
    for ([[maybe_unused]] auto unused : state) {
        document.press(Qt::Key_A, QStringLiteral("a"));
        QCoreApplication::processEvents(); // it is painted, too
    }
}

void typeBlanksWithLinkCheck(benchmark::State &state)
{
    LongDocument document;
    document.edit.setAutoURLDetect(true);
    document.edit.setSelStart(int(state.range(0)));
    for ([[maybe_unused]] auto unused : state) {
        document.press(Qt::Key_A, QStringLiteral("a"));
        document.press(Qt::Key_Space, QStringLiteral(" "));
        QCoreApplication::processEvents();
    }
}

void typeEnter(benchmark::State &state)
{
    LongDocument document;
    for ([[maybe_unused]] auto unused : state) {
        document.press(Qt::Key_Return, QStringLiteral("\r"));
        QCoreApplication::processEvents();
    }
}

void getAndSetSelStart(benchmark::State &state)
{
    LongDocument document;
    int position = 0;
    for ([[maybe_unused]] auto unused : state) {
        position = (position + 77'777) % 900'000;
        document.edit.setSelStart(position);
        document.edit.setSelLength(10);
        benchmark::DoNotOptimize(document.edit.SelStart() + document.edit.SelLength());
        benchmark::DoNotOptimize(document.edit.SelText());
    }
}

void findInLongText(benchmark::State &state)
{
    LongDocument document;
    const bool edited = state.range(0) != 0;
    for ([[maybe_unused]] auto unused : state) {
        if (edited) // the text is not known any more
            document.edit.setSelText(QStringLiteral("x"));
        benchmark::DoNotOptimize(document.edit.box()->Find(QStringLiteral("paragraph 19999 with"), 0));
    }
}

void scanText(benchmark::State &state)
{
    const QString text = longText();
    for ([[maybe_unused]] auto unused : state)
        benchmark::DoNotOptimize(links::scanDocument(text));
    state.SetBytesProcessed(state.iterations() * text.size());
}

/// With the look of links given to all of them, and the window up to date again.
void scanDocument(benchmark::State &state)
{
    for ([[maybe_unused]] auto unused : state) {
        state.PauseTiming();
        auto document = std::make_unique<LongDocument>();
        state.ResumeTiming();
        document->edit.setAutoURLDetect(true);
        QCoreApplication::processEvents();
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
}

void moveThePointer(benchmark::State &state)
{
    LongDocument document;
    document.edit.setAutoURLDetect(true);
    QWidget *viewport = document.edit.box()->viewport();
    int x = 0;
    for ([[maybe_unused]] auto unused : state) {
        x = (x + 37) % 600;
        const QPointF point(x, 100);
        QMouseEvent move(QEvent::MouseMove, point, viewport->mapToGlobal(point), Qt::NoButton, Qt::NoButton,
                         {});
        QCoreApplication::sendEvent(viewport, &move);
    }
}

BENCHMARK(openEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(typeCharacters)->ArgName("toolBar")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(typeBlanksWithLinkCheck)
    ->ArgName("caret")
    ->Arg(30'000)
    ->Arg(500'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(typeEnter)->Unit(benchmark::kMicrosecond);
BENCHMARK(getAndSetSelStart)->Unit(benchmark::kMicrosecond);
BENCHMARK(findInLongText)->ArgName("edited")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(scanText)->Unit(benchmark::kMillisecond);
BENCHMARK(scanDocument)->Unit(benchmark::kMillisecond);
BENCHMARK(moveThePointer)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QApplication>(argc, argv);
}
