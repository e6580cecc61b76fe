// SPDX-License-Identifier: MIT
// A board that does not stop talking: 100 MB into an open terminal window, by the program's own way from the
// device to the screen. Prints what a character costs at the beginning and at the end, how long the window
// was ever held up, and how much memory came on top of the text. Exits 1 if a limit is passed.
#include "answering_terminal.h"
#include "bench_on_terminal.h"

#include "desktop/desktop_window.h"
#include "utilities/terminal.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <thread>
#include <unistd.h>
#include <vector>

namespace zor::benchmarks {

namespace {

constexpr std::size_t floodBytes = 100'000'000;
constexpr std::size_t parts = 10;
constexpr double costLimit = 1.25;
constexpr qint64 stopLimit = 250;
constexpr double memoryLimit = 16;

/// MiB that the process occupies at this moment.
double residentMemory() {
    std::ifstream file("/proc/self/statm");
    double total = 0;
    double resident = 0;
    file >> total >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1 << 20);
}

double megabytes(std::size_t bytes) {
    return static_cast<double>(bytes) / (1 << 20);
}

/// How long the loop was ever away from its timers.
class Heartbeat {
  public:
    Heartbeat() {
        QObject::connect(&timer, &QTimer::timeout, &timer,
                         [this] { longest = std::max(longest, since.restart()); });
        timer.start(10);
        since.start();
    }
    [[nodiscard]] qint64 longestStop() const { return longest; }

  private:
    QTimer timer;
    QElapsedTimer since;
    qint64 longest = 0;
};

std::string floodLine() {
    std::string line;
    for (int byte = 0; byte < 16; ++byte) {
        line += "A5 ";
    }
    return line + "\n\r";
}

int flood() {
    TerminalPair pair;
    BenchOnTerminal bench(pair.path());
    DesktopWindow desktopWindow(bench.main());
    desktopWindow.show();
    bench.bench().tools.open(Tool::Terminal);
    auto& window = static_cast<Terminal&>(*bench.main().desk().find("Terminal"));

    std::thread board([&pair] {
        std::string block;
        std::string line = floodLine();
        while (block.size() < 4096) {
            block += line;
        }
        for (std::size_t sent = 0; sent < floodBytes + block.size(); sent += block.size()) {
            pair.write(block);
        }
    });

    Heartbeat heartbeat;
    QElapsedTimer clock;
    std::vector<double> costs;
    double memoryBeside = 0;
    double memoryAtFirst = 0;
    clock.start();
    std::size_t before = 0;
    while (costs.size() < parts) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        std::size_t kept = window.Text1.contents().size();
        std::size_t come = window.Text1.dropped() + kept;
        if (come >= (costs.size() + 1) * (floodBytes / parts)) {
            costs.push_back(static_cast<double>(clock.nsecsElapsed()) / static_cast<double>(come - before));
            memoryBeside = residentMemory() - megabytes(kept);
            memoryAtFirst = costs.size() == 1 ? memoryBeside : memoryAtFirst;
            before = come;
            clock.restart();
        }
    }
    board.join();

    double ratio = costs.back() / costs.front();
    double growth = memoryBeside - memoryAtFirst;
    std::printf("%.0f ns a character at first, %.0f ns at the end: %.2f times, limit %.2f\n", costs.front(),
                costs.back(), ratio, costLimit);
    std::printf("longest stop of the window %lld ms, limit %lld ms\n",
                static_cast<long long>(heartbeat.longestStop()), static_cast<long long>(stopLimit));
    std::printf("memory beside the text grew by %.1f MiB, limit %.0f MiB\n", growth, memoryLimit);
    return ratio > costLimit || heartbeat.longestStop() > stopLimit || growth > memoryLimit ? 1 : 0;
}

} // namespace

} // namespace zor::benchmarks

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    return zor::benchmarks::flood();
}
