// SPDX-License-Identifier: MIT
// The receivers' and transmitters' link tools on the real loop: how evenly the carrier is toggled, and how
// soon a board is armed again behind a packet.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "ratio.h"

#include "link/connect.h"
#include "rftools/amber_v1_rflink.h"
#include "rftools/beryl_rf_link_test.h"
#include "rftools/frm_link.h"

#include <benchmark/benchmark.h>

#include <QEventLoop>
#include <QTimer>

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace zor::benchmarks {

namespace {

constexpr Seconds toggleTime{0.050};
/// Of the silence behind a packet that ends it.
constexpr Seconds readTimeout{0.050};

const DeclareRatio toggleRatio("ToggleInterval", "ToldToggleInterval", 1.02);
/// 2 ms over the bare loop's timer.
const DeclareRatio armingRatio("ArmingBehindAPacket", "BareTimer", 1.04);
/// Stands in both times of the ratio below, so that its limit is 2 ms over the bare loop's.
constexpr Seconds commonTime{0.010};
const DeclareRatio rearmingRatio("ArmingBehindAReport", "BareArmingBehindAReport", 1.2);

void ToldToggleInterval(benchmark::State& state) {
    for (auto _ : state) {
        state.SetIterationTime(toggleTime.count());
    }
}
BENCHMARK(ToldToggleInterval)->UseManualTime()->Iterations(100);

/// Times are the told interval and by how much each one misses it, early or late.
void ToggleInterval(benchmark::State& state) {
    OnProcessor first(0);
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    bench.bench().windows.TX0on = true;
    auto& window = dynamic_cast<frm_Link&>(bench.bench().tools.create(Tool::frm_Link));
    window.show();
    window.cb_astabil.tick(true);
    window.Slider.slide(window.Slider.maximum());
    std::vector<EventLoop::Duration> toggles;
    Subscription heard = bench.connect().tap.bytes.subscribe([&toggles, &bench](const WireBytes& line) {
        if (line.direction == WireBytes::Direction::ToBoard && line.bytes.starts_with('y')) {
            toggles.push_back(bench.main().loop().now());
        }
    });
    auto waitForToggle = [&] {
        std::size_t before = toggles.size();
        bench.main().loop().runUntil([&] { return toggles.size() > before; });
    };
    waitForToggle();
    for (auto _ : state) {
        waitForToggle();
        Seconds interval = toggles[toggles.size() - 1] - toggles[toggles.size() - 2];
        state.SetIterationTime(toggleTime.count() + std::abs((interval - toggleTime).count()));
    }
    window.cb_astabil.tick(false);
    window.close();
}
BENCHMARK(ToggleInterval)->UseManualTime()->Iterations(40);

void BareTimer(benchmark::State& state) {
    OnProcessor first(0);
    for (auto _ : state) {
        QEventLoop loop;
        QTimer timer;
        timer.setTimerType(Qt::PreciseTimer);
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
        timer.start(std::chrono::duration_cast<std::chrono::milliseconds>(readTimeout));
        loop.exec();
    }
}
BENCHMARK(BareTimer)->UseRealTime()->Iterations(20);

/// Answers every line at once, and reports a packet a while after each fill of the FIFO.
class ReportingTerminal {
  public:
    /// @param fillEnd  how the word ends that begins a fill
    explicit ReportingTerminal(std::string fillEnd)
        : fill(std::move(fillEnd))
        , board([this] { answer(); }) {}
    ~ReportingTerminal() {
        ending = true;
        // A line of nobody wakes the board a last time.
        (void)!::write(pair.nearEnd(), "\r", 1);
        board.join();
    }
    ReportingTerminal(const ReportingTerminal&) = delete;
    ReportingTerminal& operator=(const ReportingTerminal&) = delete;

    [[nodiscard]] const std::string& path() const { return pair.path(); }
    /// From a report's last character to the first that came behind it, one for each report that was
    /// answered.
    [[nodiscard]] std::vector<Seconds> pauses() const {
        std::lock_guard guard(lock);
        return heardPauses;
    }

  private:
    using Clock = std::chrono::steady_clock;

    void answer() {
        OnProcessor second(1);
        std::string line;
        std::optional<Clock::time_point> reported;
        char c = 0;
        while (::read(pair.farEnd(), &c, 1) == 1 && !ending) {
            if (reported) {
                std::lock_guard guard(lock);
                heardPauses.emplace_back(Clock::now() - *reported);
                reported.reset();
            }
            if (c != '\r') {
                line += c;
                continue;
            }
            pair.write("\n\rOK\n\r>");
            if (line.starts_with("S2") && line.ends_with(fill)) {
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
                pair.write("\n\rReceived packet: 05 bytes: hello\n\rOK\n\r>");
                reported = Clock::now();
            }
            line.clear();
        }
    }

    std::string fill;
    TerminalPair pair;
    mutable std::mutex lock;
    std::vector<Seconds> heardPauses;
    std::atomic<bool> ending = false;
    std::thread board;
};

/// From the last character of a report to the first of the line that arms again, the read timeout included.
void ArmingBehindAPacket(benchmark::State& state) {
    OnProcessor first(0);
    ReportingTerminal terminal("7");
    BenchOnTerminal bench(terminal.path());
    bench.bench().link.LoadBoardRev = 2;
    bench.main().menu.mnuViewRx.setEnabled(true);
    bench.main().menu.View.setEnabled(true);
    bench.main().menu.mnuViewRx.click();
    auto& window = dynamic_cast<AmberV1rflink&>(bench.bench().tools.create(Tool::AmberV1rflink_LB2));
    window.show();
    EventLoop::Duration lastHeard{};
    std::vector<EventLoop::Duration> delays;
    Subscription heard = bench.connect().tap.bytes.subscribe([&](const WireBytes& line) {
        if (line.direction == WireBytes::Direction::FromBoard) {
            lastHeard = bench.main().loop().now();
        } else if (line.bytes.ends_with("5\r")) {
            delays.push_back(bench.main().loop().now() - lastHeard);
        }
    });
    window.EnRx.click();
    delays.clear();
    for (auto _ : state) {
        std::size_t before = delays.size();
        bench.main().loop().runUntil([&] { return delays.size() > before; });
        state.SetIterationTime(Seconds(delays.back()).count());
    }
    if (window.EnRx.caption() != "Disable") {
        state.SkipWithError("the window does not receive");
    }
    window.close();
}
BENCHMARK(ArmingBehindAPacket)->UseManualTime()->Iterations(20);

/// A bare loop that reads a report to its prompt and writes the first line of the next arming.
void BareArmingBehindAReport(benchmark::State& state) {
    OnProcessor first(0);
    ReportingTerminal terminal("82");
    BareLine line(terminal.path());
    for (auto _ : state) {
        line.exchange("S2CA82\r");
        line.exchange("");
        line.exchange("S2CA80\r");
        state.SetIterationTime((commonTime + terminal.pauses().back()).count());
    }
}
BENCHMARK(BareArmingBehindAReport)->UseManualTime()->Iterations(40);

void ArmingBehindAReport(benchmark::State& state) {
    OnProcessor first(0);
    ReportingTerminal terminal("82");
    BenchOnTerminal bench(terminal.path());
    bench.bench().link.LoadBoardRev = 2;
    bench.main().menu.mnuViewTRx.setEnabled(true);
    bench.main().menu.View.setEnabled(true);
    bench.main().menu.mnuViewTRx.click();
    auto& window = dynamic_cast<Frm_BerylRfLinkTest&>(bench.bench().tools.create(Tool::Frm_BerylRfLinkTest));
    window.show();
    window.TabStrip1.choosePosition(2);
    window.PB_Enable.click();
    std::size_t seen = 0;
    for (auto _ : state) {
        bench.main().loop().runUntil([&] { return terminal.pauses().size() > seen; });
        seen = terminal.pauses().size();
        state.SetIterationTime((commonTime + terminal.pauses().back()).count());
    }
    if (!window.receiving()) {
        state.SkipWithError("the window does not receive");
    }
    window.close();
}
BENCHMARK(ArmingBehindAReport)->UseManualTime()->Iterations(40);

} // namespace

} // namespace zor::benchmarks
