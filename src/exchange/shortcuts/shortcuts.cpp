#include "exchange/shortcuts/shortcuts.h"

#include "exchange/shortcuts/shell_link.h"
#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "shell/path_rules.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace norvane {

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("Shortcuts", source);
}

bool isHeader(const QString &line)
{
    return line.trimmed().startsWith(u'[');
}

bool isSection(const QString &line, const QString &section)
{
    return line.trimmed().compare(u'[' + section + u']', Qt::CaseInsensitive) == 0;
}

} // namespace

QString GetSpecialFolder(const Shell &shell, SpecialFolder folder)
{
    return withSeparator(shell.specialFolder(folder));
}

void CreateShortcut(const ShortcutParts &parts, const QString &Folder, const QString &LinkName,
                    const ShellLink &link)
{
    if (!parts.files.exists(Folder)) {
        parts.prompts.messageBox(text("Folder '%1' is temporary unavailable.").arg(Folder),
                                 Prompts::kCritical, text("Error"));
        return;
    }
    if (!parts.files.exists(link.target)) {
        parts.prompts.messageBox(text("Can not create shortcut. Please try again later."), Prompts::kCritical,
                                 text("Error"));
        return;
    }
    parts.files.write(withSeparator(Folder) + LinkName + QStringLiteral(".lnk"), shellLinkBytes(link));
}

QString favoriteName(const QString &title)
{
    return fileNameFrom(title, u"/\\:*?\"<>|");
}

QString AddToFavorites(const ShortcutParts &parts, const FavoriteChooser &choose, const QString &Title,
                       const QString &URL)
{
    if (Title.isEmpty() || URL.isEmpty())
        return {};
    const QString folder = GetSpecialFolder(parts.shell, SpecialFolder::Favorites);
    if (folder.isEmpty())
        return {};
    const QString path = choose(favoriteName(Title), folder);
    if (path.isEmpty())
        return {};
    QString address = URL;
    address.remove(u'\r').remove(u'\n');
    WriteProfileString(parts.files, QStringLiteral("InternetShortcut"), QStringLiteral("URL"), address, path);
    return path;
}

void WriteProfileString(FileSystem &files, const QString &Section, const QString &Key, const QString &Value,
                        const QString &File)
{
    static const QRegularExpression lineEnd(QStringLiteral("\r\n|\n|\r"));
    QStringList lines;
    if (files.exists(File))
        lines = QString::fromUtf8(files.read(File)).split(lineEnd);
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
        lines.removeLast();
    auto section = std::find_if(lines.begin(), lines.end(),
                                [&](const QString &line) { return isSection(line, Section); });
    if (section == lines.end()) {
        lines.append(u'[' + Section + u']');
        section = std::prev(lines.end());
    }
    const auto end = std::find_if(std::next(section), lines.end(), isHeader);
    const auto value = std::find_if(std::next(section), end, [&](const QString &line) {
        return line.section(u'=', 0, 0).trimmed().compare(Key, Qt::CaseInsensitive) == 0;
    });
    const QString line = Key + u'=' + Value;
    if (value != end)
        *value = line;
    else
        lines.insert(end, line);
    files.write(File, (lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8());
}

} // namespace norvane
