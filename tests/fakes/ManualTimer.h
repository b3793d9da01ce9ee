#pragma once

#include "platform/WatchTimer.h"

#include <QVector>

namespace norvane::fakes {

/// A watch timer that ticks when the test says so, by the rules of a real one: not while it is off
/// or at interval 0, never inside a tick, and not while it rests. Between two turns the program sleeps.
class ManualTimer : public WatchTimer
{
public:
    QVector<int> intervals; ///< every interval that was set, in order
    int requests = 0;       ///< requestTick() calls while the timer ran
    bool tickRequested = false;

    void setInterval(int milliseconds) override
    {
        m_interval = milliseconds;
        m_resting = false;
        intervals.append(milliseconds);
    }
    int interval() const override { return m_interval; }
    void setEnabled(bool enabled) override
    {
        m_enabled = enabled;
        m_resting = false;
    }
    bool isEnabled() const override { return m_enabled; }

    void requestTick() override
    {
        if (!running())
            return;
        ++requests;
        tickRequested = true;
        m_resting = false;
    }
    void rest() override { m_resting = !tickRequested; }

    bool running() const { return m_enabled && m_interval > 0; }

    /// The interval is over. @return false when a real timer would not have ticked
    bool fire()
    {
        if (!running() || m_ticking)
            return false;
        if (m_resting)
            emit aboutToSleep();
        if (m_resting)
            return false;
        m_ticking = true;
        tickRequested = false;
        emit tick();
        m_ticking = false;
        return true;
    }
    /// Ticks if a tick was asked for since the last one.
    bool fireIfRequested() { return tickRequested && fire(); }

private:
    int m_interval = 0;
    bool m_enabled = false;
    bool m_ticking = false;
    bool m_resting = false;
};

} // namespace norvane::fakes
