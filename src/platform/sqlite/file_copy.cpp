#include "platform/sqlite/file_copy.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace norvane::dao {

namespace {

/// A file descriptor that closes itself.
class Descriptor
{
public:
    Descriptor(const QString &path, int flags)
        : m_number(open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, 0600))
    {
        if (m_number < 0)
            raiseSystemError(errno, path);
    }
    ~Descriptor() { close(m_number); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    int number() const { return m_number; }

private:
    int m_number;
};

void writeAll(const Descriptor &file, const char *bytes, ssize_t count, const QString &path)
{
    while (count > 0) {
        const ssize_t written = write(file.number(), bytes, static_cast<std::size_t>(count));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            raiseSystemError(errno, path);
        }
        bytes += written;
        count -= written;
    }
}

void sync(const Descriptor &file, const QString &path)
{
    if (fsync(file.number()) != 0)
        raiseSystemError(errno, path);
}

} // namespace

void raiseSystemError(int systemError, const QString &path)
{
    switch (systemError) {
    case ENOENT:
        throw RuntimeError(kErrorFileNotFound, QStringLiteral("File not found: '%1'.").arg(path));
    case ENOTDIR:
        throw RuntimeError(kErrorPathNotFound, QStringLiteral("Path not found: '%1'.").arg(path));
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        throw RuntimeError(kErrorDiskFull, QStringLiteral("The disk is full. Free some room and try again."));
    case EROFS:
        throw RuntimeError(kErrorReadOnly, QStringLiteral("The disk of '%1' is read-only.").arg(path));
    default:
        throw RuntimeError(kErrorFileAccess, QStringLiteral("'%1' cannot be read or written.").arg(path));
    }
}

QString temporaryName(const QString &path)
{
    const QFileInfo info(path);
    for (int number = 1;; ++number) {
        QString name =
            QStringLiteral("%1/.%2.%3-%4").arg(info.path(), info.fileName()).arg(getpid()).arg(number);
        if (!QFileInfo::exists(name))
            return name;
    }
}

void createPrivateFile(const QString &path)
{
    const Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL);
}

void copyFile(const QString &source, const QString &target)
{
    const Descriptor from(source, O_RDONLY);
    const Descriptor to(target, O_WRONLY | O_CREAT | O_EXCL);
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t count = read(from.number(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            raiseSystemError(errno, source);
        if (count == 0)
            break;
        writeAll(to, buffer.data(), count, target);
    }
    sync(to, target);
}

void syncFile(const QString &path)
{
    const Descriptor file(path, O_RDONLY);
    sync(file, path);
}

void syncFolder(const QString &path)
{
    const Descriptor folder(path, O_RDONLY | O_DIRECTORY);
    sync(folder, path);
}

void nameFile(const QString &finished, const QString &target)
{
    const QByteArray from = QFile::encodeName(finished);
    const QByteArray to = QFile::encodeName(target);
    // A link never replaces a file; not all disks have links.
    if (link(from.constData(), to.constData()) == 0) {
        unlink(from.constData());
    } else if (errno == EEXIST || QFileInfo::exists(target)) {
        raiseSystemError(EEXIST, target);
    } else if (std::rename(from.constData(), to.constData()) != 0) {
        raiseSystemError(errno, target);
    }
    syncFolder(QFileInfo(target).path());
}

void removeAbandoned(const QString &path)
{
    const QFileInfo info(path);
    const QString pattern =
        QStringLiteral("\\A\\.%1\\.\\d+-\\d+(-journal)?\\z").arg(QRegularExpression::escape(info.fileName()));
    const QRegularExpression ours(pattern);
    QDir folder(info.path());
    for (const QString &name : folder.entryList(QDir::Files | QDir::Hidden))
        if (ours.match(name).hasMatch())
            folder.remove(name);
}

void renameOver(const QString &finished, const QString &target)
{
    struct stat existing = {};
    if (stat(QFile::encodeName(target).constData(), &existing) == 0)
        chmod(QFile::encodeName(finished).constData(), existing.st_mode & 0777);
    if (std::rename(QFile::encodeName(finished).constData(), QFile::encodeName(target).constData()) != 0)
        raiseSystemError(errno, target);
    syncFolder(QFileInfo(target).path());
}

TemporaryFile::~TemporaryFile()
{
    if (!m_name.isEmpty())
        QFile::remove(m_name);
}

} // namespace norvane::dao
