// SPDX-License-Identifier: MIT
// What the recording of a session adds to a gesture: the very events of one told to the recorder, and to
// nobody, against the gesture itself.
#include "ratio.h"

#include "elements/form.h"
#include "elements/text_field.h"
#include "panels/common/chip_panel.h"
#include "transcript/recorder.h"
#include "virtual/virtual_bench.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <memory>

namespace zor::benchmarks {

namespace {

const DeclareRatio unheardRatio("GestureTold", "GestureMade", 0.01);
const DeclareRatio recordedRatio("GestureRecorded", "GestureMade", 0.03);

/// A program with a transmitter's panel, whose centre frequency somebody types.
struct TypedPanel {
    TypedPanel() {
        bench.startAndSearch();
        bench.main().menu.mnuViewTx0.click();
        panel = bench.shared().openPanel();
    }

    void type(std::size_t turn) {
        static constexpr std::array texts = {"315", "433.92"};
        if (!panel->FreqCenter.type(texts.at(turn % texts.size()))) {
            std::abort();
        }
    }

    zor::testing::VirtualBench bench;
    ChipPanel* panel = nullptr;
};

void GestureMade(benchmark::State& state) {
    TypedPanel typed;
    std::size_t turn = 0;
    for (auto _ : state) {
        typed.type(++turn);
    }
}
BENCHMARK(GestureMade);

/// The two gestures of a typed text, told as the desk tells them.
void tell(TypedPanel& typed, std::size_t turn) {
    for (GestureKind kind : {GestureKind::Edit, GestureKind::Enter}) {
        Gesture gesture{kind, turn % 2 == 0 ? "315" : "433.92"};
        gesture.element = &typed.panel->FreqCenter;
        gesture.form = typed.panel;
        typed.bench.desk.gestureBegins.emit(gesture);
        typed.bench.desk.gestureEnded.emit(gesture);
    }
}

void GestureTold(benchmark::State& state) {
    TypedPanel typed;
    std::size_t turn = 0;
    for (auto _ : state) {
        tell(typed, ++turn);
    }
}
BENCHMARK(GestureTold);

void GestureRecorded(benchmark::State& state) {
    TypedPanel typed;
    std::string content;
    transcript::Recorder recorder(typed.bench.main(), typed.bench.watchedDialogs, "/",
                                  [&content](const std::string& line) {
                                      content += line;
                                      content += "\r\n";
                                      if (content.size() > (1U << 20)) {
                                          content.clear();
                                      }
                                  });
    std::size_t turn = 0;
    for (auto _ : state) {
        tell(typed, ++turn);
    }
    benchmark::DoNotOptimize(content);
}
BENCHMARK(GestureRecorded);

} // namespace

} // namespace zor::benchmarks
