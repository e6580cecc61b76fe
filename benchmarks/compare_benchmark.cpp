// SPDX-License-Identifier: MIT
// A thousand comparisons of a panel with another state of it, against the bare reading of the settings
// compared: the words as numbers and the texts of what they are made of, both sides.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "ratio.h"

#include "compare/panel_state.h"
#include "support/numbers.h"

#include <benchmark/benchmark.h>

namespace zor::benchmarks {

namespace {

const DeclareRatio comparingRatio("ComparedPairs", "BareReading", 50);

constexpr int pairs = 1000;

/// What a comparison cannot do without: each word's value and each field's part of it.
void readBare(const ChipPanel& panel, std::vector<std::uint32_t>& values, std::vector<std::string>& texts) {
    values.clear();
    texts.clear();
    for (const ControlWord* word : panel.words()) {
        texts.push_back(word->text());
        for (const BitField& field : word->fields()) {
            values.push_back(static_cast<std::uint32_t>(field.value()));
        }
    }
    texts.push_back(panel.Crystalfreq.text());
    texts.push_back(panel.Revision.text());
    texts.push_back(panel.PowerSupply.text());
}

void BareReading(benchmark::State& state) {
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    OpalV2& panel = bench.panel();
    std::vector<std::uint32_t> values;
    std::vector<std::string> texts;
    for (auto _ : state) {
        for (int pair = 0; pair < pairs; ++pair) {
            for (int side = 0; side < 2; ++side) {
                readBare(panel, values, texts);
                benchmark::DoNotOptimize(values.data());
                benchmark::DoNotOptimize(texts.data());
            }
        }
    }
}
BENCHMARK(BareReading)->UseRealTime();

void ComparedPairs(benchmark::State& state) {
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    OpalV2& panel = bench.panel();
    panel.FreqCenter.type(typedFrequencies[0]);
    PanelState other = shownState(panel, bench.bench());
    panel.FreqCenter.type(typedFrequencies[1]);
    panel.pm(5)->tick(true);
    panel.WKUPM.type("200");
    for (auto _ : state) {
        for (int pair = 0; pair < pairs; ++pair) {
            benchmark::DoNotOptimize(differences(shownState(panel, bench.bench()), other).size());
        }
    }
}
BENCHMARK(ComparedPairs)->UseRealTime();

} // namespace

} // namespace zor::benchmarks
