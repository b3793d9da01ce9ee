// Pictures for looking at: each document of a folder as our control shows it, beside LibreOffice's
// rendering of the same rich text.
//
//   norvane_gallery SOURCES OUTPUT

#include "Office.h"
#include "fakes/FakeFileSystem.h"
#include "file_bytes.h"
#include "richtext/RichTextBox.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <cstdio>

using namespace norvane;

namespace {

constexpr int kMaximumHeight = 1'600;
constexpr int kResolution = 96;
constexpr int kTwipsPerPixel = 15;
constexpr int kBorder = 12;

/// The page that a document is for, in pixels.
struct Page
{
    explicit Page(const QByteArray &rtf)
    {
        const auto stated = [&rtf](const char *word, int usual) {
            const QRegularExpression pattern(QStringLiteral("\\\\%1([0-9]+)").arg(QLatin1StringView(word)));
            const auto match = pattern.match(QString::fromLatin1(rtf));
            return (match.hasMatch() ? match.captured(1).toInt() : usual) / kTwipsPerPixel;
        };
        left = stated("margl", 1'440);
        textWidth = stated("paperw", 12'240) - left - stated("margr", 1'440);
    }

    int left = 0;
    int textWidth = 0;
};

QImage shownByUs(const QByteArray &rtf)
{
    const int width = Page(rtf).textWidth;
    fakes::FakeFileSystem files;
    RichTextBox box(files);
    box.setBackColor(0xFFFFFF);
    box.document()->setDocumentMargin(0);
    box.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box.setTextRTF(rtf);
    box.resize(width, kMaximumHeight);
    box.show();
    QCoreApplication::processEvents();
    box.resize(width, qBound(40, int(box.document()->size().height()) + 10, kMaximumHeight));
    QCoreApplication::processEvents();
    return box.grab().toImage();
}

/// The first page, cut to what is on it.
QImage shownByOffice(const QString &pdf, const Page &shape)
{
    const QString base = pdf.chopped(4);
    QProcess::execute(QStringLiteral("pdftoppm"),
                      {QStringLiteral("-png"), QStringLiteral("-r"), QString::number(kResolution),
                       QStringLiteral("-singlefile"), pdf, base});
    QImage page(base + QStringLiteral(".png"));
    page = page.convertToFormat(QImage::Format_RGB32);
    QRect used;
    for (int y = 0; y < page.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(page.constScanLine(y));
        for (int x = 0; x < page.width(); ++x) {
            if ((line[x] & 0xFFFFFF) != 0xFFFFFF)
                used |= QRect(x, y, 1, 1);
        }
    }
    // From the page's left margin on, so that indents can be compared.
    const int left = qMin(used.left(), shape.left);
    return page.copy(QRect(left, used.top(), shape.left - left + shape.textWidth, used.height()));
}

QImage besideEachOther(const QImage &ours, const QImage &theirs)
{
    constexpr int kHeader = 24;
    const int height = qMax(ours.height(), theirs.height());
    QImage both(ours.width() + theirs.width() + 3 * kBorder, kHeader + height + 2 * kBorder,
                QImage::Format_RGB32);
    both.fill(QColor(200, 200, 200));
    QPainter painter(&both);
    const auto add = [&](int x, const QString &name, const QImage &image) {
        painter.fillRect(x, kHeader + kBorder, image.width(), height, Qt::white);
        painter.drawText(x, kHeader, name);
        painter.drawImage(x, kHeader + kBorder, image);
    };
    add(kBorder, QStringLiteral("Norvane"), ours);
    add(2 * kBorder + ours.width(), QStringLiteral("LibreOffice"), theirs);
    return both;
}

int fail(const QString &why)
{
    std::fprintf(stderr, "norvane_gallery: %s\n", qPrintable(why));
    return 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3)
        return fail(QStringLiteral("usage: norvane_gallery SOURCES OUTPUT"));
    const QDir sources(arguments.at(1));
    QDir output(arguments.at(2));
    output.mkpath(QStringLiteral("."));

    const Office office;
    const QTemporaryDir work;
    QStringList foreign;
    for (const QString &name :
         sources.entryList({QStringLiteral("*.html"), QStringLiteral("*.fodt")}, QDir::Files))
        foreign.append(sources.filePath(name));
    if (const QString fault = office.convert(foreign, QStringLiteral("rtf:Rich Text Format"), work.path());
        !fault.isEmpty())
        return fail(fault);
    for (const QString &name : sources.entryList({QStringLiteral("*.rtf")}, QDir::Files))
        QFile::copy(sources.filePath(name), work.filePath(name));

    const QDir folder(work.path());
    QStringList documents;
    for (const QString &name : folder.entryList({QStringLiteral("*.rtf")}, QDir::Files))
        documents.append(folder.filePath(name));
    if (const QString fault = office.convert(documents, QStringLiteral("pdf"), work.path()); !fault.isEmpty())
        return fail(fault);
    for (const QString &document : std::as_const(documents)) {
        const QString base = QFileInfo(document).completeBaseName();
        const QByteArray rtf = bytesOf(document);
        const QImage ours = shownByUs(rtf);
        const QImage theirs = shownByOffice(work.filePath(base + QStringLiteral(".pdf")), Page(rtf));
        const QString picture = output.filePath(base + QStringLiteral(".png"));
        if (theirs.isNull() || !besideEachOther(ours, theirs).save(picture))
            return fail(picture + QStringLiteral(" could not be made"));
        std::printf("%s\n", qPrintable(picture));
    }
    return 0;
}
