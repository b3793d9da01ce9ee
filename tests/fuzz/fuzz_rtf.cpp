// Reads damaged rich text of the folders that are given, as long as it is told to. Whatever comes in:
// nothing breaks, what is written of it reads as the same document, and is written the same again; and a
// text document that is filled with it gives back a document that stays as it is from then on.

#include "Fuzzing.h"
#include "Mutator.h"
#include "file_bytes.h"
#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"
#include "sample_documents.h"
#include "through_text_document.h"

#include <QDir>
#include <QGuiApplication>

using namespace norvane;

namespace {

/// What is wrong with the reading of an input; empty if nothing is.
QByteArray faultOf(const QByteArray &input, bool thorough)
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
    if (!thorough) // a text document costs more than reading and writing do
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

QList<QByteArray> corpusOf(const QStringList &folders)
{
    QList<QByteArray> corpus;
    for (const QString &folder : folders) {
        const QDir files(folder);
        for (const QString &name : files.entryList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name))
            corpus.append(bytesOf(files.filePath(name)));
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
    const QGuiApplication application(argc, argv);
    const auto damage = [](const QList<QByteArray> &corpus, quint32 seed) {
        return [mutator = Mutator(corpus, seed)]() mutable { return mutator.next(); };
    };
    return runFuzzing({"fuzz_rtf", ".rtf", corpusOf, damage, faultOf});
}
