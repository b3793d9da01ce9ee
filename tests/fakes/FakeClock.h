#pragma once

#include "platform/Clock.h"

namespace norvane::fakes {

/// A clock that stands still until a test moves it.
class FakeClock : public Clock
{
public:
    QDateTime time = QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6));

    QDateTime now() const override { return time; }
    void advance(qint64 seconds) { time = time.addSecs(seconds); }
};

} // namespace norvane::fakes
