// SPDX-License-Identifier: MIT
// A typed frequency on its way to the shown word, in the model alone, against the arithmetic and its two
// number texts.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "in_turns.h"
#include "ratio.h"

#include "support/numbers.h"

#include <benchmark/benchmark.h>

namespace zor::benchmarks {

namespace {

const DeclareRatio commitRatio("CommittedFrequency", "BareFrequency", 25);

void CommittedFrequency(benchmark::State& state) {
    constexpr int timesATurn = 1000;
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    OpalV2& panel = bench.panel();
    FrequencyScale scale;
    std::size_t bareTurn = 0;
    std::size_t ownTurn = 0;
    takeTurns(
        state, timesATurn,
        [&] {
            double megahertz = numericPrefix(typedFrequencies[bareTurn++ % typedFrequencies.size()]);
            double shown = centreFrequency(frequencyParameter(megahertz, scale), scale);
            benchmark::DoNotOptimize(numberText(shown));
            benchmark::DoNotOptimize(shownNumber(shown, 4).text);
        },
        [&] {
            panel.FreqCenter.type(typedFrequencies[ownTurn++ % typedFrequencies.size()]);
            benchmark::DoNotOptimize(panel.Freqw.text());
        });
}
BENCHMARK(CommittedFrequency)->UseManualTime();

} // namespace

} // namespace zor::benchmarks
