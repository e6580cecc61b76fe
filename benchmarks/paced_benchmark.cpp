// SPDX-License-Identifier: MIT
// Exchanges with loadboard-sim at the line's real pace, against the time that the characters alone take at
// 19200 baud.
#include "bench_on_terminal.h"
#include "ratio.h"

#include "link/connect.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QProcess>

namespace zor::benchmarks {

namespace {

const DeclareRatio pacedRatio("PacedExchange", "LineTime", 1.02);

/// Answered by the prompt alone: what is written and what comes back are known to the character.
constexpr const char* command = "WSCC,CC,CC,CC,CC,CC,CC,CC\r";
constexpr double characters = 26 + 7;
constexpr double secondsPerCharacter = 10.0 / 19200;

void LineTime(benchmark::State& state) {
    for (auto _ : state) {
        state.SetIterationTime(characters * secondsPerCharacter);
    }
}
BENCHMARK(LineTime)->UseManualTime()->Iterations(100);

/// The simulated board as a process, with its terminal's path.
class BoardProcess {
  public:
    BoardProcess() {
        process.start(QCoreApplication::applicationDirPath() + "/../simulator/loadboard-sim",
                      {"--kind", "lb2"});
        if (process.waitForStarted() && process.waitForReadyRead()) {
            terminal = QString::fromLocal8Bit(process.readLine()).trimmed().toStdString();
        }
    }
    ~BoardProcess() {
        process.terminate();
        process.waitForFinished();
    }

    [[nodiscard]] const std::string& path() const { return terminal; }

  private:
    QProcess process;
    std::string terminal;
};

void PacedExchange(benchmark::State& state) {
    BoardProcess board;
    if (board.path().empty()) {
        state.SkipWithError("loadboard-sim did not start");
        return;
    }
    BenchOnTerminal bench(board.path());
    for (auto _ : state) {
        bench.connect().Send_To_LoadBoard(command);
    }
}
BENCHMARK(PacedExchange)->UseRealTime()->Iterations(50);

} // namespace

} // namespace zor::benchmarks
