// Pictures for looking at: each document of a folder as our control shows it, beside LibreOffice's
// rendering of the same rich text.
//
//   norvane_gallery SOURCES OUTPUT

#include "Office.h"
#include "platform/FileSystem.h"
#include "richtext/RichTextBox.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>

using namespace norvane;

namespace {

/// A page of A4 without its margins, as the documents of the gallery have it.
constexpr int kTextWidth = 643;
constexpr int kMaximumHeight = 1'600;
constexpr int kResolution = 96;
constexpr int kBorder = 12;

class NoFiles final : public FileSystem
{
public:
    bool exists(const QString &) const override { return false; }
    qint64 size(const QString &) const override { return 0; }
    QByteArray read(const QString &) const override { return {}; }
    void write(const QString &, const QByteArray &) override {}
    void makeFolder(const QString &) override {}
    void remove(const QString &) override {}
};

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage shownByUs(const QByteArray &rtf)
{
    NoFiles files;
    RichTextBox box(files);
    box.setBackColor(0xFFFFFF);
    box.document()->setDocumentMargin(0);
    box.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box.setTextRTF(rtf);
    box.resize(kTextWidth, kMaximumHeight);
    box.show();
    QCoreApplication::processEvents();
    box.resize(kTextWidth, qBound(40, int(box.document()->size().height()) + 10, kMaximumHeight));
    QCoreApplication::processEvents();
    return box.grab().toImage();
}

/// The first page, cut to what is on it.
QImage shownByOffice(const QString &pdf)
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
    const int left = qMin(used.left(), (page.width() - kTextWidth) / 2);
    return page.copy(QRect(left, used.top(), kTextWidth, used.height()));
}

QImage besideEachOther(const QImage &ours, const QImage &theirs)
{
    constexpr int kHeader = 24;
    QImage both(2 * kTextWidth + 3 * kBorder, kHeader + qMax(ours.height(), theirs.height()) + 2 * kBorder,
                QImage::Format_RGB32);
    both.fill(QColor(200, 200, 200));
    QPainter painter(&both);
    painter.fillRect(kBorder, kHeader + kBorder, kTextWidth, both.height() - kHeader - 2 * kBorder,
                     Qt::white);
    painter.fillRect(2 * kBorder + kTextWidth, kHeader + kBorder, kTextWidth,
                     both.height() - kHeader - 2 * kBorder, Qt::white);
    painter.drawText(kBorder, kHeader, QStringLiteral("Norvane"));
    painter.drawText(2 * kBorder + kTextWidth, kHeader, QStringLiteral("LibreOffice"));
    painter.drawImage(kBorder, kHeader + kBorder, ours);
    painter.drawImage(2 * kBorder + kTextWidth, kHeader + kBorder, theirs);
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
        const QImage ours = shownByUs(contentOf(document));
        const QImage theirs = shownByOffice(work.filePath(base + QStringLiteral(".pdf")));
        const QString picture = output.filePath(base + QStringLiteral(".png"));
        if (theirs.isNull() || !besideEachOther(ours, theirs).save(picture))
            return fail(picture + QStringLiteral(" could not be made"));
        std::printf("%s\n", qPrintable(picture));
    }
    return 0;
}
