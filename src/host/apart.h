// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace zor {

/// Runs work in a process of its own, so that a foreign library that falls over a damaged file takes nothing
/// with it. What the work does to memory is seen by it alone; what it returns comes back. It must not throw.
/// @param limit  after which it is ended
/// @return nothing if it crashed, took too long or could not begin
[[nodiscard]] std::optional<std::string> runApart(const std::function<std::string()>& work,
                                                  std::chrono::milliseconds limit);

} // namespace zor
