// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>

namespace zor::benchmarks {

/// The counter under which a measurement in turns tells its ratio; the reporter takes the median of it.
inline constexpr const char* ratioCounter = "ratio";

/// Measures the product's way and the bare way in turns of a few milliseconds. What slows the machine down
/// for a while slows both down alike then; measured one after the other, one may meet it and the other not.
/// The iteration's time is that of the product's turn.
/// @param times  how often a turn does it
template <class Bare, class Ours>
void takeTurns(benchmark::State& state, int times, Bare bare, Ours ours) {
    using Clock = std::chrono::steady_clock;
    using Seconds = std::chrono::duration<double>;
    auto turn = [times](auto& way) {
        Clock::time_point begin = Clock::now();
        for (int time = 0; time < times; ++time) {
            way();
        }
        return Seconds(Clock::now() - begin).count();
    };
    double bareTime = 0;
    double ownTime = 0;
    for (auto _ : state) {
        bareTime += turn(bare);
        double took = turn(ours);
        ownTime += took;
        state.SetIterationTime(took);
    }
    state.counters[ratioCounter] = ownTime / bareTime;
}

/// For what waits on the system: where that puts its threads and pages stays for as long as a repetition's
/// terminal or file lives, so there are more of them, and shorter ones.
inline void manyRepetitions(benchmark::internal::Benchmark* measurement) {
    constexpr double seconds = 0.2;
    constexpr int repetitions = 21;
    measurement->UseManualTime()->MinTime(seconds)->Repetitions(repetitions);
}

} // namespace zor::benchmarks
