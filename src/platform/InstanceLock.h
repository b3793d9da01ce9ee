#pragma once

namespace norvane {

/// Keeps the program to one process for each user.
class InstanceLock
{
public:
    virtual ~InstanceLock();

    /// Takes the lock until the object or the process ends.
    /// @return false when another process has it. A lock that cannot be had for another reason
    ///         counts as taken: the program would rather run twice than not at all.
    virtual bool acquire() = 0;
};

} // namespace norvane
