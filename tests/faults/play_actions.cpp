// SPDX-License-Identifier: MIT
#include "faults/play_actions.h"

#include "host/files.h"

#include <utility>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

constexpr const char* window = "frm_Play";

constexpr const char* transcript = R"(click OpalV2.Update
run 20
within 300 text main.CommStatus "Comm. OK"
click OpalV2.ReadStatus
run 300
type OpalV2.FreqCenter "316"
click OpalV2.Update
)";

/// A transcript whose user presses something else while his first gesture waits for the board.
constexpr const char* nested = R"(after 5 click OpalV2.ReadStatus
click OpalV2.Update
run 500
)";

/// A button of the window for as long as it is there; one that is disabled takes no click.
void click(VirtualBench& bench, const char* button) {
    if (bench.desk.find(window) != nullptr) {
        bench.at(window, button).click();
    }
}

void open(VirtualBench& bench, const char* text) {
    std::filesystem::path file = bench.folder.path() / "played.bench";
    writeFileWhole(file, text);
    bench.dialogs.files.emplace_back(file.string());
    click(bench, "PB_Open");
    bench.dialogs.files.clear();
}

SendingAction playing(const char* name, std::function<void(VirtualBench&)> act) {
    return {name,
            window,
            &MainMenu::mnuFilePlay,
            std::move(act),
            sim::BoardKind::LoadBoard2,
            &MainMenu::mnuViewTx0};
}

} // namespace

std::vector<SendingAction> playActions() {
    return {
        playing("Play_ToItsEnd",
                [](VirtualBench& bench) {
                    open(bench, transcript);
                    click(bench, "PB_Play");
                    bench.run(3s);
                }),
        playing("Play_InTheMidstOfAWait",
                [](VirtualBench& bench) {
                    open(bench, nested);
                    click(bench, "PB_Play");
                    bench.run(3s);
                }),
        playing("Play_LineByLine",
                [](VirtualBench& bench) {
                    open(bench, transcript);
                    for (int line = 0; line < 8; ++line) {
                        click(bench, "PB_Step");
                        bench.run(400ms);
                    }
                }),
        playing("Play_PausedAndStopped",
                [](VirtualBench& bench) {
                    open(bench, transcript);
                    click(bench, "PB_Play");
                    bench.run(15ms);
                    click(bench, "PB_Pause");
                    bench.run(200ms);
                    click(bench, "PB_Play");
                    bench.run(60ms);
                    click(bench, "PB_Stop");
                }),
    };
}

} // namespace zor::testing
