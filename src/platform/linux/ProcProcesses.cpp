#include "platform/linux/ProcProcesses.h"

#include "platform/linux/program_naming.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace norvane {

namespace {

/// Enough for any command line or environment that names a program near its start.
constexpr qint64 kMostBytes = 1 << 18;

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(kMostBytes) : QByteArray();
}

QByteArray environmentValue(const QByteArray &environment, const QByteArray &name)
{
    const QByteArray start = name + '=';
    for (const QByteArray &variable : environment.split('\0')) {
        if (variable.startsWith(start))
            return variable.mid(start.size());
    }
    return {};
}

QString flatpakId(const QByteArray &info)
{
    bool application = false;
    for (const QByteArray &line : info.split('\n')) {
        if (line.startsWith('['))
            application = line.trimmed() == "[Application]";
        else if (application && line.startsWith("name="))
            return QString::fromUtf8(line.mid(5).trimmed());
    }
    return {};
}

/// The target as the kernel tells it; the file need not be there any more.
QString linkTarget(const QString &path)
{
    return QFileInfo(path).symLinkTarget();
}

} // namespace

ProcProcesses::ProcProcesses(QString folder) : m_folder(std::move(folder)) {}

QString ProcProcesses::programFile(qint64 processId) const
{
    if (processId <= 0)
        return {};
    const QString process = m_folder + u'/' + QString::number(processId) + u'/';

    ProcessFacts facts;
    facts.executable = linkTarget(process + QStringLiteral("exe"));
    facts.workingFolder = linkTarget(process + QStringLiteral("cwd"));
    const QList<QByteArray> arguments = contents(process + QStringLiteral("cmdline")).split('\0');
    for (const QByteArray &argument : arguments)
        facts.arguments.append(QFile::decodeName(argument));
    const QByteArray environment = contents(process + QStringLiteral("environ"));
    facts.appImage = QFile::decodeName(environmentValue(environment, "APPIMAGE"));
    facts.appImageFolder = QFile::decodeName(environmentValue(environment, "APPDIR"));
    facts.flatpakId = flatpakId(contents(process + QStringLiteral("root/.flatpak-info")));
    facts.controlGroup = QString::fromUtf8(contents(process + QStringLiteral("cgroup")));

    const auto isFile = [](const QString &path) { return QFileInfo(path).isFile(); };
    const QStringList searchPath = qEnvironmentVariable("PATH").split(u':', Qt::SkipEmptyParts);
    return programOf(facts, isFile, searchPath).trimmed();
}

} // namespace norvane
