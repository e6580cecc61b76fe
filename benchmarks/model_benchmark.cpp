// SPDX-License-Identifier: MIT
// A typed frequency on its way to the shown word, in the model alone, against the arithmetic and its two
// number texts.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "ratio.h"

#include "support/numbers.h"

#include <benchmark/benchmark.h>

namespace zor::benchmarks {

namespace {

const DeclareRatio commitRatio("CommittedFrequency", "BareFrequency", 25);

void BareFrequency(benchmark::State& state) {
    FrequencyScale scale;
    std::size_t turn = 0;
    for (auto _ : state) {
        double megahertz = numericPrefix(typedFrequencies[turn++ % typedFrequencies.size()]);
        double shown = centreFrequency(frequencyParameter(megahertz, scale), scale);
        benchmark::DoNotOptimize(numberText(shown));
        benchmark::DoNotOptimize(shownNumber(shown, 4).text);
    }
}
BENCHMARK(BareFrequency)->UseRealTime();

void CommittedFrequency(benchmark::State& state) {
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    OpalV2& panel = bench.panel();
    std::size_t turn = 0;
    for (auto _ : state) {
        panel.FreqCenter.type(typedFrequencies[turn++ % typedFrequencies.size()]);
        benchmark::DoNotOptimize(panel.Freqw.text());
    }
}
BENCHMARK(CommittedFrequency)->UseRealTime();

} // namespace

} // namespace zor::benchmarks
