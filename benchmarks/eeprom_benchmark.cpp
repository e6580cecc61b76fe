// SPDX-License-Identifier: MIT
// The programmer: whole runs at the line's real pace against the line's own time and the ticks that the steps
// wait for, growth with the image's length on a board that answers at once, and the loading of a long text.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "ratio.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/demo_board.h"
#include "desktop/desktop_window.h"
#include "eeprom/eeprom.h"
#include "host/files.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <chrono>
#include <filesystem>

namespace zor::benchmarks {

namespace {

const DeclareRatio programRatio("ProgramPaced", "ProgramLineAndTicks", 1.15);
const DeclareRatio readRatio("ReadPaced", "ReadLineAndTicks", 1.15);
// From 64 to 1024 bytes, half by half: linear growth costs as much in both. Either may not cost more than the
// other by more than a tenth.
const DeclareRatio growthRatio("Program544To1024Bytes", "Program64To544Bytes", 1.1);
const DeclareRatio shrinkRatio("Program64To544Bytes", "Program544To1024Bytes", 1.1);
const DeclareRatio loadRatio("LoadMegabyteOfText", "BareReadAndATenthOfASecond", 1.0);
const DeclareRatio shownRatio("LoadAndShowMegabyteOfText", "BareReadAndATenthOfASecond", 1.0);

constexpr double secondsPerCharacter = 10.0 / 19200;
constexpr double programTick = 0.040;
constexpr double readTick = 0.050;
constexpr double pages = 64;

/// A command's characters with its carriage return, and the prompt.
constexpr double exchange(double command, double value = 0) {
    return command + 1 + value + 7;
}

// Each page: the status with its five characters, the write enable, the write; and two ticks.
constexpr double programTime =
    pages *
    ((exchange(6, 5) + exchange(4) + exchange(4 + 6 + 16 * 3)) * secondsPerCharacter + 2 * programTick);
// Each page: sixteen bytes of three characters; and two ticks.
constexpr double readTime = pages * (exchange(4, 48) * secondsPerCharacter + 2 * readTick);

Eeprom& openProgrammer(BenchOnTerminal& bench) {
    bench.main().menu.mnutoolsEEPROM.click();
    return dynamic_cast<Eeprom&>(*bench.main().desk().find("eeprom"));
}

void putImage(Eeprom& tool, std::size_t bytes) {
    tool.takeImage(shownImage(std::string(2 * bytes, '5')));
    tool.Prog.setEnabled(true);
}

void finish(BenchOnTerminal& bench, const Eeprom& tool) {
    bench.bench().platform.loop.runUntil([&tool] { return !tool.running(); });
}

void ProgramLineAndTicks(benchmark::State& state) {
    for (auto _ : state) {
        state.SetIterationTime(programTime);
    }
}
BENCHMARK(ProgramLineAndTicks)->UseManualTime()->Iterations(1)->Repetitions(3);

void ReadLineAndTicks(benchmark::State& state) {
    for (auto _ : state) {
        state.SetIterationTime(readTime);
    }
}
BENCHMARK(ReadLineAndTicks)->UseManualTime()->Iterations(1)->Repetitions(3);

/// A run of the programmer on loadboard-sim with an EEPROM.
void runPaced(benchmark::State& state, Button Eeprom::*action) {
    OnProcessor first(0);
    auto file = std::filesystem::temp_directory_path() / "zor_eeprom_benchmark.bin";
    DemoBoard board;
    std::string terminal = fromQt(board.start({QStringLiteral("--eeprom"), toQt(file.string())}));
    if (terminal.empty()) {
        state.SkipWithError("loadboard-sim did not start");
        return;
    }
    BenchOnTerminal bench(terminal);
    Eeprom& tool = openProgrammer(bench);
    for (auto _ : state) {
        putImage(tool, eepromBytes);
        (tool.*action).click();
        finish(bench, tool);
    }
    if (tool.StatusMsg.text() == "LB comm. error") {
        state.SkipWithError("the board did not answer");
    }
    std::filesystem::remove(file);
}

void ProgramPaced(benchmark::State& state) {
    runPaced(state, &Eeprom::Prog);
}
BENCHMARK(ProgramPaced)->UseRealTime()->Iterations(1)->Repetitions(3);

void ReadPaced(benchmark::State& state) {
    runPaced(state, &Eeprom::Read);
}
BENCHMARK(ReadPaced)->UseRealTime()->Iterations(1)->Repetitions(3);

/// How much longer the second image takes than the first, on a board that answers at once.
void programFurther(benchmark::State& state, std::size_t from, std::size_t to) {
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    Eeprom& tool = openProgrammer(bench);
    auto timeOf = [&](std::size_t bytes) {
        putImage(tool, bytes);
        auto began = std::chrono::steady_clock::now();
        tool.Prog.click();
        finish(bench, tool);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
    };
    for (auto _ : state) {
        double shorter = timeOf(from);
        state.SetIterationTime(timeOf(to) - shorter);
    }
    if (!tool.StatusMsg.text().starts_with("Program end")) {
        state.SkipWithError("the image was not programmed");
    }
}

void Program64To544Bytes(benchmark::State& state) {
    programFurther(state, 64, 544);
}
BENCHMARK(Program64To544Bytes)->UseManualTime()->Iterations(1)->Repetitions(3);

void Program544To1024Bytes(benchmark::State& state) {
    programFurther(state, 544, eepromBytes);
}
BENCHMARK(Program544To1024Bytes)->UseManualTime()->Iterations(1)->Repetitions(3);

/// Somebody's text with an image's name.
class LongFile {
  public:
    LongFile() {
        std::string text(customaryPreamble);
        while (text.size() < 1'000'000) {
            text += "c6 05 ab 00 c4 00 2d d4 -- remarks of any length stand between the bytes\r\n";
        }
        writeFileWhole(path, text + "\x03");
    }
    ~LongFile() { std::filesystem::remove(path); }
    LongFile(const LongFile&) = delete;
    LongFile& operator=(const LongFile&) = delete;

    const std::string path = (std::filesystem::temp_directory_path() / "zor_long_image.asc").string();
};

void BareReadAndATenthOfASecond(benchmark::State& state) {
    LongFile file;
    for (auto _ : state) {
        auto began = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(readFile(file.path));
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count() + 0.1);
    }
}
BENCHMARK(BareReadAndATenthOfASecond)->UseManualTime()->Iterations(20);

void LoadMegabyteOfText(benchmark::State& state) {
    LongFile file;
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    Eeprom& tool = openProgrammer(bench);
    tool.EditorWindow.tick(true);
    bench.nextFile(file.path);
    for (auto _ : state) {
        if (!tool.loadFile()) {
            state.SkipWithError("the text was not loaded");
        }
    }
}
BENCHMARK(LoadMegabyteOfText)->UseRealTime()->Iterations(20);

/// The same in sight: until the text stands in the editor window, with its picture beside it.
void LoadAndShowMegabyteOfText(benchmark::State& state) {
    LongFile file;
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    DesktopWindow desktopWindow(bench.main());
    desktopWindow.show();
    Eeprom& tool = openProgrammer(bench);
    tool.EditorWindow.tick(true);
    QCoreApplication::processEvents();
    bench.nextFile(file.path);
    for (auto _ : state) {
        if (!tool.loadFile()) {
            state.SkipWithError("the text was not loaded");
        }
        QCoreApplication::processEvents();
    }
}
BENCHMARK(LoadAndShowMegabyteOfText)->UseRealTime()->Iterations(20);

} // namespace

} // namespace zor::benchmarks
