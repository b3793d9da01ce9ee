#pragma once

#include <functional>

namespace norvane {

/// Runs an action when the process ends by exit() while the guard lives: the graphics library does
/// that when the connection to the display breaks. Nothing of main() has been unwound then; the
/// action must neither need the display nor turn the event loop. It runs once.
class ExitGuard
{
public:
    explicit ExitGuard(std::function<void()> action);
    /// Disarms the guard.
    ~ExitGuard();
    ExitGuard(const ExitGuard &) = delete;
    ExitGuard &operator=(const ExitGuard &) = delete;

private:
    struct State;
    State *m_state; ///< the process's: exit() wants it after the guard is gone
};

} // namespace norvane
