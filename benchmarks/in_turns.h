// SPDX-License-Identifier: MIT
#pragma once

#include "ratio.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace zor::benchmarks {

/// The counter under which a measurement in turns tells its ratio; the reporter takes the median of it.
inline constexpr const char* ratioCounter = "ratio";

/// What a way takes, done once.
template <class Way>
Seconds timeOf(Way way) {
    auto begin = std::chrono::steady_clock::now();
    way();
    return std::chrono::steady_clock::now() - begin;
}

/// Measures the product's way and the bare way in turns of a few milliseconds. What slows the machine down
/// for a while slows both down alike then; measured one after the other, one may meet it and the other not.
/// The iteration's time is that of the product's turn. Each way says itself how long its turn took, and so
/// leaves out what it tidies up.
template <class Bare, class Ours>
void takeTimedTurns(benchmark::State& state, Bare bare, Ours ours) {
    Seconds bareTime{};
    Seconds ownTime{};
    for (auto _ : state) {
        bareTime += bare();
        Seconds took = ours();
        ownTime += took;
        state.SetIterationTime(took.count());
    }
    state.counters[ratioCounter] = ownTime / bareTime;
}

/// The same of ways that are timed whole.
/// @param times  how often a turn does it
template <class Bare, class Ours>
void takeTurns(benchmark::State& state, int times, Bare bare, Ours ours) {
    auto turn = [times](auto& way) {
        return timeOf([&] {
            for (int time = 0; time < times; ++time) {
                way();
            }
        });
    };
    takeTimedTurns(
        state, [&] { return turn(bare); }, [&] { return turn(ours); });
}

/// For what waits on the system: where that puts its threads and pages stays for as long as a repetition's
/// terminal or file lives, so there are more of them, and shorter ones.
inline void manyRepetitions(benchmark::internal::Benchmark* measurement) {
    constexpr double seconds = 0.2;
    constexpr int repetitions = 21;
    measurement->UseManualTime()->MinTime(seconds)->Repetitions(repetitions);
}

} // namespace zor::benchmarks
