#pragma once

#include <QString>

namespace norvane {

/// The programs behind windows.
class Processes
{
public:
    virtual ~Processes();

    /// The file of the process's program, as a user would name it; empty when it cannot be told.
    virtual QString programFile(qint64 processId) const = 0;
};

} // namespace norvane
