#include "platform/sqlite/FileLock.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/file_copy.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>

namespace norvane::dao {

namespace {

/// Whoever opens waits until a usual database is compacted. Whoever wants it alone does not wait
/// for others to close it, only for one that is just looking.
constexpr int kWaitToShare = 5'000;
constexpr int kWaitToBeAlone = 500;
constexpr long kPauseNanoseconds = 2'000'000;

QByteArray sideFile(const QString &database)
{
    const QFileInfo info(database);
    return QFile::encodeName(info.path() + QStringLiteral("/.") + info.fileName() + QStringLiteral(".lock"));
}

struct flock wholeFile(short type)
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    return lock;
}

/// Whether the lock was got; errno tells why not.
bool tryLock(int descriptor, FileLock::Kind kind)
{
    struct flock lock = wholeFile(kind == FileLock::Kind::Alone ? F_WRLCK : F_RDLCK);
    return fcntl(descriptor, F_OFD_SETLK, &lock) == 0;
}

bool isConflict()
{
    return errno == EAGAIN || errno == EACCES;
}

/// As tryLock(), with some patience.
bool waitForLock(int descriptor, FileLock::Kind kind)
{
    const QDeadlineTimer deadline(kind == FileLock::Kind::Shared ? kWaitToShare : kWaitToBeAlone);
    for (;;) {
        if (tryLock(descriptor, kind))
            return true;
        if (!isConflict() || deadline.hasExpired())
            return false;
        const timespec pause = {0, kPauseNanoseconds};
        nanosleep(&pause, nullptr);
        errno = EAGAIN;
    }
}

[[noreturn]] void raiseInUse()
{
    throw RuntimeError(
        kErrorLocked,
        QStringLiteral("The database is in use by another program. Close it there and try again."));
}

} // namespace

std::unique_ptr<FileLock> FileLock::take(const QString &database, Kind kind, bool optional)
{
    const QByteArray name = sideFile(database);
    int descriptor = open(name.constData(), O_RDWR | (optional ? 0 : O_CREAT) | O_CLOEXEC | O_NOFOLLOW, 0600);
    // Whoever may only read can still share.
    if (descriptor < 0 && kind == Kind::Shared)
        descriptor = open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (descriptor < 0) {
        const int reason = errno;
        if (optional && kind == Kind::Alone && isHeld(database))
            raiseInUse();
        if (optional)
            return nullptr;
        raiseSystemError(reason, QFileInfo(database).path());
    }
    std::unique_ptr<FileLock> lock(new FileLock(descriptor));
    if (waitForLock(descriptor, kind))
        return lock;
    if (isConflict())
        raiseInUse();
    if (optional)
        return nullptr;
    raiseSystemError(errno, QFile::decodeName(name));
}

FileLock::~FileLock()
{
    close(m_descriptor);
}

void FileLock::change(Kind kind)
{
    // Converting loses nothing: the old lock stays until the new one is granted.
    if (tryLock(m_descriptor, kind))
        return;
    if (isConflict())
        raiseInUse();
    raiseSystemError(errno, QStringLiteral("lock"));
}

void FileLock::share()
{
    tryLock(m_descriptor, Kind::Shared);
}

bool FileLock::isHeld(const QString &database)
{
    const QByteArray name = sideFile(database);
    const int descriptor = open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (descriptor < 0)
        return false;
    struct flock lock = wholeFile(F_WRLCK);
    const bool held = fcntl(descriptor, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    close(descriptor);
    return held;
}

} // namespace norvane::dao
