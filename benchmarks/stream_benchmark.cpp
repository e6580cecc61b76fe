// SPDX-License-Identifier: MIT
// An hour of packets at the pace of the line, on virtual time, in each window that receives: nothing that the
// board reported is lost, what is kept is bounded, and a packet costs the same behind that hour as at the
// beginning.
#include "in_turns.h"
#include "ratio.h"

#include "rftools/amber_v1_rflink.h"
#include "rftools/beryl_rf_link_test.h"
#include "virtual/virtual_bench.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

namespace zor::benchmarks {

namespace {

using namespace std::chrono_literals;

const DeclareRatio transceiverRatio("LastMinutesOfPackets<Transceiver>", "FirstMinutesOfPackets<Transceiver>",
                                    1.25);
const DeclareRatio receiverRatio("LastMinutesOfPackets<Receiver>", "FirstMinutesOfPackets<Receiver>", 1.25);

constexpr int minutesTimed = 5;
constexpr int minutesBefore = 60;
/// The tables, the wire's history and the plot are full by then.
constexpr int minutesToFill = 15;
/// MiB that may come on top in the rest of the hour: the monitor's text.
constexpr double memoryLimit = 8;

struct Transceiver {
    static constexpr auto panel = &MainMenu::mnuViewTRx;
    static constexpr Tool tool = Tool::Frm_BerylRfLinkTest;
    static constexpr const char* form = "Frm_BerylRfLinkTest";
    static constexpr const char* begin = "PB_Enable";
    static constexpr const char* count = "TB_PacketCount";
    /// The word with which the chip begins to fill its FIFO.
    static constexpr const char* fill = "S2CA82";
    /// Where the count begins anew.
    static constexpr std::uint64_t wrap = 32768;
};

struct Receiver {
    static constexpr auto panel = &MainMenu::mnuViewRx;
    static constexpr Tool tool = Tool::AmberV1rflink_LB2;
    static constexpr const char* form = "AmberV1rflink_LB2";
    static constexpr const char* begin = "EnRx";
    static constexpr const char* count = "PCnt";
    static constexpr const char* fill = "S2CE87";
    static constexpr std::uint64_t wrap = 1'000'000'000;
};

/// MiB that the process occupies at this moment.
double residentMemory() {
    std::ifstream file("/proc/self/statm");
    double total = 0;
    double resident = 0;
    file >> total >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1 << 20);
}

/// A window that receives, and a board that hears a numbered packet as soon as its chip fills the FIFO.
template <class Window>
class PacketStream {
  public:
    PacketStream() {
        bench.ports.place(1, sim::BoardKind::LoadBoard2);
        bench.startAndSearch();
        (bench.main().menu.*Window::panel).click();
        bench.shared().tools.open(Window::tool);
        if (Element* pages = bench.desk.find(Window::form)->find("TabStrip1")) {
            pages->choosePosition(2);
        }
        bench.at(Window::form, Window::begin).click();
        sim::Board& board = bench.ports.seat(1).board();
        board.transmit = [this, out = board.transmit](const sim::Transmission& transmission) {
            reports += transmission.bytes.starts_with("\n\rReceived packet") ? 1 : 0;
            out(transmission);
        };
        bench.loop.startTimer(10ms, EventLoop::Repeat::Every, [this, &board] {
            noteLastLine();
            if (lastLine == Window::fill) {
                std::array<char, 16> payload{};
                std::snprintf(payload.data(), payload.size(), "PKT %06llu",
                              static_cast<unsigned long long>(reports + 1));
                board.hearPacket(payload.data());
            }
        });
    }

    void runMinute() {
        bench.run(60s);
        noteLastLine();
        bench.takeSent();
        ++minutes;
    }
    /// Packets came all the time, several a second.
    [[nodiscard]] bool wentOn() const { return reports > minutes * 300; }
    [[nodiscard]] bool lostNone() {
        // What was reported last may still be on the line.
        bench.ports.seat(1).board().setMute(true);
        bench.run(5s);
        return reports > 0 &&
               bench.at(Window::form, Window::count).text() == std::to_string(reports % Window::wrap);
    }

  private:
    void noteLastLine() { lastLine = bench.ports.sent.empty() ? lastLine : bench.ports.sent.back().text; }

    testing::VirtualBench bench;
    std::string lastLine = Window::fill;
    std::uint64_t reports = 0;
    std::uint64_t minutes = 0;
};

template <class Window>
void LastMinutesOfPackets(benchmark::State& state) {
    PacketStream<Window> stream;
    double full = 0;
    for (int minute = 0; minute < minutesBefore; ++minute) {
        full = minute == minutesToFill ? residentMemory() : full;
        stream.runMinute();
    }
    double grown = residentMemory() - full;
    PacketStream<Window> young;
    takeTurns(
        state, 1, [&] { young.runMinute(); }, [&] { stream.runMinute(); });
    state.counters["grown_MiB"] = grown;
    if (grown > memoryLimit) {
        state.SkipWithError("the memory grows with the packets");
    }
    if (!stream.wentOn()) {
        state.SkipWithError("the packets ceased");
    }
    if (!stream.lostNone()) {
        state.SkipWithError("a packet that was reported is missing");
    }
}

BENCHMARK_TEMPLATE(LastMinutesOfPackets, Transceiver)->UseManualTime()->Iterations(minutesTimed);
BENCHMARK_TEMPLATE(LastMinutesOfPackets, Receiver)->UseManualTime()->Iterations(minutesTimed);

} // namespace

} // namespace zor::benchmarks
