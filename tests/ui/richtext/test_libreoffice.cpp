#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"
#include "sample_documents.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QUrl>
#include <gtest/gtest.h>

using namespace norvane;

// Another program must find the same text in what we write, whatever its formats.
TEST(LibreOffice, ReadsTheTextThatWeWrite)
{
    QString text;
    rtf::Document document;
    document.defaultFont = QStringLiteral("Arial");
    for (quint32 seed = 1; seed <= 60; ++seed) {
        const rtf::Document sample = rtf::sampleDocument(seed);
        for (const rtf::Operation &operation : sample.operations) {
            if (const auto *run = std::get_if<rtf::TextRun>(&operation)) {
                rtf::CharacterFormat format = sample.characterFormats.at(run->format);
                format.hidden = false; // what is hidden is not exported as text
                format.capitals = rtf::Capitals::Normal;
                document.operations.emplace_back(
                    rtf::TextRun{run->text, document.characterFormats.indexOf(format)});
            } else if (const auto *end = std::get_if<rtf::ParagraphEnd>(&operation)) {
                rtf::ParagraphFormat format = sample.paragraphFormats.at(end->paragraphFormat);
                format.bullet = false; // its sign would be exported as text
                const int mark = document.characterFormats.indexOf({});
                document.operations.emplace_back(
                    rtf::ParagraphEnd{document.paragraphFormats.indexOf(format), mark});
            }
        }
    }

    QTemporaryDir home;
    ASSERT_TRUE(home.isValid());
    QFile file(home.filePath(QStringLiteral("written.rtf")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(rtf::write(document));
    file.close();

    QProcess office;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home.path());
    office.setProcessEnvironment(environment);
    office.setProcessChannelMode(QProcess::MergedChannels);
    office.start(QStringLiteral("soffice"),
                 {u"-env:UserInstallation="_qs + QUrl::fromLocalFile(home.filePath(u"profile"_qs)).toString(),
                  QStringLiteral("--headless"), QStringLiteral("--convert-to"),
                  QStringLiteral("txt:Text (encoded):UTF8"), QStringLiteral("--outdir"), home.path(),
                  file.fileName()});
    ASSERT_TRUE(office.waitForFinished(180'000)) << office.errorString().toStdString();

    QFile exported(home.filePath(QStringLiteral("written.txt")));
    ASSERT_TRUE(exported.open(QIODevice::ReadOnly)) << office.readAll().toStdString();
    QString found = QString::fromUtf8(exported.readAll());
    if (found.startsWith(QChar::ByteOrderMark))
        found.remove(0, 1);
    found.remove(u'\r');
    QString expected = document.plainText();
    expected.replace(QChar::LineSeparator, u'\n');
    EXPECT_EQ(found.trimmed().toStdString(), expected.trimmed().toStdString());
}
