#include "watcher/WatchPause.h"

#include "platform/WatchTimer.h"

#include <QVariant>

namespace norvane {

namespace {

// The count stands at the timer, which all who hold it off have in common.
constexpr char kPauses[] = "pauses";

int countPause(WatchTimer &timer, int change)
{
    const int pauses = timer.property(kPauses).toInt() + change;
    timer.setProperty(kPauses, pauses);
    return pauses;
}

} // namespace

WatchPause::WatchPause(WatchTimer &timer) : m_timer(timer)
{
    countPause(m_timer, 1);
    m_timer.setEnabled(false);
}

WatchPause::~WatchPause()
{
    if (countPause(m_timer, -1) == 0)
        m_timer.setEnabled(true);
}

} // namespace norvane
