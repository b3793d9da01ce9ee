#include "platform/linux/detached_program.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace norvane {

bool startDetached(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    // A program does not start in a folder that it may not enter.
    const QString home = QDir::homePath();
    process.setWorkingDirectory(QFileInfo(home).isExecutable() ? home : QDir::rootPath());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

} // namespace norvane
