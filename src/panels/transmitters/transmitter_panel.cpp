// SPDX-License-Identifier: MIT
#include "panels/transmitters/transmitter_panel.h"

#include <algorithm>

namespace zor {

namespace {

constexpr int deviationCount = 8;
constexpr std::uint32_t synthesizerBit = 0x10;

} // namespace

PanelTraits transmitterTraits(PanelTraits chip) {
    chip.width = 15000;
    chip.frequencyForm = FrequencyForm::TenThenMultiplier;
    chip.startCapacitance = "12.5 pF";
    chip.supplyField = SupplyField::Commits;
    chip.statusCaptions = {"POR", "PB1", "PB2", "PB3", "PB4", "LBD", "WK-UP", "nIRQ"};
    chip.statusBytes = 1;
    chip.statusInterval = std::chrono::milliseconds(100);
    chip.interruptPosition = 7;
    chip.loadNotice = "Update chip control words, and power management settings!";
    chip.updateWithoutPort = "Commport not available, please open commport. Control words were not updated.";
    chip.file.wrongTypeOnSave = "File open error";
    return chip;
}

TransmitterPanel::TransmitterPanel(Bench& ownBench, const PanelTraits& panelTraits,
                                   const std::vector<PowerTick>& ticks, double deviationStep)
    : ChipPanel(ownBench, panelTraits)
    , ModPol(*this, "ModPol")
    , ModFreq(*this, "ModFreq", deviations(deviationCount, deviationStep))
    , OutputPower(*this, "OutputPower")
    , Label47(*this, "Label47", "Disable")
    , Label48(*this, "Label48",
              "\xC2\xB5"
              "C clock output")
    , PowerMw(*this, "PowerMw", "Power Management Command:")
    , WakeUpFormula(*this, "WakeUpFormula", "Time = M*2     [ms]")
    , WakeUpFormulaPower(*this, "WakeUpFormulaPower", "R")
    , ThresholdFormula(*this, "ThresholdFormula", "V       = 2.2 + T * 0.1 [V]") {
    makePowerTicks(ticks);
    Label38.setCaption("Enable LBD by the Power Management Command");
    Label39.setCaption("Enable the Wake-up timer by the Power Management command.");
    // Any text but the first entry's means the lower sideband.
    ModPol.codeOfText = [](const std::string& text) { return text == "fo + df" ? 0 : 1; };
    OutputPower.codeOfText = powerCode;
    feed(ModPol, Ctrlw);
    feed(ModFreq, Ctrlw);
    for (Label* label : {&Label47, &Label48}) {
        label->onClick = [this] { pm(0)->setTicked(!pm(0)->ticked()); };
    }
}

void TransmitterPanel::makePowerTicks(const std::vector<PowerTick>& ticks) {
    std::vector<BitField> fields;
    for (const PowerTick& tick : ticks) {
        auto& box = powerTicks[static_cast<std::size_t>(tick.bitNumber)];
        box = std::make_unique<TickBox>(*this, "pm" + std::to_string(tick.bitNumber), tick.caption);
        box->onChange = [this, tick] { powerTickChanged(tick); };
        fields.push_back(bit(tick.bitNumber, tick.caption, *box));
    }
    PowerMw.define(0xC000, std::move(fields));
}

void TransmitterPanel::powerTickChanged(const PowerTick& tick) {
    bool on = pm(tick.bitNumber)->ticked();
    if (on) {
        for (int other : tick.excludes) {
            pm(other)->setTicked(false);
        }
    }
    switch (tick.bitNumber) {
    case 2:
        govern(on, lowBatteryElements(), Label38);
        break;
    case 1:
        govern(on, wakeUpElements(), Label39);
        break;
    case 0:
        CLKout.setEnabled(!on);
        break;
    default:
        break;
    }
    PowerMw.rebuild();
}

std::vector<Element*> TransmitterPanel::lowBatteryElements() {
    return {&LBD, &LBDw, &LBDV};
}

std::vector<Element*> TransmitterPanel::wakeUpElements() {
    return {&WKUPM, &WKUPR, &Wkupw};
}

void TransmitterPanel::setDefaults() {
    ModPol.fill(std::vector<std::string>{"fo + df", "fo - df"});
    ModPol.selectText("fo + df");
    OutputPower.fill(outputPowers());
    OutputPower.select(0);
    govern(false, lowBatteryElements(), Label38);
    govern(false, wakeUpElements(), Label39);
    LBD.setText("0");
    LBD_LostFocus();
}

ConfigurationLines TransmitterPanel::powerTickLines() {
    ConfigurationLines lines;
    std::for_each(powerTicks.rbegin(), powerTicks.rend(), [&lines](const auto& tick) {
        if (tick != nullptr) {
            lines.push_back(tickLine(*tick));
        }
    });
    return lines;
}

ConfigurationLines TransmitterPanel::modulationLines() {
    return joined({bandLines(),
                   {positionLine(CLKout), textLine(Cxtal), textLine(ModPol), positionLine(ModFreq),
                    textLine(OutputPower)}});
}

void TransmitterPanel::showSharedRevision() {
    Revision.fill(std::vector<std::string>{"'A' or above"});
    Revision.selectText(bench.preferences.Pref_JadeRevision);
}

void TransmitterPanel::configurationRead() {
    // The frequency comes behind the band and the crystal, which bear on it.
    FreqCenter_LostFocus();
    LBD_LostFocus();
    commitFurtherRead();
    clearNotice();
}

void TransmitterPanel::calibrate() {
    // The synthesizer calibrates at its edge from off to on, and ends as its tick says. What is set while a
    // step waits for its answer is in the next one.
    auto off = [this] { return PowerMw.value() & ~synthesizerBit; };
    sendStep(PowerMw, off());
    sendStep(PowerMw, off() + synthesizerBit);
    if (!pm(4)->ticked()) {
        sendStep(PowerMw, off());
    }
}

} // namespace zor
