// SPDX-License-Identifier: MIT
// A send to a board that says nothing, up to the time-out and the reopening: processor time against the time
// that it takes.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "ratio.h"

#include "link/connect.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>

namespace zor::benchmarks {

namespace {

const DeclareRatio silentRatio("SilentWaitProcessorTime", "SilentWait", 0.01);

double processorSeconds() {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double wallSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void measureWait(benchmark::State& state, double (*seconds)()) {
    TerminalPair silent;
    BenchOnTerminal bench(silent.path());
    for (auto _ : state) {
        double before = seconds();
        bench.connect().Send_To_LoadBoard("S2A7D0\r");
        state.SetIterationTime(seconds() - before);
    }
}

void SilentWait(benchmark::State& state) {
    measureWait(state, wallSeconds);
}
BENCHMARK(SilentWait)->UseManualTime()->Iterations(1);

void SilentWaitProcessorTime(benchmark::State& state) {
    measureWait(state, processorSeconds);
}
BENCHMARK(SilentWaitProcessorTime)->UseManualTime()->Iterations(1);

} // namespace

} // namespace zor::benchmarks
