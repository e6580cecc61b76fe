// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/label.h"
#include "elements/options.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"

#include <cstddef>
#include <deque>
#include <string>

namespace zor {

class SPI;
class LongAction;

/// One script of lines for the board, with its title, which takes another colour while the script runs.
struct Batch {
    Batch(SPI& tool, OptionGroup& selection, int index);

    TextField BatchName;
    Option BatchSel;
    Button BatchRun;
    /// "Loop"
    TickBox EnLoop;
    TextField BatchCommands;
    /// "running, line 5 of 6"
    Label BatchLine;
    /// The line that runs, from 1; 0 while none does.
    std::size_t runningLine = 0;

    /// Puts lines behind the script, on a line of their own.
    void append(const std::string& lines);
    /// Shows the line that runs, of so many; 0 for none.
    void showLine(std::size_t line, std::size_t lines);
};

/// The four batch scripts of the register tool. A script's line is a command for the board, a macro that runs
/// one of the tool's actions, or a comment.
class BatchPage {
    // Older than the options that join it.
    OptionGroup selection;

  public:
    static constexpr int count = 4;

    explicit BatchPage(SPI& ownTool);

    std::deque<Batch> batches;
    Frame LoopFrame;
    Label LoopControlLabel;
    Label LoopCountLabel;
    /// Rounds done, over all runs since the last Reset.
    TextField LoopCount;
    Button Reset;
    /// "Limit"
    TickBox ENLimit;
    TextField LoopLimit;
    Frame SaveLoadFrame;
    Label SaveLoadLabel;
    Button LoadBach;
    Button SaveBatch;
    /// Opens the window that puts ready-made lines behind the selected batch.
    Button AddCommand;

    /// The buttons that put a macro row's register behind a script: by the row, then by the script.
    std::deque<std::deque<Button>> M_Batch;

    /// The batch that LoadBach, SaveBatch and the command window work on.
    [[nodiscard]] Batch& selected();
    [[nodiscard]] std::size_t numberOf(const Batch& batch) const;
    /// What a first file of its script is proposed as.
    [[nodiscard]] std::string firstScript(const Batch& batch) const;

  private:
    void wire(Batch& batch);
    void makeCollectors();
    void ENLimit_Click();
    void M_Batch_Click(std::size_t row, std::size_t batch);
    void BatchRun_Click(Batch& batch);
    /// @return whether it came to the script's end
    bool runRound(Batch& batch, LongAction& busy);
    void tellLine(Batch& batch, std::size_t line, std::size_t lines);
    /// @return whether the run goes on
    bool runLine(const std::string& line, LongAction& busy);
    /// @return whether the run goes on
    bool rest(const LongAction& busy);
    void LoadBach_Click();
    void SaveBatch_Click();

    SPI& tool;
};

} // namespace zor
