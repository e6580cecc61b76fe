// SPDX-License-Identifier: MIT
// Exchanges over a pseudo-terminal: the command channel with its adapters against a bare blocking loop that
// makes the same exchange on a terminal alike, and a whole Update against the same lines sent barely.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "in_turns.h"
#include "ratio.h"

#include "link/connect.h"

#include <benchmark/benchmark.h>

namespace zor::benchmarks {

namespace {

const DeclareRatio exchangeRatio("ChannelExchange", "BareExchange", 1.6);
const DeclareRatio updateRatio("PanelUpdate", "BareUpdate", 1.6);

void ChannelExchange(benchmark::State& state) {
    OnProcessor first(0);
    constexpr int timesATurn = 100;
    AnsweringTerminal bareTerminal;
    AnsweringTerminal ownTerminal;
    BareLine line(bareTerminal.path());
    BenchOnTerminal bench(ownTerminal.path());
    takeTurns(
        state, timesATurn, [&] { line.exchange("S2A7D0\r"); },
        [&] { bench.connect().Send_To_LoadBoard("S2A7D0\r"); });
}
BENCHMARK(ChannelExchange)->Apply(manyRepetitions);

void PanelUpdate(benchmark::State& state) {
    OnProcessor first(0);
    constexpr int timesATurn = 20;
    AnsweringTerminal bareTerminal;
    AnsweringTerminal ownTerminal;
    BareLine line(bareTerminal.path());
    BenchOnTerminal bench(ownTerminal.path());
    OpalV2& panel = bench.panel();
    takeTurns(
        state, timesATurn,
        [&] {
            for (const char* word : {"S28080\r", "S2A7D0\r", "S1B0\r", "S2C000\r", "S2C200\r", "S2E000\r"}) {
                line.exchange(word);
            }
        },
        [&] { panel.Update.click(); });
}
BENCHMARK(PanelUpdate)->Apply(manyRepetitions);

} // namespace

} // namespace zor::benchmarks
