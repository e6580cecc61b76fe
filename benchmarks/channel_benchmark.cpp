// SPDX-License-Identifier: MIT
// Exchanges over a pseudo-terminal: the command channel with its adapters against a bare blocking loop that
// makes the same exchange on the same terminal, and a whole Update against the same lines sent barely.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "ratio.h"

#include "link/connect.h"

#include <benchmark/benchmark.h>

namespace zor::benchmarks {

namespace {

const DeclareRatio exchangeRatio("ChannelExchange", "BareExchange", 1.6);
const DeclareRatio updateRatio("PanelUpdate", "BareUpdate", 1.6);

/// One pair for all, so that nothing but the way of exchanging differs.
const AnsweringTerminal& sharedTerminal() {
    static const AnsweringTerminal terminal;
    return terminal;
}

void BareExchange(benchmark::State& state) {
    OnProcessor first(0);
    BareLine line(sharedTerminal().path());
    for (auto _ : state) {
        line.exchange("S2A7D0\r");
    }
}
BENCHMARK(BareExchange)->UseRealTime()->Apply(manyShortRepetitions);

void ChannelExchange(benchmark::State& state) {
    OnProcessor first(0);
    BenchOnTerminal bench(sharedTerminal().path());
    for (auto _ : state) {
        bench.connect().Send_To_LoadBoard("S2A7D0\r");
    }
}
BENCHMARK(ChannelExchange)->UseRealTime()->Apply(manyShortRepetitions);

void BareUpdate(benchmark::State& state) {
    OnProcessor first(0);
    BareLine line(sharedTerminal().path());
    for (auto _ : state) {
        for (const char* word : {"S28080\r", "S2A7D0\r", "S1B0\r", "S2C000\r", "S2C200\r", "S2E000\r"}) {
            line.exchange(word);
        }
    }
}
BENCHMARK(BareUpdate)->UseRealTime()->Apply(manyShortRepetitions);

void PanelUpdate(benchmark::State& state) {
    OnProcessor first(0);
    BenchOnTerminal bench(sharedTerminal().path());
    OpalV2& panel = bench.panel();
    for (auto _ : state) {
        panel.Update.click();
    }
}
BENCHMARK(PanelUpdate)->UseRealTime()->Apply(manyShortRepetitions);

} // namespace

} // namespace zor::benchmarks
