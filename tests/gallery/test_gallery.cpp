#include "Office.h"
#include "file_bytes.h"
#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"
#include "sample_documents.h"
#include "through_text_document.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

const QString kTextFormat = QStringLiteral("txt:Text (encoded):UTF8");

std::string differenceOf(const QString &left, const QString &right)
{
    return firstDifference(comparableLines(left), comparableLines(right)).toStdString();
}

/// The text of a document with the numbers of its footnotes, which the text export has.
QString textOf(const rtf::Document &document)
{
    QString text;
    int notes = 0;
    for (const rtf::Operation &operation : document.operations) {
        if (const auto *run = std::get_if<rtf::TextRun>(&operation))
            text += run->text;
        else if (const auto *piece = std::get_if<rtf::KeptPiece>(&operation))
            text += piece->bytes.contains("footnote") ? QString::number(++notes) : QString();
        else if (std::holds_alternative<rtf::ParagraphEnd>(operation) ||
                 std::holds_alternative<rtf::CellEnd>(operation))
            text += u'\n';
    }
    return text;
}

/// The rich text of all documents of the gallery, and what the other program makes of it.
class Gallery : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        shared = new Shared;
        const QDir sources(QStringLiteral(NORVANE_GALLERY));
        const auto pathsOf = [](const QDir &folder, const QStringList &names) {
            QStringList paths;
            for (const QString &name : folder.entryList(names, QDir::Files))
                paths.append(folder.filePath(name));
            return paths;
        };
        const QStringList foreign = pathsOf(sources, {QStringLiteral("*.html"), QStringLiteral("*.fodt")});
        ASSERT_EQ(shared->office.convert(foreign, QStringLiteral("rtf:Rich Text Format"), shared->read.path())
                      .toStdString(),
                  std::string());
        for (const QString &file : pathsOf(sources, {QStringLiteral("*.rtf")}))
            QFile::copy(file, shared->read.filePath(QFileInfo(file).fileName()));
        const QStringList files = pathsOf(QDir(shared->read.path()), {QStringLiteral("*.rtf")});

        QStringList written;
        for (const QString &path : files) {
            const QString name = QFileInfo(path).fileName();
            QFile file(shared->written.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(rtf::write(throughTextDocument(*rtf::read(bytesOf(path)))));
            written.append(file.fileName());
            shared->names.append(QFileInfo(path).completeBaseName());
        }
        ASSERT_EQ(shared->office.convert(files, kTextFormat, shared->read.path()).toStdString(),
                  std::string());
        ASSERT_EQ(shared->office.convert(written, kTextFormat, shared->written.path()).toStdString(),
                  std::string());
    }
    static void TearDownTestSuite()
    {
        delete shared;
        shared = nullptr;
    }

    struct Shared
    {
        Office office;
        QTemporaryDir read;
        QTemporaryDir written;
        QStringList names;
    };
    static Shared *shared;
};

Gallery::Shared *Gallery::shared = nullptr;

} // namespace

TEST_F(Gallery, WeReadTheTextThatTheOtherProgramReads)
{
    ASSERT_GE(shared->names.size(), 10);
    for (const QString &name : std::as_const(shared->names)) {
        const rtf::Document document =
            *rtf::read(bytesOf(shared->read.filePath(name + QStringLiteral(".rtf"))));
        EXPECT_EQ(differenceOf(textOf(document), Office::exportedText(shared->read.path(), name)), "")
            << name.toStdString();
    }
}

TEST_F(Gallery, TheOtherProgramReadsTheSameTextFromWhatWeWrite)
{
    for (const QString &name : std::as_const(shared->names)) {
        EXPECT_EQ(differenceOf(Office::exportedText(shared->written.path(), name),
                               Office::exportedText(shared->read.path(), name)),
                  "")
            << name.toStdString();
    }
}

/// A generated document without what the text export changes or leaves out.
rtf::Document generatedDocument(quint32 seed)
{
    const rtf::Document sample = rtf::sampleDocument(seed);
    rtf::Document document = sample;
    document.characterFormats = {};
    const auto plain = [&](int &format) {
        rtf::CharacterFormat characters = sample.characterFormats.at(format);
        characters.hidden = false;
        characters.capitals = rtf::Capitals::Normal;
        characters.wrapper = -1; // fields get a new result
        format = document.characterFormats.indexOf(characters);
    };
    for (rtf::Operation &operation : document.operations) {
        if (auto *run = std::get_if<rtf::TextRun>(&operation))
            plain(run->format);
        else if (auto *picture = std::get_if<rtf::PictureRun>(&operation))
            plain(picture->format);
        else if (auto *end = std::get_if<rtf::ParagraphEnd>(&operation))
            plain(end->format);
        else if (auto *cell = std::get_if<rtf::CellEnd>(&operation))
            plain(cell->format);
    }
    return document;
}

TEST_F(Gallery, TheOtherProgramReadsGeneratedDocuments)
{
    constexpr quint32 kCount = 25;
    const QTemporaryDir folder;
    QStringList files;
    for (quint32 seed = 1; seed <= kCount; ++seed) {
        QFile file(folder.filePath(QStringLiteral("%1.rtf").arg(seed)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(rtf::write(generatedDocument(seed)));
        files.append(file.fileName());
    }
    ASSERT_EQ(shared->office.convert(files, kTextFormat, folder.path()).toStdString(), std::string());
    for (quint32 seed = 1; seed <= kCount; ++seed)
        EXPECT_EQ(differenceOf(Office::exportedText(folder.path(), QString::number(seed)),
                               generatedDocument(seed).plainText()),
                  "")
            << seed;
}

TEST_F(Gallery, WhatWeWriteStaysAsItIs)
{
    for (const QString &name : std::as_const(shared->names)) {
        const QByteArray written = bytesOf(shared->written.filePath(name + QStringLiteral(".rtf")));
        const rtf::Document document = *rtf::read(written);
        EXPECT_TRUE(rtf::write(document) == written) << name.toStdString();
        EXPECT_EQ(rtf::firstDifference(throughTextDocument(document), document).toStdString(), "")
            << name.toStdString();
    }
}
