#include "Office.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QUrl>

namespace norvane {

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

QString comparableText(const QString &text)
{
    // A sign, or numbers and letters with the stops between and behind them.
    static const QRegularExpression mark(QStringLiteral(u"^\\s*(?:[\u2022\u25E6\u25AA\uF0B7\u00B7o-]|\\(?[0-"
                                                        u"9A-Za-z]{1,4}(?:\\.[0-9A-Za-z]{1,4})*[.)])[ \\t]"));
    QStringList lines;
    for (QString line : QString(text).replace(QChar::LineSeparator, u'\n').split(u'\n')) {
        line.remove(mark);
        line = line.trimmed();
        if (!line.isEmpty())
            lines.append(line);
    }
    return lines.join(u'\n');
}

} // namespace norvane
