// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zor {

/// This run's number among the processes of the machine.
[[nodiscard]] std::int32_t ownProcess();
/// Whether a process of that number runs now.
[[nodiscard]] bool processRuns(std::int32_t process);

} // namespace zor
