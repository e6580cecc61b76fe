// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zor {

/// Who a test of protection runs as where the tests run as the administrator, whom no protection binds.
inline constexpr uid_t ordinaryUser = 65534;

/// Runs checks in a child process that is an ordinary user's, and tells whether they all held. What failed is
/// printed by the child.
[[nodiscard]] inline bool holdsForOrdinaryUser(const std::function<void()>& checks) {
    pid_t child = ::fork();
    if (child == 0) {
        bool became = ::geteuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(ordinaryUser) == 0 &&
                                           ::setuid(ordinaryUser) == 0);
        EXPECT_TRUE(became);
        checks();
        ::_exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

} // namespace zor
