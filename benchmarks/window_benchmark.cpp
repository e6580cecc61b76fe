// SPDX-License-Identifier: MIT
// Opening the KT1100 panel, model and view, against a bare toolkit window of as many plain widgets in the
// same layouts.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "plain_copy.h"
#include "ratio.h"

#include "desktop/desktop_window.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace zor::benchmarks {

namespace {

const DeclareRatio openRatio("PanelOpened", "PlainWindowOpened", 2);

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void PlainWindowOpened(benchmark::State& state) {
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    DesktopWindow desktopWindow(bench.main());
    desktopWindow.show();
    OpalV2& panel = bench.panel();
    settle();
    QWidget& model = desktopWindow.windowOf(panel)->content();
    for (auto _ : state) {
        auto* window = desktopWindow.area().addSubWindow(plainCopy(model));
        window->show();
        settle();
        state.PauseTiming();
        delete window;
        settle();
        state.ResumeTiming();
    }
}
BENCHMARK(PlainWindowOpened)->UseRealTime();

void PanelOpened(benchmark::State& state) {
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    DesktopWindow desktopWindow(bench.main());
    desktopWindow.show();
    settle();
    for (auto _ : state) {
        OpalV2 panel(bench.bench());
        panel.load();
        panel.show();
        settle();
        state.PauseTiming();
        panel.hide();
        settle();
        state.ResumeTiming();
    }
}
BENCHMARK(PanelOpened)->UseRealTime();

} // namespace

} // namespace zor::benchmarks
