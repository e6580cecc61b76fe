// SPDX-License-Identifier: MIT
#include "support/local_time.h"

#include <array>
#include <ctime>

namespace zor {

std::string localTime(std::chrono::system_clock::time_point moment, const char* form) {
    std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
    const std::tm* local = std::localtime(&seconds);
    std::array<char, 64> text{};
    std::size_t length = local == nullptr ? 0 : std::strftime(text.data(), text.size(), form, local);
    return {text.data(), length};
}

} // namespace zor
