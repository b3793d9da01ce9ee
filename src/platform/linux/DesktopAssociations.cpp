#include "platform/linux/DesktopAssociations.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMimeDatabase>
#include <QSet>
#include <algorithm>

namespace norvane {

namespace {

QString applications()
{
    return QStringLiteral("/applications");
}

/// Calls @p take with group, key and the parts of the value of each line of a file of groups.
template <typename Take> void readGroups(const QString &path, Take take)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QString group;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            group = line.mid(1, line.size() - 2);
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (equals > 0 && !line.startsWith(u'#'))
            take(group, line.left(equals).trimmed(), line.mid(equals + 1).split(u';', Qt::SkipEmptyParts));
    }
}

/// Programs of a folder without a cache tell their types themselves.
bool anyEntryNames(const QString &mimeType, const QString &folder, const QSet<QString> &removed)
{
    QDirIterator entries(folder, {QStringLiteral("*.desktop")}, QDir::Files);
    while (entries.hasNext()) {
        const QString path = entries.next();
        if (removed.contains(entries.fileName()))
            continue;
        bool found = false;
        readGroups(path, [&](const QString &group, const QString &key, const QStringList &values) {
            found = found || (group == u"Desktop Entry" && key == u"MimeType" && values.contains(mimeType));
        });
        if (found)
            return true;
    }
    return false;
}

} // namespace

DesktopAssociations::DesktopAssociations(SessionFolders folders) : m_folders(std::move(folders)) {}

bool DesktopAssociations::hasHandlerForType(const QString &mimeType) const
{
    if (hasInstalledHandler(mimeType))
        return true;
    // What opens any bytes at all is no program for this type.
    const QStringList ancestors = QMimeDatabase().mimeTypeForName(mimeType).allAncestors();
    return std::any_of(ancestors.begin(), ancestors.end(), [this](const QString &ancestor) {
        return ancestor != u"application/octet-stream" && hasInstalledHandler(ancestor);
    });
}

bool DesktopAssociations::hasHandlerForScheme(const QString &scheme) const
{
    const bool isWeb = scheme == u"http" || scheme == u"https";
    return (isWeb && qEnvironmentVariableIsSet("BROWSER")) ||
           hasInstalledHandler(QStringLiteral("x-scheme-handler/") + scheme);
}

QString DesktopAssociations::desktopEntry(const QString &id) const
{
    if (id.isEmpty() || id.contains(u'/'))
        return {};
    const QString suffix = QStringLiteral(".desktop");
    const QString name = id.endsWith(suffix) ? id : id + suffix;
    for (const QString &folder : m_folders.dataSearch) {
        // A dash may stand for the separator of a folder below: "vendor-name" for "vendor/name".
        QString relative = name;
        for (qsizetype dash = 0; dash >= 0; dash = relative.indexOf(u'-', dash + 1)) {
            if (dash > 0)
                relative[dash] = u'/';
            const QString path = folder + applications() + u'/' + relative;
            if (QFile::exists(path))
                return path;
        }
    }
    return {};
}

/// Files of the user's and the system's choices, the weightiest first.
QStringList DesktopAssociations::associationFiles() const
{
    QStringList names;
    for (const QString &desktop : m_folders.desktops)
        names.append(u'/' + desktop + QStringLiteral("-mimeapps.list"));
    names.append(QStringLiteral("/mimeapps.list"));

    QStringList files;
    for (const QString &folder : m_folders.configSearch) {
        for (const QString &name : std::as_const(names))
            files.append(folder + name);
    }
    for (const QString &folder : m_folders.dataSearch) {
        for (const QString &name : std::as_const(names))
            files.append(folder + applications() + name);
    }
    return files;
}

bool DesktopAssociations::hasInstalledHandler(const QString &mimeType) const
{
    QSet<QString> removed;
    bool found = false;
    const auto consider = [&](const QStringList &ids) {
        found = found || std::any_of(ids.begin(), ids.end(), [&](const QString &id) {
                    return !removed.contains(id) && !desktopEntry(id).isEmpty();
                });
    };
    for (const QString &file : associationFiles()) {
        readGroups(file, [&](const QString &group, const QString &key, const QStringList &ids) {
            if (key != mimeType)
                return;
            if (group == u"Removed Associations")
                removed.unite(QSet<QString>(ids.begin(), ids.end()));
            else if (group == u"Default Applications" || group == u"Added Associations")
                consider(ids);
        });
    }
    for (const QString &folder : m_folders.dataSearch) {
        if (found)
            return true;
        const QString cache = folder + applications() + QStringLiteral("/mimeinfo.cache");
        if (!QFile::exists(cache)) {
            found = anyEntryNames(mimeType, folder + applications(), removed);
            continue;
        }
        readGroups(cache, [&](const QString &group, const QString &key, const QStringList &ids) {
            if (group == u"MIME Cache" && key == mimeType)
                consider(ids);
        });
    }
    return found;
}

} // namespace norvane
