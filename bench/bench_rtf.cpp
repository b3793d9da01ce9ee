// Figures of the rich text path: reading, filling a document, writing.

#include "fakes/FakeFileSystem.h"
#include "richtext/PictureStore.h"
#include "richtext/RichTextBox.h"
#include "richtext/document_builder.h"
#include "richtext/document_reader.h"
#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"
#include "run_benchmarks.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QFile>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <memory>

using namespace norvane;

namespace {

/// Rich text of about that size, as dense as real letters are: a change of format every 28 bytes.
QByteArray generatedRtf(qsizetype size)
{
    QByteArray rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}"
                     "{\\f1\\fnil\\fcharset0 Times New Roman;}}\r\n{\\colortbl ;\\red255\\green0\\blue0;"
                     "\\red0\\green0\\blue255;}\r\n\\viewkind4\\uc1\\pard\\f0\\fs20 ";
    static const char *const kRuns[] = {
        "\\b some words in bold face \\b0 ", "plain words that stand between ",
        "\\i words that lean \\i0 ",         "\\cf1 these words are red \\cf0 ",
        "caf\\'e9 \\u8364?5 and more text ", "{\\f1\\fs28 large words here} "};
    for (int i = 0; rtf.size() < size; ++i) {
        rtf += kRuns[i % std::size(kRuns)];
        if (i % 20 == 19)
            rtf += "\\par\r\n";
    }
    return rtf + "\\par}";
}

void readRtf(benchmark::State &state)
{
    const QByteArray rtf = generatedRtf(state.range(0));
    for ([[maybe_unused]] auto unused : state)
        benchmark::DoNotOptimize(rtf::read(rtf));
    state.SetBytesProcessed(state.iterations() * rtf.size());
}

void loadDocument(benchmark::State &state)
{
    const QByteArray rtf = generatedRtf(state.range(0));
    for ([[maybe_unused]] auto unused : state) {
        auto document = std::make_unique<QTextDocument>();
        document->setUndoRedoEnabled(false);
        QTextCursor cursor(document.get());
        PictureStore pictures;
        buildDocument(*rtf::read(rtf), cursor, pictures, Extent::WholeDocument);
        benchmark::DoNotOptimize(document->characterCount());
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * rtf.size());
}

/// A line of what the system says of this process, in MB.
double statusInMegabytes(const QByteArray &line)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &each : file.readAll().split('\n')) {
        if (each.startsWith(line + ':'))
            return each.simplified().split(' ').value(1).toDouble() / 1024;
    }
    return 0;
}

/// What a document takes while it is loaded and laid out, at most, and what it takes then.
void memoryOfDocument(benchmark::State &state)
{
    const QByteArray rtf = generatedRtf(state.range(0));
    fakes::FakeFileSystem files;
    for ([[maybe_unused]] auto unused : state) {
        QFile reset(QStringLiteral("/proc/self/clear_refs"));
        if (reset.open(QIODevice::WriteOnly))
            reset.write("5"); // the most so far begins anew
        reset.close();
        const double before = statusInMegabytes("VmRSS");
        RichTextBox box(files);
        box.resize(340, 250);
        box.setTextRTF(rtf);
        const QTextDocument &document = *box.document();
        benchmark::DoNotOptimize(document.documentLayout()->blockBoundingRect(document.lastBlock()));
        state.counters["peak_MB"] = statusInMegabytes("VmHWM") - before;
        state.counters["rest_MB"] = statusInMegabytes("VmRSS") - before;
    }
}

void loadIntoBox(benchmark::State &state)
{
    const QByteArray rtf = generatedRtf(state.range(0));
    fakes::FakeFileSystem files;
    for ([[maybe_unused]] auto unused : state) {
        RichTextBox box(files);
        box.resize(340, 250);
        box.setTextRTF(rtf);
    }
}

void saveDocument(benchmark::State &state)
{
    const QByteArray rtf = generatedRtf(state.range(0));
    QTextDocument document;
    QTextCursor cursor(&document);
    PictureStore pictures;
    buildDocument(*rtf::read(rtf), cursor, pictures, Extent::WholeDocument);
    for ([[maybe_unused]] auto unused : state)
        benchmark::DoNotOptimize(rtf::write(readDocument(document)));
}

BENCHMARK(memoryOfDocument)->Arg(10 << 20)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(readRtf)->Arg(1 << 20)->Arg(10 << 20)->Unit(benchmark::kMillisecond);
BENCHMARK(loadDocument)->Arg(1 << 20)->Arg(10 << 20)->Unit(benchmark::kMillisecond);
BENCHMARK(loadIntoBox)->Arg(1 << 20)->Unit(benchmark::kMillisecond);
BENCHMARK(saveDocument)->Arg(1 << 20)->Arg(10 << 20)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return runBenchmarks<QApplication>(argc, argv);
}
