// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "link/bench.h"

#include <deque>
#include <string>

namespace zor {

/// Puts ready-made lines behind the selected batch script of the register tool: control commands for the
/// board's eight channels, and macros. Closes with the register tool.
class SPIsub2 : public Form {
  public:
    static constexpr int channels = 8;

    explicit SPIsub2(Bench& ownBench);

    Frame ChannelFrame;
    /// "Ch0" to "Ch7"
    std::deque<Label> ChName;
    std::deque<Button> SetHigh;
    std::deque<Button> SetLow;
    std::deque<Button> SetZ;
    /// What the first channels are on test boards for radio chips.
    std::deque<Label> ChLabel;
    Frame MacroFrame;
    std::deque<Button> MacroCmd;

  private:
    void addChannel(int channel);
    void addSetter(std::deque<Button>& buttons, const char* name, int channel, const char* letter);
    void append(const std::string& line);

    Bench& bench;
};

} // namespace zor
