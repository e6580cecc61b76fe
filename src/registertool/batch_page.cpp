// SPDX-License-Identifier: MIT
#include "registertool/batch_page.h"

#include "link/file_dialog.h"
#include "link/number_reading.h"
#include "registertool/cell_values.h"
#include "registertool/register_lines.h"
#include "registertool/spi.h"
#include "registertool/text_file.h"
#include "support/numbers.h"
#include "support/wording.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace zor {

namespace {

constexpr std::string_view titleMark = "#BATCHNAME ";
constexpr const char* noRounds = "0";
/// How long a round without any exchange gives way to the user.
constexpr std::chrono::milliseconds restTime(10);

std::size_t linesOf(const std::string& script) {
    return static_cast<std::size_t>(std::ranges::count(script, '\r'));
}

/// A line of a script that runs an action; what stands behind the name does not count.
struct Macro {
    std::string_view name;
    void (*run)(SPI& tool);
};

constexpr Macro macros[] = {
    {"#FIFO_READ", [](SPI& tool) { tool.fifoTest.ReadRXff_Click(); }},
    {"#FIFO_WRITE", [](SPI& tool) { tool.fifoTest.WriteTXff_Click(); }},
    {"#REFRESH", [](SPI& tool) { tool.whole.RefreshTable_Click(); }},
    {"#STATUSREAD", [](SPI& tool) { tool.status.StatusRead_Click(); }},
};

/// Shows the batch as running for as long as it lives, also where the run is dropped in its middle.
class RunningTitle {
  public:
    RunningTitle(SPI& ownTool, Batch& ownBatch)
        : tool(ownTool)
        , batch(ownBatch) {
        batch.BatchName.setBackground(editedColour);
    }
    RunningTitle(const RunningTitle&) = delete;
    RunningTitle& operator=(const RunningTitle&) = delete;
    ~RunningTitle() {
        batch.BatchName.setBackground(idleColour);
        batch.showLine(0, 0);
        tool.report.endScript(batch.BatchName.text() + " ended, loop count " + tool.batch.LoopCount.text());
    }

  private:
    SPI& tool;
    Batch& batch;
};

} // namespace

Batch::Batch(SPI& tool, OptionGroup& selection, int index)
    : BatchName(tool, indexed("BatchName", index), "Batch#" + std::to_string(index + 1))
    , BatchSel(tool, selection, indexed("BatchSel", index), "Batch " + std::to_string(index + 1))
    , BatchRun(tool, indexed("BatchRun", index), "Run")
    , EnLoop(tool, indexed("EnLoop", index), "Loop")
    , BatchCommands(tool, indexed("BatchCommands", index))
    , BatchLine(tool, indexed("BatchLine", index)) {
    BatchCommands.setMultiLine(true);
    BatchName.setBackground(idleColour);
    BatchName.setTip("The batch's title, saved with it");
    BatchRun.setTip("Sends the script line by line to the board");
    EnLoop.setTip("Repeats the script until this is unticked, or up to the limit");
    BatchCommands.setTip("The script; a double click offers commands");
}

void Batch::append(const std::string& lines) {
    std::string script = BatchCommands.text();
    if (!script.empty() && script.back() != '\n' && script.back() != '\r') {
        script += textLineEnd;
    }
    BatchCommands.setText(script + lines);
}

void Batch::showLine(std::size_t line, std::size_t lines) {
    runningLine = line;
    BatchLine.setCaption(
        line == 0 ? "" : "running, line " + std::to_string(line) + " of " + std::to_string(lines));
}

BatchPage::BatchPage(SPI& ownTool)
    : LoopFrame(ownTool, "LoopFrame")
    , LoopControlLabel(ownTool, "LoopControlLabel", "Loop control")
    , LoopCountLabel(ownTool, "LoopCountLabel", "Loop count:")
    , LoopCount(ownTool, "LoopCount", noRounds)
    , Reset(ownTool, "Reset", "Reset")
    , ENLimit(ownTool, "ENLimit", "Limit")
    , LoopLimit(ownTool, "LoopLimit", "10")
    , SaveLoadFrame(ownTool, "SaveLoadFrame")
    , SaveLoadLabel(ownTool, "SaveLoadLabel", "Save/Load Batch")
    , LoadBach(ownTool, "LoadBach", "Load")
    , SaveBatch(ownTool, "SaveBatch", "Save")
    , AddCommand(ownTool, "AddCommand", "Add Command...")
    , tool(ownTool) {
    for (int index = 0; index < count; ++index) {
        wire(batches.emplace_back(tool, selection, index));
        batches.back().BatchSel.setContainer(&SaveLoadFrame);
    }
    batches.front().BatchSel.putChosen();
    for (Element* element : {static_cast<Element*>(&LoopControlLabel), static_cast<Element*>(&LoopCountLabel),
                             static_cast<Element*>(&LoopCount), static_cast<Element*>(&Reset),
                             static_cast<Element*>(&ENLimit), static_cast<Element*>(&LoopLimit)}) {
        element->setContainer(&LoopFrame);
    }
    for (Element* element : {static_cast<Element*>(&SaveLoadLabel), static_cast<Element*>(&LoadBach),
                             static_cast<Element*>(&SaveBatch), static_cast<Element*>(&AddCommand)}) {
        element->setContainer(&SaveLoadFrame);
    }
    Reset.setTip("Sets the loop count to 0");
    ENLimit.setTip("Ends a loop when the loop count reaches this number");
    makeCollectors();
    ENLimit_Click();
    ENLimit.onChange = [this] { ENLimit_Click(); };
    Reset.onClick = [this] { LoopCount.setText(noRounds); };
    LoadBach.onClick = [this] { LoadBach_Click(); };
    SaveBatch.onClick = [this] { SaveBatch_Click(); };
    AddCommand.setTip("Offers commands and macros for the selected batch");
    AddCommand.onClick = [this] { tool.bench.tools.open(Tool::SPIsub2); };
    tellReadingsOf(tool.bench, {&LoopCount, &LoopLimit});
}

void BatchPage::wire(Batch& batch) {
    batch.BatchRun.onClick = [this, &batch] { tool.whenFree([this, &batch] { BatchRun_Click(batch); }); };
    batch.BatchCommands.onClick = [&batch] { batch.BatchSel.putChosen(); };
    batch.BatchCommands.onDoubleClick = [this] { tool.bench.tools.open(Tool::SPIsub2); };
}

void BatchPage::makeCollectors() {
    for (std::size_t row = 0; row < MacroRows::count; ++row) {
        std::deque<Button>& buttons = M_Batch.emplace_back();
        for (std::size_t batch = 0; batch < batches.size(); ++batch) {
            std::string number = std::to_string(batch + 1);
            Button& button = buttons.emplace_back(
                tool, indexed(("M_Batch" + number).c_str(), static_cast<int>(row)), "B" + number);
            button.setTip("Adds the write of this register to batch " + number);
            button.onClick = [this, row, batch] { M_Batch_Click(row, batch); };
        }
    }
}

void BatchPage::M_Batch_Click(std::size_t row, std::size_t batch) {
    const MacroRow& macro = tool.macros.rows[row];
    batches[batch].append("S2 " + writeAddress(macro.M_Address.text()) + macro.M_Hexvalue.text() +
                          textLineEnd);
}

Batch& BatchPage::selected() {
    for (Batch& batch : batches) {
        if (batch.BatchSel.chosen()) {
            return batch;
        }
    }
    return batches.front();
}

void BatchPage::ENLimit_Click() {
    LoopLimit.setEnabled(ENLimit.ticked());
    LoopLimit.setBackground(ENLimit.ticked() ? tool.Zero.background() : LoopFrame.background());
}

void BatchPage::BatchRun_Click(Batch& batch) {
    double rounds = numericPrefix(LoopCount.text());
    LongAction busy(tool, LongAction::Works::OnTheBoard);
    RunningTitle running(tool, batch);
    std::string script = batch.BatchCommands.text();
    if (script.size() >= 2 && script[script.size() - 2] != '\r') {
        batch.BatchCommands.setText(script + textLineEnd);
    }
    const EventLoop& loop = tool.bench.platform.loop;
    for (auto begun = loop.now(); runRound(batch, busy); begun = loop.now()) {
        rounds += 1;
        LoopCount.setText(numberText(rounds));
        bool underLimit = rounds < numericPrefix(LoopLimit.text());
        if (!batch.EnLoop.ticked() || (ENLimit.ticked() && !underLimit)) {
            break;
        }
        if (loop.now() == begun && !rest(busy)) {
            break;
        }
    }
}

bool BatchPage::runRound(Batch& batch, LongAction& busy) {
    std::string script = batch.BatchCommands.text();
    const std::size_t length = script.size();
    std::size_t lines = linesOf(script);
    std::string line;
    std::size_t number = 0;
    for (std::size_t at = 0; at < length && at < script.size(); ++at) {
        if (script[at] == '\n') {
            continue;
        }
        line += script[at];
        if (script[at] == '\r') {
            tellLine(batch, ++number, lines);
            if (!runLine(line, busy)) {
                return false;
            }
            if (line.front() != '/') {
                // The script may have been edited while a send waited: what stands there now counts.
                script = batch.BatchCommands.text();
                lines = linesOf(script);
            }
            line.clear();
        }
    }
    return busy.goesOn();
}

void BatchPage::tellLine(Batch& batch, std::size_t line, std::size_t lines) {
    batch.showLine(line, lines);
    std::string round = numberText(numericPrefix(LoopCount.text()) + 1);
    bool limited = batch.EnLoop.ticked() && ENLimit.ticked();
    tool.report.atScript(batch.BatchName.text() + ": round " + round +
                         (limited ? " of " + LoopLimit.text() : "") + ", line " + std::to_string(line) +
                         " of " + std::to_string(lines));
}

bool BatchPage::runLine(const std::string& line, LongAction& busy) {
    if (line.front() == '/') {
        return busy.goesOn();
    }
    if (line.front() != '#') {
        return busy.send(line);
    }
    for (const Macro& macro : macros) {
        if (line.starts_with(macro.name)) {
            macro.run(tool);
        }
    }
    return busy.goesOn();
}

bool BatchPage::rest(const LongAction& busy) {
    // A script that sends nothing and loops must leave the user a way to end it; no send of its own tells it
    // that the board was disconnected.
    const Connect& channel = *tool.bench.connect;
    const bool connected = channel.isOpen();
    bool rested = false;
    Timer timer(tool.bench.platform.loop, [&rested] { rested = true; });
    timer.start(restTime);
    auto ended = [&] { return !busy.goesOn() || (connected && !channel.isOpen()); };
    tool.bench.platform.loop.runUntil([&] { return rested || ended(); });
    return !ended();
}

std::size_t BatchPage::numberOf(const Batch& batch) const {
    std::size_t number = 0;
    while (&batches[number] != &batch) {
        ++number;
    }
    return number;
}

std::string BatchPage::firstScript(const Batch& batch) const {
    return "batch-" + std::to_string(numberOf(batch)) + ".txt";
}

void BatchPage::SaveBatch_Click() {
    Batch& batch = selected();
    saveText(tool.bench, "Save " + batch.BatchName.text() + " Script File", firstScript(batch), [&] {
        std::string script = batch.BatchCommands.text();
        if (!script.empty() && !script.ends_with(textLineEnd)) {
            script += textLineEnd;
        }
        return std::string(titleMark) + batch.BatchName.text() + textLineEnd + script;
    });
}

void BatchPage::LoadBach_Click() {
    Batch& batch = selected();
    loading(tool.bench, [&] {
        auto name = chooseTextToLoad(
            tool.bench, "Load Script File to Batch#" + std::to_string(numberOf(batch)), firstScript(batch));
        if (!name) {
            return;
        }
        std::vector<std::string> lines = readTextLines(*name);
        auto line = lines.begin();
        if (line->starts_with(titleMark)) {
            batch.BatchName.setText(line->substr(titleMark.size()));
            ++line;
        }
        std::string script;
        for (; line != lines.end(); ++line) {
            script += *line + textLineEnd;
        }
        batch.BatchCommands.setText(script);
        fileLoaded(tool.bench, firstScript(batch), *name);
    });
}

} // namespace zor
