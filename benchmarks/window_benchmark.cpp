// SPDX-License-Identifier: MIT
// Opening the KT1100 panel or a tool, model and view, against a bare toolkit window of as many plain widgets
// in the same layouts.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "in_turns.h"
#include "plain_copy.h"
#include "ratio.h"

#include "desktop/desktop_window.h"

#include <benchmark/benchmark.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <memory>

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

/// Until nothing is left of what went before: it would be counted to what comes.
void settle() {
    do {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    } while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents));
}

/// A main window on the screen, with a board.
struct ShownDesktop {
    ShownDesktop() {
        window.show();
        settle();
    }

    AnsweringTerminal terminal;
    BenchOnTerminal bench{terminal.path()};
    DesktopWindow window{bench.main()};
};

/// The opening alone; the closing follows untimed.
template <class Open, class Close>
Seconds opening(Open open, Close close) {
    Seconds took = timeOf([&] {
        open();
        settle();
    });
    close();
    settle();
    return took;
}

Seconds plainOpening(ShownDesktop& desktop, QWidget& model) {
    QMdiSubWindow* window = nullptr;
    return opening(
        [&] {
            window = desktop.window.area().addSubWindow(plainCopy(model));
            window->show();
        },
        [&] { delete window; });
}

void PanelOpened(benchmark::State& state) {
    ShownDesktop plain;
    ShownDesktop own;
    QWidget& model = plain.window.windowOf(plain.bench.panel())->content();
    settle();
    std::unique_ptr<OpalV2> panel;
    takeTimedTurns(
        state, [&] { return plainOpening(plain, model); },
        [&] {
            return opening(
                [&] {
                    panel = std::make_unique<OpalV2>(own.bench.bench());
                    panel->load();
                    panel->show();
                },
                [&] {
                    panel->hide();
                    settle();
                    panel.reset();
                });
        });
}

void toolOpened(benchmark::State& state, Tool tool) {
    ShownDesktop plain;
    ShownDesktop own;
    for (ShownDesktop* desktop : {&plain, &own}) {
        // What a tool may work with: the header generator makes its first header of the open panel.
        static_cast<void>(desktop->bench.panel());
        desktop->bench.bench().windows.TX0on = true;
    }
    Tools& models = plain.bench.bench().tools;
    models.open(tool);
    settle();
    QWidget& model = plain.window.windowOf(*models.find(tool))->content();
    Tools& tools = own.bench.bench().tools;
    takeTimedTurns(
        state, [&] { return plainOpening(plain, model); },
        [&] { return opening([&] { tools.open(tool); }, [&] { tools.close(tool); }); });
}

[[maybe_unused]] const bool registered = [] {
    // Some twenty openings a repetition.
    constexpr double seconds = 0.2;
    DeclareRatio("PanelOpened", "PlainWindowOpened", 2);
    benchmark::RegisterBenchmark("PanelOpened", PanelOpened)->UseManualTime()->MinTime(seconds);
    for (const MeasuredTool& row : measured) {
        DeclareRatio(row.opened, row.plain, 2);
        benchmark::RegisterBenchmark(row.opened, toolOpened, row.tool)->UseManualTime()->MinTime(seconds);
    }
    return true;
}();

} // namespace

} // namespace zor::benchmarks
