// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"

#include <string>

namespace zor {

/// The connected board in such words that a person finds it again: its generation, its port as the program
/// and as the system name it, and the socket that it is plugged into.
[[nodiscard]] std::string boardName(const Bench& bench);

} // namespace zor
