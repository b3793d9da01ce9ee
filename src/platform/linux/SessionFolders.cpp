#include "platform/linux/SessionFolders.h"

#include <QFile>
#include <QStandardPaths>
#include <sys/stat.h>

namespace norvane {

SessionFolders SessionFolders::fromEnvironment()
{
    SessionFolders folders;
    folders.config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    folders.data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    folders.documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    folders.configSearch = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    folders.dataSearch = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    folders.desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower().split(u':', Qt::SkipEmptyParts);
    return folders;
}

void makeFolderWithParents(const QString &path)
{
    for (qsizetype end = path.indexOf(u'/', 1); end >= 0; end = path.indexOf(u'/', end + 1))
        ::mkdir(QFile::encodeName(path.left(end)).constData(), 0700);
    ::mkdir(QFile::encodeName(path).constData(), 0700);
}

} // namespace norvane
