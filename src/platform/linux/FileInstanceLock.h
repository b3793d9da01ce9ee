#pragma once

#include "platform/InstanceLock.h"

#include <QString>

namespace norvane {

/// The lock as a file that the kernel locks for the process: it goes with the process, however that
/// ends.
class FileInstanceLock : public InstanceLock
{
public:
    /// @param file the lock file; made if it is not there, never removed
    explicit FileInstanceLock(QString file = defaultFile());
    ~FileInstanceLock() override;
    FileInstanceLock(const FileInstanceLock &) = delete;
    FileInstanceLock &operator=(const FileInstanceLock &) = delete;

    bool acquire() override;

    /// "norvane.lock" in the user's runtime folder; without one, in a folder under /tmp that belongs
    /// to the user alone. Empty when there is neither.
    static QString defaultFile();

private:
    QString m_file;
    int m_descriptor = -1;
};

} // namespace norvane
