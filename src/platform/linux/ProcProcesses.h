#pragma once

#include "platform/Processes.h"

namespace norvane {

/// Programs of processes, read from /proc.
class ProcProcesses final : public Processes
{
public:
    /// @param folder where the process file system is mounted; no separator at the end
    explicit ProcProcesses(QString folder = QStringLiteral("/proc"));

    QString programFile(qint64 processId) const override;

private:
    QString m_folder;
};

} // namespace norvane
