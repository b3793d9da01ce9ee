#include "platform/linux/ExitGuard.h"

#include <cstdlib>
#include <memory>
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
    on_exit(
        [](int, void *state) {
            const std::unique_ptr<State> last(static_cast<State *>(state));
            last->run();
        },
        m_state);
}

ExitGuard::~ExitGuard()
{
    m_state->action = nullptr;
}

} // namespace norvane
