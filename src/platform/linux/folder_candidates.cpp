#include "platform/linux/folder_candidates.h"

#include "platform/linux/LocationProvider.h"
#include "platform/linux/location_text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace norvane {

namespace {

/// Folders of the home folder that are looked into.
constexpr int kMostSubfolders = 200;

/// What may be the folder's name: the caption, with and without the program's name behind it.
QStringList namesIn(const QString &caption)
{
    QStringList names{caption};
    for (const QString &dash : {QStringLiteral(" - "), QStringLiteral(" — ")}) {
        if (const qsizetype end = caption.lastIndexOf(dash); end > 0)
            names.prepend(caption.left(end));
    }
    names.removeIf([](const QString &name) {
        return name.isEmpty() || name.contains(u'/') || name == u"." || name == u"..";
    });
    return names;
}

QStringList placesAround(const QString &last)
{
    QStringList places;
    QString place = last;
    while (place.startsWith(u'/') && place.size() > 1) {
        places.append(place);
        place = place.left(place.lastIndexOf(u'/'));
    }
    return places;
}

/// The folders above; a step up ends in one of them.
bool isNamed(const QString &folder, const QString &name)
{
    return folder.endsWith(u'/' + name);
}

/// A folder in the form in which the kernel lists watches: inode and device, hexadecimal.
QString watchKey(const QString &folder)
{
    struct stat facts = {};
    if (::stat(QFile::encodeName(folder).constData(), &facts) != 0 || !S_ISDIR(facts.st_mode))
        return {};
    const quint64 device = (static_cast<quint64>(major(facts.st_dev)) << 20) | minor(facts.st_dev);
    return QStringLiteral("ino:%1 sdev:%2").arg(static_cast<quint64>(facts.st_ino), 0, 16).arg(device, 0, 16);
}

QSet<QString> watchesOf(qint64 processId)
{
    static const QRegularExpression watch(QStringLiteral("^inotify .*(ino:[0-9a-f]+ sdev:[0-9a-f]+)"),
                                          QRegularExpression::MultilineOption);
    QSet<QString> watches;
    const QDir folder(QStringLiteral("/proc/%1/fdinfo").arg(processId));
    const QStringList names = folder.entryList(QDir::Files);
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        auto matches = watch.globalMatch(QString::fromLatin1(file.readAll()));
        while (matches.hasNext())
            watches.insert(matches.next().captured(1));
    }
    return watches;
}

} // namespace

QStringList folderCandidates(const QString &caption, const QString &last, const QString &home)
{
    QStringList folders;
    if (const auto spelled = folderFromCaption(caption, home))
        folders.append(*spelled);

    QStringList places = placesAround(last);
    for (const QString &place : std::as_const(places)) {
        for (const QString &name : namesIn(caption)) {
            if (isNamed(place, name))
                folders.append(place);
        }
    }
    places.append(home);
    for (const char16_t *place : {u"/", u"/usr", u"/usr/share", u"/usr/local", u"/var", u"/etc", u"/opt",
                                  u"/srv", u"/tmp", u"/home", u"/mnt", u"/media"})
        places.append(QString::fromUtf16(place));
    const QStringList subfolders = QDir(home).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &subfolder : subfolders.mid(0, kMostSubfolders))
        places.append(home + u'/' + subfolder);
    for (const QString &place : std::as_const(places)) {
        for (const QString &name : namesIn(caption))
            folders.append(QDir::cleanPath(place + u'/' + name));
    }
    if (captionNamesFolder(caption, home, home))
        folders.append(home);

    folders.removeDuplicates();
    folders.removeIf([](const QString &folder) { return !QFileInfo(folder).isDir(); });
    return folders;
}

QString watchedFolderOf(const LookUpRequest &request, const QString &home)
{
    const QSet<QString> watches = watchesOf(request.processId);
    if (watches.isEmpty())
        return {};
    const QStringList candidates = folderCandidates(request.caption, request.lastLocation, home);
    for (const QString &folder : candidates) {
        if (watches.contains(watchKey(folder)))
            return folder;
    }
    return {};
}

} // namespace norvane
