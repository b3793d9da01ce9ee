#include "platform/linux/ExitGuard.h"

#include <cstdlib>
#include <utility>

namespace norvane {

struct ExitGuard::State
{
    std::function<void()> action;

    void run()
    {
        if (const auto once = std::exchange(action, nullptr))
            once();
    }
};

ExitGuard::ExitGuard(std::function<void()> action) : m_state(new State{std::move(action)})
{
    on_exit([](int, void *state) { static_cast<State *>(state)->run(); }, m_state);
}

ExitGuard::~ExitGuard()
{
    m_state->action = nullptr;
}

} // namespace norvane
