// SPDX-License-Identifier: MIT
#include "panels/transmitters/auto_power_transmitter.h"

namespace zor {

namespace {

constexpr double deviationStep = 30;
constexpr int powerBitsAtStart = 3;

/// The automatic ticks and the manual ones exclude each other; the latest wins.
const std::vector<PowerTick> ticks = {
    {7, "Xtal osc.+ synthesizer", {5, 4}},
    {6, "Power amplifier:", {3}},
    {5, "Xtal osc.", {7}},
    {4, "Synthesizer", {7}},
    {3, "Power amp.", {6}},
    {2, "Low battery detector", {}},
    {1, "Wake-up timer", {}},
    {0, "Disable   C clock output", {}},
};

} // namespace

AutoPowerTransmitter::AutoPowerTransmitter(Bench& ownBench, const PanelTraits& panelTraits)
    : TransmitterPanel(ownBench, panelTraits, ticks, deviationStep)
    , Modulation(*this, "Modulation")
    , OutPowerw(*this, "OutPowerw", "Power Setting Command:") {
    setScaledLists({&CLKout, &ModFreq});
    feed(CLKout, Ctrlw);
    feed(Modulation, OutPowerw);
    feed(OutputPower, OutPowerw);
    Modulation.codeOfText = [](const std::string& text) { return text == "OOK" ? 1 : 0; };

    Ctrlw.define(0x8000, {bandBits(), bits(10, 8, "clock output", CLKout, "MHz"), capacitanceBits(),
                          bits(3, 3, "polarity", ModPol), bits(2, 0, "deviation", ModFreq, "kHz")});
    definePowerWord(powerBitsAtStart);
}

void AutoPowerTransmitter::definePowerWord(int powerBits) {
    BitField field =
        explained(bits(
                      3, 0, "output power and keying",
                      [this] { return OutputPower.code() + (Modulation.code() != 0 ? ookMark() : 0); },
                      [this] { return OutputPower.text() + ", " + Modulation.text(); }),
                  [this](int code) { return powerText(code); });
    field.parts = {{listSetting(OutputPower), 0, 0, powerBits}, {listSetting(Modulation), powerBits, 0, 1}};
    OutPowerw.define(0xB0, {std::move(field)}, ControlWord::Size::OneByte);
}

std::string AutoPowerTransmitter::powerText(int code) const {
    int keying = code / ookMark();
    std::optional<std::string> power = OutputPower.textOfCode(code % ookMark());
    std::optional<std::string> modulation = Modulation.textOfCode(keying);
    return power && modulation ? *power + ", " + *modulation
                               : "code " + std::to_string(code) + ", not one of the chip's";
}

void AutoPowerTransmitter::setDefaults() {
    Modulation.fill(std::vector<std::string>{"FSK", "OOK"});
    Modulation.selectText("FSK");
    TransmitterPanel::setDefaults();
    WKUPM.setText("0");
    WKUPR.setText("0");
    WKUPM_LostFocus();
}

} // namespace zor
