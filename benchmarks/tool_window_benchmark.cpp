// SPDX-License-Identifier: MIT
// Opening a tool, model and view, against a bare toolkit window of as many plain widgets in the same layouts.
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

struct MeasuredTool {
    Tool tool;
    const char* opened;
    const char* plain;
};

constexpr MeasuredTool measured[] = {
    {Tool::FirmLoad, "FirmLoadOpened", "PlainFirmLoad"},
    {Tool::frm_VireoMacSniffer, "SnifferOpened", "PlainSniffer"},
    {Tool::frm_TxSearch, "TxSearchOpened", "PlainTxSearch"},
    {Tool::Frm_GenHeader, "HeaderGeneratorOpened", "PlainHeaderGenerator"},
    {Tool::frm_WireLog, "WireLogOpened", "PlainWireLog"},
    {Tool::Terminal, "TerminalOpened", "PlainTerminal"},
    {Tool::frm_PowerSupply, "SupplyOpened", "PlainSupply"},
};

/// What a tool may work with: the header generator makes its first header of the open panel.
void openPanel(BenchOnTerminal& bench) {
    static_cast<void>(bench.panel());
    bench.bench().windows.TX0on = true;
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void plainOpened(benchmark::State& state, Tool tool) {
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    DesktopWindow desktopWindow(bench.main());
    desktopWindow.show();
    openPanel(bench);
    bench.bench().tools.open(tool);
    settle();
    QWidget& model = desktopWindow.windowOf(*bench.bench().tools.find(tool))->content();
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

void toolOpened(benchmark::State& state, Tool tool) {
    AnsweringTerminal terminal;
    BenchOnTerminal bench(terminal.path());
    DesktopWindow desktopWindow(bench.main());
    desktopWindow.show();
    openPanel(bench);
    settle();
    for (auto _ : state) {
        bench.bench().tools.open(tool);
        settle();
        state.PauseTiming();
        bench.bench().tools.close(tool);
        settle();
        state.ResumeTiming();
    }
}

[[maybe_unused]] const bool registered = [] {
    for (const MeasuredTool& row : measured) {
        DeclareRatio(row.opened, row.plain, 2);
        benchmark::RegisterBenchmark(row.plain, plainOpened, row.tool)->UseRealTime();
        benchmark::RegisterBenchmark(row.opened, toolOpened, row.tool)->UseRealTime();
    }
    return true;
}();

} // namespace

} // namespace zor::benchmarks
