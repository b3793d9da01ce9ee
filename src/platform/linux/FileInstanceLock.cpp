#include "platform/linux/FileInstanceLock.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace norvane {

namespace {

/// A real folder of this user's that nobody else may write into: another user could otherwise keep
/// the program from starting.
bool isPrivateFolder(const QString &folder)
{
    struct stat status;
    return lstat(QFile::encodeName(folder).constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == getuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

QString folderUnderTmp()
{
    const QString folder = QStringLiteral("/tmp/norvane-%1").arg(getuid());
    mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
    return folder;
}

} // namespace

FileInstanceLock::FileInstanceLock(QString file) : m_file(std::move(file)) {}

FileInstanceLock::~FileInstanceLock()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

QString FileInstanceLock::defaultFile()
{
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    for (const QString &folder : {runtimeFolder, folderUnderTmp()}) {
        if (folder.startsWith(u'/') && isPrivateFolder(folder))
            return folder + QStringLiteral("/norvane.lock");
    }
    return {};
}

bool FileInstanceLock::acquire()
{
    if (m_descriptor >= 0 || m_file.isEmpty())
        return true;
    const int descriptor = open(QFile::encodeName(m_file).constData(),
                                O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        return true;
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const bool held = errno == EWOULDBLOCK;
        close(descriptor);
        return !held;
    }
    m_descriptor = descriptor;
    return true;
}

} // namespace norvane
