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

QString fileNameFrom(const QString &title, QStringView taken)
{
    constexpr qsizetype kMostBytes = 240; // of the 255 that a name may have
    QString name;
    qsizetype bytes = 0;
    for (const char32_t letter : title.toUcs4()) {
        const bool isTaken = letter < 0x80 && taken.contains(QChar(static_cast<char16_t>(letter)));
        const QString kept = isTaken || QChar::category(letter) == QChar::Other_Control
                                 ? QStringLiteral(" ")
                                 : QString::fromUcs4(&letter, 1);
        bytes += kept.toUtf8().size();
        if (bytes > kMostBytes)
            break;
        name += kept;
    }
    return name;
}

QString proposedFileName(const QString &title)
{
    return fileNameFrom(title, u"/\\:*?\"<>|.");
}

} // namespace norvane
