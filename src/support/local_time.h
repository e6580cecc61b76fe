// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace zor {

/// A moment by the clock on the wall here, as std::strftime writes it; of its signs only those that write
/// digits are used, which no language changes. A moment that is no date gives an empty text.
[[nodiscard]] std::string localTime(std::chrono::system_clock::time_point moment, const char* form);

} // namespace zor
