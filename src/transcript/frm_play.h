// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/grid.h"
#include "elements/label.h"
#include "elements/range.h"
#include "elements/text_field.h"
#include "link/bench.h"
#include "transcript/player.h"

#include <vector>

namespace zor::transcript {

/// Plays a transcript: its lines with what became of each, how far it has come, and the ways to halt it.
/// Closing the window ends the play, for nobody would see any more how it goes.
class FrmPlay : public Form {
  public:
    FrmPlay(Bench& ownBench, Player& ownPlayer);

    Label LabelFile;
    /// The transcript's name; read only.
    TextField TX_File;
    Button PB_Open;
    Button PB_Play;
    Button PB_Pause;
    Button PB_Step;
    Button PB_Stop;
    Progress PR_Lines;
    /// "12 of 40 lines, 1 failed"
    Label LB_State;
    Grid GR_Lines;
    Button PB_Report;

    /// Asks for a transcript and loads it.
    void open();

  protected:
    void unload() override;

  private:
    void showLines();
    void showLine(std::size_t position);
    void showState();
    void saveReport();

    Bench& bench;
    Player& player;
    std::vector<Subscription> subscriptions;
};

} // namespace zor::transcript
