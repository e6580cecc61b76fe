// SPDX-License-Identifier: MIT
// Exchanges with loadboard-sim at the line's real pace, against the time that the characters alone take at
// 19200 baud.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "ratio.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/demo_board.h"
#include "link/connect.h"

#include <benchmark/benchmark.h>

namespace zor::benchmarks {

namespace {

const DeclareRatio pacedRatio("PacedExchange", "LineTime", 1.02);

/// Answered by the prompt alone: what is written and what comes back are known to the character.
constexpr const char* command = "WSCC,CC,CC,CC,CC,CC,CC,CC\r";
constexpr double characters = 26 + 7;
constexpr double secondsPerCharacter = 10.0 / 19200;

void LineTime(benchmark::State& state) {
    for (auto _ : state) {
        state.SetIterationTime(characters * secondsPerCharacter);
    }
}
BENCHMARK(LineTime)->UseManualTime()->Iterations(100);

void PacedExchange(benchmark::State& state) {
    // The board's program too: an idle processor of a virtual machine may take longer to wake than a
    // character takes on the line.
    OnProcessor first(0);
    DemoBoard board;
    std::string terminal = fromQt(board.start());
    if (terminal.empty()) {
        state.SkipWithError("loadboard-sim did not start");
        return;
    }
    BenchOnTerminal bench(terminal);
    for (auto _ : state) {
        bench.connect().Send_To_LoadBoard(command);
    }
}
BENCHMARK(PacedExchange)->UseRealTime()->Iterations(50);

} // namespace

} // namespace zor::benchmarks
