// SPDX-License-Identifier: MIT
// What the wire's tap adds to an exchange: the very events of one exchange told again, to nobody and to the
// wire's history, against the exchange itself.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "ratio.h"

#include "link/connect.h"
#include "link/wire_recorder.h"

#include <benchmark/benchmark.h>

#include <string>
#include <variant>
#include <vector>

namespace zor::benchmarks {

namespace {

const DeclareRatio unheardRatio("TapUnheard", "TappedExchange", 0.03);
const DeclareRatio recordedRatio("TapRecorded", "TappedExchange", 0.10);

constexpr const char* frequencyLine = "S2A7D0\r";

const AnsweringTerminal& sharedTerminal() {
    static const AnsweringTerminal terminal;
    return terminal;
}

/// What the tap told during one exchange, with the texts that its events point into.
class RecordedEvents {
  public:
    explicit RecordedEvents(BenchOnTerminal& bench) {
        Subscription bytes = bench.connect().tap.bytes.subscribe([this](const WireBytes& crossed) {
            events.push_back(Bytes{crossed, std::string(crossed.bytes)});
        });
        Subscription exchanges =
            bench.connect().tap.exchanges.subscribe([this](const WireExchange& exchange) {
                events.push_back(Ended{exchange.number, std::string(exchange.line), exchange.result,
                                       exchange.sent, exchange.ended});
            });
        bench.connect().Send_To_LoadBoard(frequencyLine);
    }

    void tell(const WireTap& tap) const {
        for (const auto& event : events) {
            if (const auto* bytes = std::get_if<Bytes>(&event)) {
                WireBytes crossed = bytes->event;
                crossed.bytes = bytes->text;
                tap.bytes.emit(crossed);
            } else {
                const auto& ended = std::get<Ended>(event);
                tap.exchanges.emit({.number = ended.number,
                                    .line = ended.line,
                                    .result = ended.result,
                                    .sent = ended.sent,
                                    .ended = ended.ended});
            }
        }
    }

  private:
    struct Bytes {
        WireBytes event;
        std::string text;
    };
    struct Ended {
        int number;
        std::string line;
        Exchange result;
        EventLoop::Duration sent;
        EventLoop::Duration ended;
    };

    std::vector<std::variant<Bytes, Ended>> events;
};

void TappedExchange(benchmark::State& state) {
    OnProcessor first(0);
    BenchOnTerminal bench(sharedTerminal().path());
    for (auto _ : state) {
        bench.connect().Send_To_LoadBoard(frequencyLine);
    }
}
BENCHMARK(TappedExchange)->UseRealTime();

void TapUnheard(benchmark::State& state) {
    OnProcessor first(0);
    BenchOnTerminal bench(sharedTerminal().path());
    RecordedEvents events(bench);
    WireTap unheard;
    for (auto _ : state) {
        events.tell(unheard);
    }
}
BENCHMARK(TapUnheard)->UseRealTime();

/// With a panel open, whose tables name the line, and the history full, so that each entry drops an old one.
void TapRecorded(benchmark::State& state) {
    OnProcessor first(0);
    BenchOnTerminal bench(sharedTerminal().path());
    (void)bench.panel();
    RecordedEvents events(bench);
    for (std::size_t count = 0; count < WireRecorder::capacity; ++count) {
        events.tell(bench.connect().tap);
    }
    for (auto _ : state) {
        events.tell(bench.connect().tap);
    }
}
BENCHMARK(TapRecorded)->UseRealTime();

} // namespace

} // namespace zor::benchmarks
