// Reads damaged rich text, as long as it is told to. Whatever comes in: nothing breaks, what is
// written of it reads as the same document, and is written the same again; and a text document that
// is filled with it gives back a document that stays as it is from then on.
//
//   fuzz_rtf [--inputs N] [--seconds N] [--seed N] [--findings FOLDER] CORPUS...
//       damages files of folders, so many of them or so long
//   fuzz_rtf --try FILE...
//       tries files as they are

#include "Mutator.h"
#include "richtext/PictureStore.h"
#include "richtext/document_builder.h"
#include "richtext/document_reader.h"
#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"
#include "sample_documents.h"

#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTextDocument>
#include <cstdio>
#include <ctime>
#include <functional>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

using namespace norvane;

namespace {

/// Of the processor, for a short input; anything near it is work that grows faster than the input.
constexpr qint64 kMaximumMilliseconds = 4'000;

/// What the processor has worked for this thread, however busy the machine is.
qint64 workedMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1'000 + time.tv_nsec / 1'000'000;
}

QByteArray currentInput;
QString findingsFolder;

void keepFinding(const QByteArray &input, const char *kind)
{
    QDir().mkpath(findingsFolder);
    QFile file(findingsFolder + u'/' + QLatin1StringView(kind) + QStringLiteral(".rtf"));
    if (file.open(QIODevice::WriteOnly))
        file.write(input);
    std::fprintf(stderr, "kept in %s\n", qPrintable(file.fileName()));
}

rtf::Document throughTextDocument(const rtf::Document &document)
{
    QTextDocument text;
    QTextCursor cursor(&text);
    PictureStore pictures;
    buildDocument(document, cursor, pictures, Extent::WholeDocument);
    return readDocument(text);
}

/// What is wrong with the reading of an input; empty if nothing is.
QByteArray faultOf(const QByteArray &input, bool withTextDocument)
{
    const std::optional<rtf::Document> document = rtf::read(input);
    if (!document)
        return {};
    const QByteArray once = rtf::write(*document);
    const std::optional<rtf::Document> again = rtf::read(once);
    if (!again)
        return "what is written cannot be read";
    if (again->plainText() != document->plainText())
        return "the text changes";
    if (rtf::write(*again) != once)
        return "it is written differently the second time";
    if (!withTextDocument)
        return {};
    const rtf::Document filled = throughTextDocument(*document);
    const QByteArray saved = rtf::write(filled);
    const rtf::Document loaded = throughTextDocument(*rtf::read(saved));
    if (loaded.plainText() != filled.plainText())
        return "the text of the text document changes";
    if (rtf::write(loaded) != saved)
        return "the text document is saved differently the second time";
    return {};
}

/// A smaller part of an input that still has the fault.
QByteArray shrunk(QByteArray input, const std::function<bool(const QByteArray &)> &isFaulty)
{
    constexpr qint64 kPatience = 60'000;
    QElapsedTimer timer;
    timer.start();
    for (qsizetype size = input.size() / 2; size > 0; size /= 2) {
        for (qsizetype at = 0; at < input.size() && timer.elapsed() < kPatience;) {
            QByteArray shorter = input;
            shorter.remove(at, size);
            if (isFaulty(shorter))
                input = shorter;
            else
                at += size;
        }
    }
    return input;
}

/// False when it has a fault.
bool tryInput(const QByteArray &input, bool withTextDocument)
{
    currentInput = input;
    const qint64 before = workedMilliseconds();
    const QByteArray fault = faultOf(input, withTextDocument);
    const qint64 taken = workedMilliseconds() - before;
    if (!fault.isEmpty()) {
        std::fprintf(stderr, "fuzz_rtf: %s\n", fault.constData());
        const QByteArray small = shrunk(input, [&](const QByteArray &shorter) {
            currentInput = shorter;
            return faultOf(shorter, withTextDocument) == fault;
        });
        std::fprintf(stderr, "%s\n", small.constData());
        keepFinding(small, "changes");
        return false;
    }
    if (taken > kMaximumMilliseconds) {
        std::fprintf(stderr, "fuzz_rtf: %lld ms for %lld bytes\n", static_cast<long long>(taken),
                     static_cast<long long>(input.size()));
        keepFinding(input, "slow");
        return false;
    }
    return true;
}

QList<QByteArray> corpusOf(const QStringList &folders)
{
    QList<QByteArray> corpus;
    for (const QString &folder : folders) {
        const QFileInfoList files =
            QDir(folder).entryInfoList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name);
        for (const QFileInfo &info : files) {
            QFile file(info.filePath());
            if (file.open(QIODevice::ReadOnly))
                corpus.append(file.readAll());
        }
    }
    for (quint32 seed = 1; seed <= 30; ++seed)
        corpus.append(rtf::write(rtf::sampleDocument(seed)));
    return corpus;
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QCommandLineParser options;
    const QCommandLineOption inputs(QStringLiteral("inputs"), {}, QStringLiteral("n"));
    const QCommandLineOption seconds(QStringLiteral("seconds"), {}, QStringLiteral("n"), QStringLiteral("5"));
    const QCommandLineOption seed(QStringLiteral("seed"), {}, QStringLiteral("n"), QStringLiteral("1"));
    const QCommandLineOption findings(QStringLiteral("findings"), {}, QStringLiteral("folder"),
                                      QStringLiteral("findings"));
    const QCommandLineOption tryFiles(QStringLiteral("try"));
    options.addOptions({inputs, seconds, seed, findings, tryFiles});
    options.process(application);
    findingsFolder = options.value(findings);
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback([] { keepFinding(currentInput, "breaks"); });
#endif

    if (options.isSet(tryFiles)) {
        bool isGood = true;
        for (const QString &name : options.positionalArguments()) {
            QFile file(name);
            isGood = file.open(QIODevice::ReadOnly) && tryInput(file.readAll(), true) && isGood;
        }
        return isGood ? 0 : 1;
    }

    const QList<QByteArray> corpus = corpusOf(options.positionalArguments());
    for (const QByteArray &input : corpus) {
        if (!tryInput(input, true))
            return 1;
    }
    Mutator mutator(corpus, options.value(seed).toUInt());
    const quint64 wanted = options.value(inputs).toULongLong();
    const qint64 milliseconds = options.value(seconds).toLongLong() * 1000;
    QElapsedTimer timer;
    timer.start();
    quint64 count = 0;
    for (; wanted > 0 ? count < wanted : timer.elapsed() < milliseconds; ++count) {
        // A text document costs more than reading and writing do.
        if (!tryInput(mutator.next(), count % 4 == 0)) {
            std::fprintf(stderr, "fuzz_rtf: after %llu inputs of seed %s\n",
                         static_cast<unsigned long long>(count), qPrintable(options.value(seed)));
            return 1;
        }
    }
    std::printf("fuzz_rtf: %llu inputs of seed %s, nothing found\n", static_cast<unsigned long long>(count),
                qPrintable(options.value(seed)));
    return 0;
}
