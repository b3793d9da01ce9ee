#pragma once

namespace norvane {

class WatchTimer;

/// Holds `tmrEnumWindows` off as long as it lives. Several may live at once: the last one that goes
/// switches it on, whatever it was before the first.
class WatchPause
{
public:
    /// @p timer must outlive it.
    explicit WatchPause(WatchTimer &timer);
    ~WatchPause();
    WatchPause(const WatchPause &) = delete;
    WatchPause &operator=(const WatchPause &) = delete;

private:
    WatchTimer &m_timer;
};

} // namespace norvane
