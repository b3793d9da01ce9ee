#pragma once

#include <QDateTime>

namespace norvane {

/// The time of day.
class Clock
{
public:
    virtual ~Clock();

    /// Local time in whole seconds.
    virtual QDateTime now() const = 0;
};

} // namespace norvane
