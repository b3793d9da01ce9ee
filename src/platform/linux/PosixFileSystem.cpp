#include "platform/linux/PosixFileSystem.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/linux/file_address.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace norvane {

namespace {

constexpr mode_t kPermissions = 07777;

[[noreturn]] void raise(int number, const QString &text, const QString &path)
{
    throw RuntimeError(number, text.arg(path));
}

[[noreturn]] void raiseAccess(const QString &path)
{
    raise(kErrorFileAccess,
          QStringLiteral("\"%1\" cannot be read or written. Check its permissions and those of its folder."),
          path);
}

[[noreturn]] void raiseFileNotFound(const QString &path)
{
    raise(kErrorFileNotFound, QStringLiteral("The file \"%1\" was not found."), path);
}

/// Of a call that makes or replaces something.
[[noreturn]] void raiseForWriting(int error, const QString &path)
{
    switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        raise(kErrorDiskFull,
              QStringLiteral("There is no room left on the disk for \"%1\". Free some space and try again."),
              path);
    case ENOENT:
    case ENOTDIR:
        raise(kErrorPathNotFound, QStringLiteral("The folder of \"%1\" was not found."), path);
    default:
        raiseAccess(path);
    }
}

/// The path for system calls. A path with a NUL inside would name another file.
QByteArray encoded(const QString &path)
{
    if (path.isEmpty() || path.contains(QChar(QChar::Null)))
        raiseAccess(path);
    return QFile::encodeName(path);
}

/// An open file, closed at the end of its scope.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }
    /// Some file systems report a full disk only here.
    bool close() { return ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

bool writeAll(int file, QByteArrayView bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t written =
            ::write(file, bytes.data() + done, static_cast<std::size_t>(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            done += written;
    }
    return true;
}

QByteArray folderOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    if (slash < 0)
        return QByteArrayLiteral(".");
    return slash == 0 ? QByteArrayLiteral("/") : path.left(slash);
}

/// Gives all bytes of a file to @p take, piece by piece.
template <typename Take> void readPieces(const QString &path, const Take &take)
{
    // Without O_NONBLOCK a pipe in the file's place would hold the program.
    const Descriptor file(::open(encoded(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen()) {
        if (errno == ENOENT || errno == ENOTDIR)
            raiseFileNotFound(path);
        raiseAccess(path);
    }
    struct stat status = {};
    if (::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        raiseAccess(path);
    char buffer[65536];
    for (;;) {
        const ssize_t count = ::read(file.number(), buffer, sizeof buffer);
        if (count == 0)
            return;
        if (count > 0)
            take(QByteArrayView(buffer, count));
        else if (errno != EINTR)
            raiseAccess(path);
    }
}

/// So that a rename or a removal outlasts a power cut. Not every file system knows it.
void syncFolder(const QByteArray &folder)
{
    const Descriptor descriptor(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen())
        ::fsync(descriptor.number());
}

/// @return 0, or the number of the system's error; the temporary file is gone then
int replaceFile(const QByteArray &target, const QByteArray &bytes, mode_t permissions)
{
    const QByteArray folder = folderOf(target);
    QByteArray temporary = folder + "/.norvane-XXXXXX";
    Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.isOpen())
        return errno;
    const bool done = ::fchmod(file.number(), permissions) == 0 && writeAll(file.number(), bytes) &&
                      ::fsync(file.number()) == 0 && file.close() &&
                      ::rename(temporary.constData(), target.constData()) == 0;
    if (!done) {
        const int error = errno;
        ::unlink(temporary.constData());
        return error;
    }
    syncFolder(folder);
    return 0;
}

} // namespace

bool PosixFileSystem::exists(const QString &path) const
{
    struct stat status = {};
    if (path.contains(QChar(QChar::Null)))
        return false;
    const QByteArray name = isFileAddress(path) ? fileNameOfAddress(path) : QFile::encodeName(path);
    return !name.isEmpty() && ::stat(name.constData(), &status) == 0;
}

qint64 PosixFileSystem::size(const QString &path) const
{
    struct stat status = {};
    if (::stat(encoded(path).constData(), &status) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            raiseFileNotFound(path);
        raiseAccess(path);
    }
    if (!S_ISREG(status.st_mode))
        raiseAccess(path);
    return qint64(status.st_size);
}

QByteArray PosixFileSystem::read(const QString &path) const
{
    QByteArray bytes;
    readPieces(path, [&bytes](QByteArrayView piece) { bytes.append(piece); });
    return bytes;
}

void PosixFileSystem::write(const QString &path, const QByteArray &bytes)
{
    encoded(path);
    const QFileInfo information(path);
    const bool isLink = information.isSymLink() && information.exists();
    const QByteArray target = encoded(isLink ? information.canonicalFilePath() : path);

    struct stat status = {};
    mode_t permissions = 0600;
    if (::stat(target.constData(), &status) == 0) {
        // A rename would replace a file that its owner has protected.
        if (!S_ISREG(status.st_mode) || ::access(target.constData(), W_OK) != 0)
            raiseAccess(path);
        permissions = status.st_mode & kPermissions;
    }
    if (const int error = replaceFile(target, bytes, permissions); error != 0)
        raiseForWriting(error, path);
}

void PosixFileSystem::copy(const QString &source, const QString &target)
{
    const QByteArray name = encoded(target);
    if (::unlink(name.constData()) != 0 && errno != ENOENT)
        raiseForWriting(errno, target);
    std::optional<Descriptor> file;
    try {
        const auto openTarget = [&] {
            file.emplace(::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
            if (!file->isOpen())
                raiseForWriting(errno, target);
        };
        readPieces(source, [&](QByteArrayView piece) {
            if (!file)
                openTarget();
            if (!writeAll(file->number(), piece))
                raiseForWriting(errno, target);
        });
        if (!file)
            openTarget(); // it is empty
        if (!file->close())
            raiseForWriting(errno, target);
    } catch (const RuntimeError &) {
        if (file)
            ::unlink(name.constData());
        throw;
    }
}

void PosixFileSystem::sync(const QStringList &paths)
{
    for (const QString &path : paths) {
        const Descriptor file(::open(encoded(path).constData(), O_RDONLY | O_CLOEXEC));
        if (!file.isOpen() && errno == ENOENT)
            raiseFileNotFound(path);
        if (!file.isOpen() || ::fsync(file.number()) != 0)
            raiseForWriting(errno, path);
    }
    if (!paths.isEmpty())
        syncFolder(folderOf(encoded(paths.constFirst())));
}

void PosixFileSystem::makeFolder(const QString &path)
{
    if (::mkdir(encoded(path).constData(), 0700) != 0)
        raiseForWriting(errno, path);
    syncFolder(folderOf(encoded(path)));
}

void PosixFileSystem::remove(const QString &path)
{
    const QByteArray name = encoded(path);
    if (::unlink(name.constData()) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            raiseFileNotFound(path);
        raiseAccess(path);
    }
    syncFolder(folderOf(name));
}

} // namespace norvane
