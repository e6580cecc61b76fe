// SPDX-License-Identifier: MIT
#include "host/process.h"

#include <cerrno>
#include <csignal>

#include <unistd.h>

namespace zor {

std::int32_t ownProcess() {
    return static_cast<std::int32_t>(::getpid());
}

bool processRuns(std::int32_t process) {
    // One of another user's may not be signalled, and runs all the same.
    return process > 0 && (::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
}

} // namespace zor
