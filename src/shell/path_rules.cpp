#include "shell/path_rules.h"

#include <QDir>

namespace norvane {

QChar pathSeparator()
{
    return QDir::separator();
}

QString pathRoot()
{
    return pathSeparator() == u'/' ? QStringLiteral("/") : QString();
}

QString withSeparator(const QString &folder)
{
    return folder.isEmpty() || folder.endsWith(pathSeparator()) ? folder : folder + pathSeparator();
}

QString withoutSeparator(const QString &folder)
{
    return folder.size() > 1 && folder.endsWith(pathSeparator()) ? folder.chopped(1) : folder;
}

QString folderOf(const QString &path)
{
    return path.left(path.lastIndexOf(pathSeparator()) + 1);
}

} // namespace norvane
