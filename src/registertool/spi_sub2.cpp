// SPDX-License-Identifier: MIT
#include "registertool/spi_sub2.h"

#include "registertool/spi.h"
#include "registertool/text_file.h"
#include "support/wording.h"

namespace zor {

namespace {

constexpr const char* channelRoles[] = {
    "SDI (TX, RX, TRX)",
    "SCK (TX, RX, TRX)",
    "NSEL (TX, RX, TRX)",
    "nFFS (RX); nFFS/FSK (TRX)",
};

struct MacroLine {
    const char* caption;
    const char* line;
};

constexpr MacroLine macroLines[] = {
    {"Refresh Register Table ", "#REFRESH"},
    {"Write TX FIFO", "#FIFO_WRITE"},
    {"Read RX FIFO", "#FIFO_READ"},
    {"Statusread", "#STATUSREAD"},
};

} // namespace

SPIsub2::SPIsub2(Bench& ownBench)
    : Form(ownBench.desk, "SPIsub2", "Add Command")
    , ChannelFrame(*this, "ChannelFrame", "Add a Loadboard DO Control Command")
    , MacroFrame(*this, "MacroFrame", "Add Macro Command")
    , bench(ownBench) {
    setExtent({5400, 6000});
    for (int channel = 0; channel < channels; ++channel) {
        addChannel(channel);
    }
    int index = 0;
    for (const char* role : channelRoles) {
        ChLabel.emplace_back(*this, indexed("ChLabel", index++), role).setContainer(&ChannelFrame);
    }
    index = 0;
    for (const MacroLine& macro : macroLines) {
        Button& button = MacroCmd.emplace_back(*this, indexed("MacroCmd", index++), macro.caption);
        button.setContainer(&MacroFrame);
        button.setTip(std::string("Adds ") + macro.line + " to the selected batch");
        button.onClick = [this, line = macro.line] { append(line); };
    }
}

void SPIsub2::addChannel(int channel) {
    ChName.emplace_back(*this, indexed("ChName", channel), "Ch" + std::to_string(channel))
        .setContainer(&ChannelFrame);
    addSetter(SetHigh, "SetHigh", channel, "H");
    addSetter(SetLow, "SetLow", channel, "L");
    addSetter(SetZ, "SetZ", channel, "Z");
}

void SPIsub2::addSetter(std::deque<Button>& buttons, const char* name, int channel, const char* letter) {
    std::string line = letter + std::to_string(channel);
    Button& button = buttons.emplace_back(*this, indexed(name, channel), letter);
    button.setContainer(&ChannelFrame);
    button.setTip("Adds " + line + " to the selected batch");
    button.onClick = [this, line] { append(line); };
}

void SPIsub2::append(const std::string& line) {
    if (auto* tool = dynamic_cast<SPI*>(bench.tools.find(Tool::SPI))) {
        tool->batch.selected().append(line + textLineEnd);
    }
}

} // namespace zor
