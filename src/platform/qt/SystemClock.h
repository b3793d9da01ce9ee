#pragma once

#include "platform/Clock.h"

namespace norvane {

/// The computer's clock.
class SystemClock : public Clock
{
public:
    QDateTime now() const override;
};

} // namespace norvane
