#pragma once

#include "platform/EventLoop.h"

#include <functional>

namespace norvane::fakes {

/// Counts yields; what happens during one is the test's. Turns no real event loop.
class FakeEventLoop : public EventLoop
{
public:
    int yields = 0;
    /// Runs inside every yield: opens a window, closes a form, fires a timer, …
    std::function<void()> duringYield;

    void yield() override
    {
        ++yields;
        const bool outer = m_yielding;
        m_yielding = true;
        if (!outer && duringYield)
            duringYield();
        m_yielding = outer;
    }
    bool yielding() const override { return m_yielding; }

private:
    bool m_yielding = false;
};

} // namespace norvane::fakes
