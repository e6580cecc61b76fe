// SPDX-License-Identifier: MIT
// A step back against the commit that made it.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "in_turns.h"
#include "ratio.h"

#include "elements/history.h"

#include <benchmark/benchmark.h>

namespace zor::benchmarks {

namespace {

const DeclareRatio undoRatio("UndoneStep", "CommitOfAStep", 2);

/// Back to the beginning and forth again, step by step, in one panel; committed in another.
void UndoneStep(benchmark::State& state) {
    constexpr int timesATurn = 500;
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    AnsweringTerminal otherTerminal;
    BenchOnTerminal otherBench(otherTerminal.path());
    OpalV2& panel = bench.panel();
    OpalV2& otherPanel = otherBench.panel();
    auto type = [turn = std::size_t{0}](OpalV2& where) mutable {
        where.FreqCenter.type(typedFrequencies[turn++ % typedFrequencies.size()]);
        benchmark::DoNotOptimize(where.Freqw.text());
    };
    for (int step = 0; step < 100; ++step) {
        type(panel);
    }
    History& history = *panel.history();
    bool back = true;
    takeTurns(
        state, timesATurn, [&] { type(otherPanel); },
        [&] {
            bool made = !(back ? history.undo() : history.redo()).empty();
            back = made ? back : !back;
            benchmark::DoNotOptimize(panel.Freqw.text());
        });
}
BENCHMARK(UndoneStep)->UseManualTime();

} // namespace

} // namespace zor::benchmarks
