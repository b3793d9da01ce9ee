#pragma once

#include "platform/Processes.h"

#include <QHash>

namespace norvane::fakes {

/// Programs by process id.
class FakeProcesses : public Processes
{
public:
    QHash<qint64, QString> programs;
    mutable int queries = 0;

    QString programFile(qint64 processId) const override
    {
        ++queries;
        return programs.value(processId);
    }
};

} // namespace norvane::fakes
