#pragma once

namespace norvane {

/// The event loop, as far as a procedure may turn it.
class EventLoop
{
public:
    virtual ~EventLoop();

    /// Lets painting and pending events run once. After it, windows and forms may be gone: look
    /// them up again. Watch ticks do not run inside.
    virtual void yield() = 0;
    /// Whether a yield() is under way.
    virtual bool yielding() const = 0;
};

} // namespace norvane
