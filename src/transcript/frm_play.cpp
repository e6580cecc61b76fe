// SPDX-License-Identifier: MIT
#include "transcript/frm_play.h"

#include "link/file_dialog.h"
#include "support/file_name.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>

namespace zor::transcript {

namespace {

constexpr const char* pattern = "*.bench";
constexpr const char* reportPattern = "*.xml";
constexpr Extent startExtent{6300, 9600};
constexpr std::size_t resultColumn = 2;

std::vector<GridColumn> columns() {
    return {{.caption = "Line", .characters = 6, .fixedPitch = true},
            {.caption = "Statement", .characters = 44, .fixedPitch = true},
            {.caption = "Result", .characters = 40}};
}

GridCell resultOf(const PlayedLine& line) {
    switch (line.result) {
    case PlayedLine::Result::Waiting:
        return {};
    case PlayedLine::Result::Running:
        return {"running", CellLook::Pending};
    case PlayedLine::Result::Passed:
        return {"ok", CellLook::Soft};
    case PlayedLine::Result::Failed:
        return {line.message, CellLook::Wrong};
    }
    return {};
}

const char* wordOf(Player::State state) {
    switch (state) {
    case Player::State::Empty:
        return "No transcript is open.";
    case Player::State::Ready:
        return "Ready";
    case Player::State::Playing:
        return "Playing";
    case Player::State::Paused:
        return "Paused";
    case Player::State::Stopping:
        return "Stopping: a gesture still waits for the board";
    case Player::State::Ended:
        return "Ended";
    }
    return "";
}

} // namespace

FrmPlay::FrmPlay(Bench& ownBench, Player& ownPlayer)
    : Form(ownBench.desk, "frm_Play", "Play")
    , LabelFile(*this, "LabelFile", "Transcript")
    , TX_File(*this, "TX_File", {}, TextField::Access::ReadOnly)
    , PB_Open(*this, "PB_Open", "Open...")
    , PB_Play(*this, "PB_Play", "Play")
    , PB_Pause(*this, "PB_Pause", "Pause")
    , PB_Step(*this, "PB_Step", "Step")
    , PB_Stop(*this, "PB_Stop", "Stop")
    , PR_Lines(*this, "PR_Lines", 0, 1, 0)
    , LB_State(*this, "LB_State")
    , GR_Lines(*this, "GR_Lines", columns())
    , PB_Report(*this, "PB_Report", "Save report...")
    , bench(ownBench)
    , player(ownPlayer) {
    setExtent(startExtent);
    TX_File.setTip("The transcript that is played; names of files in it are meant in its folder");
    GR_Lines.setTip("The transcript's statements with their lines, and what became of each");
    PB_Open.setTip("Chooses a transcript; nothing is carried out yet");
    PB_Play.setTip("Plays from the first line, or goes on from a pause");
    PB_Pause.setTip("Halts behind the line that runs; boxes are yours again meanwhile");
    PB_Step.setTip("Carries one line out and halts");
    PB_Stop.setTip("Ends the play");
    PB_Report.setTip("Saves the results as a JUnit report");
    PB_Open.onClick = [this] { open(); };
    PB_Play.onClick = [this] { player.play(); };
    PB_Pause.onClick = [this] { player.pause(); };
    PB_Step.onClick = [this] { player.step(); };
    PB_Stop.onClick = [this] { player.stop(); };
    PB_Report.onClick = [this] { saveReport(); };
    subscriptions.push_back(player.changed.subscribe([this] { showState(); }));
    subscriptions.push_back(
        player.lineChanged.subscribe([this](std::size_t position) { showLine(position); }));
    showLines();
    showState();
}

void FrmPlay::unload() {
    player.stop();
}

void FrmPlay::open() {
    auto load = [this](const FileChoice& choice) {
        try {
            player.load(choice.name);
            return true;
        } catch (const LineFailure& failure) {
            bench.warn(nameOf(pathOf(choice.name).filename()) + ", line " + std::to_string(failure.line) +
                       ": " + failure.what());
        } catch (const ToolError& error) {
            bench.tellFileError(error, "File open error");
        }
        return false;
    };
    loadChosen(bench,
               {.mode = FileRequest::Mode::Load,
                .title = "Play",
                .folder = bench.link.CurrentPath,
                .startName = pattern,
                .filter = "Transcripts (*.bench)|*.bench|All files (*.*)|*.*",
                .defaultExtension = "bench"},
               "recording.bench", load);
}

void FrmPlay::showLines() {
    std::vector<GridRow> rows;
    for (const PlayedLine& line : player.lines()) {
        rows.push_back(
            {GridCell(std::to_string(line.line), CellLook::Soft), GridCell(line.text), resultOf(line)});
    }
    GR_Lines.setRows(std::move(rows));
    TX_File.setText(player.file().string());
    setDocument(player.file().filename().string());
}

void FrmPlay::showLine(std::size_t position) {
    if (position < GR_Lines.rowCount()) {
        GR_Lines.setCell(position, resultColumn, resultOf(player.lines()[position]));
        GR_Lines.putPicked(position);
    }
}

void FrmPlay::showState() {
    using enum Player::State;
    Player::State state = player.state();
    bool halted = !player.held() && (state == Ready || state == Paused || state == Ended);
    PB_Open.setEnabled(!player.held() && (state == Empty || state == Ready || state == Ended));
    PB_Play.setEnabled(halted);
    PB_Step.setEnabled(halted);
    PB_Pause.setEnabled(state == Playing);
    PB_Stop.setEnabled(state == Playing || state == Paused);
    PB_Report.setEnabled(state == Ended);
    std::size_t count = player.lines().size();
    if (state == Ready) {
        showLines();
    }
    PR_Lines.setRange(0, static_cast<int>(std::max<std::size_t>(count, 1)));
    PR_Lines.putValue(static_cast<int>(player.done()));
    std::string said = wordOf(state);
    if (state != Empty) {
        said += ": " + std::to_string(player.done()) + " of " + std::to_string(count) + " lines, " +
                std::to_string(player.failures()) + " failed";
    }
    LB_State.setCaption(said);
    if (state == Playing && player.done() == 0) {
        // The results of the play before are gone.
        for (std::size_t row = 0; row < GR_Lines.rowCount() && row < count; ++row) {
            GR_Lines.setCell(row, resultColumn, resultOf(player.lines()[row]));
        }
    }
}

void FrmPlay::saveReport() {
    std::filesystem::path report = player.file().stem();
    report += ".xml";
    saveByDialog(bench,
                 {.mode = FileRequest::Mode::Save,
                  .title = "Save report",
                  .folder = player.file().parent_path(),
                  .startName = reportPattern,
                  .filter = "JUnit reports (*.xml)|*.xml|All files (*.*)|*.*",
                  .defaultExtension = "xml"},
                 nameOf(report), [this](const std::string&) { return junitReport(player); });
}

} // namespace zor::transcript
