// SPDX-License-Identifier: MIT
#include "host/apart.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zor {

namespace {

using Clock = std::chrono::steady_clock;

/// In the other process: whatever happens here ends here, and says nothing on the terminal.
[[noreturn]] void workAndLeave(const std::function<std::string()>& work, int end) {
    for (int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) {
        std::signal(fault, SIG_DFL);
    }
    if (int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC); nowhere >= 0) {
        ::dup2(nowhere, STDERR_FILENO);
    }
    std::string result = work();
    for (std::size_t written = 0; written < result.size();) {
        ssize_t count = ::write(end, result.data() + written, result.size() - written);
        if (count < 0) {
            ::_exit(1);
        }
        written += static_cast<std::size_t>(count);
    }
    ::_exit(0);
}

/// @return whether the other end was closed in time
bool readToItsEnd(int end, std::string& bytes, Clock::time_point last) {
    std::array<char, 65536> block{};
    for (;;) {
        auto left = std::chrono::duration_cast<std::chrono::milliseconds>(last - Clock::now()).count();
        pollfd waiting{end, POLLIN, 0};
        int ready = left > 0 ? ::poll(&waiting, 1, static_cast<int>(left)) : 0;
        if (ready < 0 && errno == EINTR) {
            continue;
        }
        if (ready <= 0) {
            return false;
        }
        ssize_t count = ::read(end, block.data(), block.size());
        if (count == 0) {
            return true;
        }
        if (count > 0) {
            bytes.append(block.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
}

} // namespace

std::optional<std::string> runApart(const std::function<std::string()>& work,
                                    std::chrono::milliseconds limit) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return std::nullopt;
    }
    pid_t other = ::fork();
    if (other == 0) {
        workAndLeave(work, ends[1]);
    }
    ::close(ends[1]);
    std::string bytes;
    bool whole = other > 0 && readToItsEnd(ends[0], bytes, Clock::now() + limit);
    ::close(ends[0]);
    if (other < 0) {
        return std::nullopt;
    }
    if (!whole) {
        ::kill(other, SIGKILL);
    }
    int status = 0;
    while (::waitpid(other, &status, 0) < 0 && errno == EINTR) {
    }
    bool good = whole && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return good ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace zor
