#pragma once

#include <csignal>
#include <functional>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

namespace norvane::test {

inline constexpr int kKilled = 101;

/// Runs @p body in a child process, for limits and rights that this process must not lose.
/// @return the value of @p body, 0 to 99; 100 when it did not get that far; kKilled when it was killed
inline int inChild(const std::function<int()> &body)
{
    const pid_t child = ::fork();
    if (child == 0) {
        int result = 100;
        try {
            result = body();
        } catch (const std::exception &) {
        }
        ::_exit(result);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child)
        return 100;
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        return kKilled;
    if (!WIFEXITED(status))
        return 100;
    return WEXITSTATUS(status);
}

/// The number of a user and a group with no rights of their own.
inline constexpr unsigned kNobody = 65534;

/// Gives up the rights of an administrator, to whom no permission counts. Only in a child.
inline bool becomeOrdinaryUser()
{
    return ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

} // namespace norvane::test
