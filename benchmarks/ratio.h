// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace zor::benchmarks {

/// A measurement against its yardstick of the same run: the product's way, the bare way, and how many times
/// as long the first may take.
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

/// Many short repetitions instead of a few long ones, for what waits on the system: where it puts its own
/// threads and pages changes the time of one repetition by up to a half for as long as that one's terminal or
/// file lives, and says nothing of the next one's. Both sides of a ratio take it.
inline void manyShortRepetitions(benchmark::internal::Benchmark* measurement) {
    constexpr double seconds = 0.1;
    constexpr int repetitions = 35;
    measurement->MinTime(seconds)->Repetitions(repetitions);
}

} // namespace zor::benchmarks
