// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zor::testing {

/// Takes each statement before it is carried out, so that it is known also if the process does not outlive
/// it.
using Log = std::function<void(const std::string& statement)>;

/// Lets a random engineer work for so many statements and then put the bench in order.
/// @return what went wrong, empty if nothing did; memory errors end the process
[[nodiscard]] std::string workAtRandom(unsigned seed, int steps, const Log& log);

/// The same with statements that are given.
[[nodiscard]] std::string workAsTold(const std::vector<std::string>& statements);

} // namespace zor::testing
