#include "Office.h"

#include "richtext/rtf/symbol_fonts.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QUrl>

namespace norvane {
namespace {

constexpr char16_t kFirstSign = 0xF020;
constexpr char16_t kLastSign = 0xF0FF;

} // namespace

QString Office::convert(const QStringList &files, const QString &format, const QString &folder) const
{
    constexpr int kPatience = 300'000;
    QProcess office;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), m_home.path());
    environment.insert(QStringLiteral("SAL_USE_VCLPLUGIN"), QStringLiteral("svp"));
    office.setProcessEnvironment(environment);
    office.setProcessChannelMode(QProcess::MergedChannels);
    const QString profile = QUrl::fromLocalFile(m_home.filePath(QStringLiteral("profile"))).toString();
    office.start(QStringLiteral("soffice"),
                 QStringList{QStringLiteral("-env:UserInstallation=") + profile, QStringLiteral("--headless"),
                             QStringLiteral("--convert-to"), format, QStringLiteral("--outdir"), folder} +
                     files);
    if (!office.waitForFinished(kPatience)) {
        office.kill();
        office.waitForFinished();
        return QStringLiteral("soffice: ") + office.errorString();
    }
    const QString said = QString::fromLocal8Bit(office.readAll());
    const QString suffix = format.section(u':', 0, 0);
    for (const QString &file : files) {
        if (!QFile::exists(folder + u'/' + QFileInfo(file).completeBaseName() + u'.' + suffix))
            return said + file + QStringLiteral(" was not converted");
    }
    return {};
}

QString Office::exportedText(const QString &folder, const QString &baseName)
{
    QFile file(folder + u'/' + baseName + QStringLiteral(".txt"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString text = QString::fromUtf8(file.readAll());
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    return text.remove(u'\r');
}

QStringList comparableLines(const QString &text)
{
    // A sign, or numbers and letters with the stops between and behind them.
    static const QRegularExpression mark(
        QStringLiteral("^\\s*(?:[\u2022\u25E6\u25AA\uF0B7\u00B7o\u2192-]|[({]?[0-9A-Za-z]{1,4}(?:[.\u2013][0-"
                       "9A-Za-z]{1,4})*[.)])(?=[ \\t]|$)"));
    static const QRegularExpression page(QStringLiteral("(?<=page )[0-9]+"));
    QStringList lines;
    for (QString line : QString(text).replace(QChar::LineSeparator, u'\n').split(u'\n')) {
        line.remove(mark);
        line.replace(page, QStringLiteral("#"));
        for (QChar &character : line) {
            if (character.unicode() >= kFirstSign && character.unicode() <= kLastSign)
                character = QChar(rtf::symbolCharacter(
                    QStringLiteral("Symbol"), static_cast<unsigned char>(character.unicode() & 0xFF)));
        }
        line = line.trimmed();
        if (!line.isEmpty())
            lines.append(line);
    }
    return lines;
}

QString firstDifference(const QStringList &left, const QStringList &right)
{
    for (qsizetype line = 0; line < qMax(left.size(), right.size()); ++line) {
        if (left.value(line) != right.value(line))
            return QStringLiteral("%1: %2\nbut %3").arg(line).arg(left.value(line), right.value(line));
    }
    return {};
}

} // namespace norvane
