// SPDX-License-Identifier: MIT
// A step back against the commit that made it.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "ratio.h"

#include "elements/history.h"

#include <benchmark/benchmark.h>

namespace zor::benchmarks {

namespace {

const DeclareRatio undoRatio("UndoneStep", "CommittedFrequency", 2);

/// Back to the beginning and forth again, step by step.
void UndoneStep(benchmark::State& state) {
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    OpalV2& panel = bench.panel();
    History& history = *panel.history();
    for (std::size_t turn = 0; turn < 100; ++turn) {
        panel.FreqCenter.type(typedFrequencies[turn % typedFrequencies.size()]);
    }
    bool back = true;
    for (auto _ : state) {
        bool made = !(back ? history.undo() : history.redo()).empty();
        back = made ? back : !back;
        benchmark::DoNotOptimize(panel.Freqw.text());
    }
}
BENCHMARK(UndoneStep)->UseRealTime();

} // namespace

} // namespace zor::benchmarks
