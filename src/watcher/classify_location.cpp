#include "watcher/classify_location.h"

#include "platform/Shell.h"
#include "watcher/titles.h"

namespace norvane {

QString shellPathOf(const QString &location)
{
    const bool isPage = location.contains(u"http://", Qt::CaseInsensitive) ||
                        location.contains(u"https://", Qt::CaseInsensitive);
    return isPage ? QStringLiteral(".HTM") : location;
}

QString ClassifyLocation(const Shell &shell, const QString &path)
{
    constexpr qsizetype kLongestTypeName = 79;
    const QString folder = QStringLiteral("File Folder");
    const QString type = trimBlanks(TrimAtNull(shell.typeName(path).left(kLongestTypeName)));
    if (type.isEmpty() || type == QStringLiteral("File"))
        return folder;
    if (type == folder)
        return QStringLiteral("Local Disk");
    return type;
}

} // namespace norvane
