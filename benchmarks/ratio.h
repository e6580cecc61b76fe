// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace zor::benchmarks {

using Seconds = std::chrono::duration<double>;

/// A measurement against its yardstick of the same run: the product's way, the bare way, and how many times
/// as long the first may take. Of two that are measured in turns the yardstick is a name alone.
struct Ratio {
    std::string subject;
    std::string yardstick;
    double limit;
};

/// Declares a ratio; every translation unit does so for its own benchmarks.
struct DeclareRatio {
    DeclareRatio(std::string subject, std::string yardstick, double limit);
};

[[nodiscard]] const std::vector<Ratio>& declaredRatios();

} // namespace zor::benchmarks
