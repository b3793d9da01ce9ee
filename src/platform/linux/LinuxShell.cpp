#include "platform/linux/LinuxShell.h"

#include "platform/linux/DesktopAssociations.h"
#include "platform/linux/PosixFileSystem.h"
#include "platform/linux/detached_program.h"
#include "platform/linux/file_address.h"
#include "platform/linux/type_names.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QPromise>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace norvane {

namespace {

/// Bytes of an entry of the session's start that are looked at.
constexpr qint64 kLongestEntry = 65536;

int started(const QString &program, const QStringList &arguments = {})
{
    return startDetached(program, arguments) ? Shell::kOpened : Shell::kBadExecutable;
}

/// Leaves a document, folder or address to the desktop's launcher.
int handOver(const QString &target)
{
    const QString xdgOpen = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!xdgOpen.isEmpty() && startDetached(xdgOpen, {target}))
        return Shell::kOpened;
    const QString gio = QStandardPaths::findExecutable(QStringLiteral("gio"));
    if (!gio.isEmpty() && startDetached(gio, {QStringLiteral("open"), target}))
        return Shell::kOpened;
    return Shell::kAssociationIncomplete;
}

int resultOf(int error, const QString &path)
{
    switch (error) {
    case ENOENT:
        return QFileInfo(QFileInfo(path).path()).isDir() ? Shell::kFileNotFound : Shell::kPathNotFound;
    case ENOTDIR:
        return Shell::kPathNotFound;
    case ENOMEM:
        return Shell::kOutOfMemory;
    default:
        return Shell::kAccessDenied;
    }
}

/// By its name a program, or marked as one and named as no document.
bool isProgram(const QString &path)
{
    const QString type = typeNameOf(path);
    if (type == applicationTypeName())
        return true;
    return type == fileTypeName() && ::access(QFile::encodeName(path).constData(), X_OK) == 0;
}

QStringList readNames(const QString &folder, bool withHidden)
{
    const QDir::Filters kinds = withHidden ? QDir::Hidden : QDir::Filters();
    const QDir found(folder);
    QStringList names = found.entryList(QDir::Files | kinds, QDir::NoSort);
    for (const QString &name : found.entryList(QDir::Dirs | QDir::NoDotAndDotDot | kinds, QDir::NoSort))
        names.append(name + u'/');
    names.sort();
    return names;
}

/// A desktop entry that runs a program without arguments.
QByteArray sessionEntryFor(const QString &program)
{
    // In quotes, within which four characters are escaped; then as a value, in which a backslash is; and a
    // percent sign would be a field.
    QString command;
    for (const QChar unit : program) {
        if (QStringView(u"\"`$\\").contains(unit))
            command += u'\\';
        command += unit;
    }
    command.replace(u'\\', QStringLiteral("\\\\")).replace(u'%', QStringLiteral("%%"));
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Norvane\n"
                          "Comment=Notes that appear in the windows they belong to\n"
                          "Exec=\"%1\"\n"
                          "Icon=norvane\n"
                          "Terminal=false\n")
        .arg(command)
        .toUtf8();
}

} // namespace

LinuxShell::LinuxShell(SessionFolders folders) : m_folders(std::move(folders)) {}

int LinuxShell::open(const QString &location)
{
    if (location.contains(QChar(QChar::Null)))
        return kFileNotFound;
    if (isFileAddress(location)) {
        const QByteArray name = fileNameOfAddress(location);
        if (name.isEmpty())
            return kPathNotFound;
        const QString path = QString::fromUtf8(name);
        return openFile(name, path, name.isValidUtf8() ? path : location);
    }
    if (isAddress(location))
        return openAddress(location);
    return location.contains(u'/') ? openPath(location) : openByName(location, {});
}

bool LinuxShell::runsProgram(const QString &location) const
{
    const bool isFile = isFileAddress(location);
    if (!isFile && isAddress(location))
        return false;
    if (!isFile && !location.contains(u'/'))
        return true;
    const QString path = isFile ? QUrl(location).toLocalFile() : location;
    if (QFileInfo(path).isDir())
        return false;
    if (isProgram(path) || QFileInfo(path).isExecutable())
        return true;
    const QMimeType type = QMimeDatabase().mimeTypeForFile(path);
    for (const char *kind : {"application/x-desktop", "application/x-executable",
                             "application/x-ms-dos-executable", "application/x-java-archive",
                             "application/java-archive", "application/vnd.appimage", "application/x-msi"}) {
        if (type.inherits(QLatin1String(kind)))
            return true;
    }
    return false;
}

bool LinuxShell::isAddress(const QString &text) const
{
    return norvane::isAddress(text);
}

int LinuxShell::run(const QString &program, const QStringList &arguments)
{
    if (program.contains(QChar(QChar::Null)))
        return kFileNotFound;
    if (!program.contains(u'/'))
        return openByName(program, arguments);
    const QByteArray name = QFile::encodeName(program);
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0)
        return resultOf(errno, program);
    const bool isProgramFile = S_ISREG(status.st_mode) && ::access(name.constData(), X_OK) == 0;
    return isProgramFile ? started(program, arguments) : int(kAccessDenied);
}

QStringList LinuxShell::programNames() const
{
    QStringList names;
    for (const QString &folder : qEnvironmentVariable("PATH").split(u':', Qt::SkipEmptyParts))
        names += QDir(folder).entryList(QDir::Files | QDir::Executable, QDir::NoSort);
    names.sort();
    names.removeDuplicates();
    return names;
}

QFuture<QStringList> LinuxShell::namesIn(const QString &folder, bool withHidden) const
{
    QPromise<QStringList> promise;
    promise.start();
    QFuture<QStringList> names = promise.future();
    // By itself: the program ends without a folder that hangs.
    std::thread([promise = std::move(promise), folder, withHidden]() mutable {
        promise.addResult(readNames(folder, withHidden));
        promise.finish();
    }).detach();
    return names;
}

QString LinuxShell::typeName(const QString &path) const
{
    return typeNameOf(path);
}

QString LinuxShell::typeKey(const QString &path) const
{
    return typeKeyOf(path);
}

QStringList LinuxShell::iconNames(const QString &path) const
{
    return iconNamesOf(path);
}

QString LinuxShell::specialFolder(SpecialFolder folder) const
{
    QString path;
    if (folder == SpecialFolder::Favorites)
        path = m_folders.favoritesFolder();
    else if (folder == SpecialFolder::Startup)
        path = m_folders.autostartFolder();
    if (!path.isEmpty())
        makeFolderWithParents(path);
    return path;
}

QString LinuxShell::programFolder() const
{
    const QString folder = m_folders.programFolder();
    makeFolderWithParents(folder);
    return folder;
}

QString LinuxShell::sessionEntry() const
{
    return m_folders.autostartFolder() + QStringLiteral("/norvane.desktop");
}

bool LinuxShell::startsWithSession() const
{
    QFile entry(sessionEntry());
    if (!entry.open(QIODevice::ReadOnly))
        return false;
    const QList<QByteArray> lines = entry.read(kLongestEntry).split('\n');
    return std::none_of(lines.begin(), lines.end(), [](const QByteArray &line) {
        const QByteArray plain = line.simplified().replace(" = ", "=").toLower();
        return plain == "hidden=true" || plain == "x-gnome-autostart-enabled=false";
    });
}

void LinuxShell::setStartsWithSession(bool starts)
{
    PosixFileSystem files;
    if (starts) {
        makeFolderWithParents(m_folders.autostartFolder());
        files.write(sessionEntry(), sessionEntryFor(QCoreApplication::applicationFilePath()));
    } else if (files.exists(sessionEntry())) {
        files.remove(sessionEntry());
    }
}

int LinuxShell::openAddress(const QString &address) const
{
    const qsizetype length = schemeLength(address);
    const QString scheme = length > 0 ? address.left(length - 1).toLower() : QStringLiteral("http");
    if (!DesktopAssociations(m_folders).hasHandlerForScheme(scheme))
        return kNoAssociation;
    return handOver(length > 0 ? address : QStringLiteral("http://") + address);
}

int LinuxShell::openPath(const QString &path) const
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    return openFile(QFile::encodeName(absolute), absolute, absolute);
}

/// @param name   as system calls take it
/// @param shown  the path, as far as the name is text
/// @param target what the desktop's launcher takes for it
int LinuxShell::openFile(const QByteArray &name, const QString &shown, const QString &target) const
{
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0)
        return resultOf(errno, shown);

    const bool isFolder = S_ISDIR(status.st_mode);
    if (!isFolder && isProgram(shown)) {
        const bool mayRun = ::access(name.constData(), X_OK) == 0 && QFile::encodeName(shown) == name;
        return mayRun ? started(shown) : int(kAccessDenied);
    }

    if (::access(name.constData(), isFolder ? R_OK | X_OK : R_OK) != 0)
        return kAccessDenied;
    const QString type =
        isFolder ? QStringLiteral("inode/directory") : QMimeDatabase().mimeTypeForFile(shown).name();
    if (!DesktopAssociations(m_folders).hasHandlerForType(type))
        return kNoAssociation;
    return handOver(target);
}

/// A program that is known by its name alone, as one in a sandbox is.
int LinuxShell::openByName(const QString &name, const QStringList &arguments) const
{
    const QString program = QStandardPaths::findExecutable(name);
    if (!program.isEmpty())
        return started(program, arguments);
    const QString entry = DesktopAssociations(m_folders).desktopEntry(name);
    if (entry.isEmpty() || !arguments.isEmpty())
        return kFileNotFound;
    const QString gio = QStandardPaths::findExecutable(QStringLiteral("gio"));
    const bool launched = !gio.isEmpty() && startDetached(gio, {QStringLiteral("launch"), entry});
    return launched ? int(kOpened) : int(kAssociationIncomplete);
}

} // namespace norvane
