#include "exchange/drops/dropped_texts.h"

#include "platform/FileSystem.h"
#include "shell/path_rules.h"

#include <QUrl>

namespace norvane {

bool IsLocationText(QString &s, const FileSystem &files)
{
    s = s.trimmed();
    return files.exists(s) || s.contains(QStringLiteral("://")) || s.contains(QStringLiteral("\\\\"));
}

QString FileNameOf(const QString &path, bool stripExtension)
{
    const QString name = path.mid(path.lastIndexOf(pathSeparator()) + 1);
    return stripExtension ? name.section(u'.', 0, 0) : name;
}

QString noteNameOf(const QString &file)
{
    const QString path = file.startsWith(QStringLiteral("file://")) ? QUrl(file).toLocalFile() : file;
    for (const bool stripExtension : {true, false}) {
        const QString name = FileNameOf(path, stripExtension);
        if (!name.isEmpty())
            return name;
    }
    return path;
}

} // namespace norvane
