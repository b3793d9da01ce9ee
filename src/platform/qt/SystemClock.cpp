#include "platform/qt/SystemClock.h"

namespace norvane {

QDateTime SystemClock::now() const
{
    return QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch());
}

} // namespace norvane
