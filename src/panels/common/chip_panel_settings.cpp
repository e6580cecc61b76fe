// SPDX-License-Identifier: MIT
// The settings that every chip has: crystal, band, frequency, supply, battery threshold, wake-up timer.
#include "link/commands.h"
#include "link/connect.h"
#include "panels/common/chip_panel.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

void ChipPanel::setTips() {
    ConfLoad.setTip("Load a previous configuration");
    ConfSave.setTip("Save current configuration");
    Update.setTip("Sends all control words to the chip");
    CalibratePLL.setTip("Makes the chip calibrate its synthesizer at the present frequency");
    ReadStatus.setTip(
        "Reads the status once; a double click reads again and again, until the next click or until the "
        "focus goes elsewhere");
    ShowStatus.setTip("Folds the status bits out or in");
    IRQpoll.setTip("Samples the interrupt line once; the lamp is lit while the line is low");
    IRQ.setTip("State of the interrupt line at the last sample");
    OnColor.setTip("Colour of a status bit that is set");
    OffColor.setTip("Colour of a status bit that is clear");
    Crystalfreq.setTip("Crystal frequency, 8 to 12 MHz");
    Cxtal.setTip("Load capacitance of the crystal");
    FreqCenter.setTip("Centre frequency in MHz; the nearest that the chip can make is taken");
    FreqStep.setTip("Distance of two frequencies that the chip can make, in kHz");
    PowerSupply.setTip(ownTraits.supplyField == SupplyField::Commits
                           ? "Supply of the radio board, 2.0 V to 5.4 V; sent at once"
                           : "Supply of the radio board, as configuration files keep it");
    PB_PowerSupply.setTip("Sets the supply and reads what the chip draws");
    LBD.setTip("Threshold of the low battery detector as the chip counts it");
    LBDV.setTip("Threshold of the low battery detector in V");
    WKUPM.setTip("Mantissa of the wake-up time: the time is M times 2 to the power of R");
    WKUPR.setTip("Exponent of the wake-up time: the time is M times 2 to the power of R");
    WKUPTIME.setTip("The wake-up time that M and R make");
    Update.setShortcut(updateKey);
    ReadStatus.setShortcut(readStatusKey);
    ConfLoad.setShortcut(loadKey);
    ConfSave.setShortcut(saveKey);
}

FrequencyScale ChipPanel::frequencyScale() const {
    return {ownTraits.frequencyForm, BandMultiplier, BandBase, CrystalRatio};
}

std::int32_t ChipPanel::GetXtalFrequency() const {
    return crystalHertz(CrystalRatio);
}

void ChipPanel::StdCrystal_Click() {
    clearNotice();
    Crystalfreq.setEnabled(false);
    CrystalRatio = 1.0F;
    recomputeChain();
}

void ChipPanel::NonStdCrystal_Click() {
    Crystalfreq.setEnabled(true);
    Crystalfreq_LostFocus();
}

void ChipPanel::Crystalfreq_LostFocus() {
    if (StdCrystal.chosen()) {
        // A file's line for a crystal that is not in use: kept as text, without an effect.
        if (readNumericPrefix(Crystalfreq.text())) {
            crystalShown = Crystalfreq.text();
        }
        return;
    }
    clearNotice();
    // The user's own mark or the point that the field shows itself.
    std::string typed = Crystalfreq.text();
    std::replace(typed.begin(), typed.end(), bench.platform.decimalMark, '.');
    std::optional<double> megahertz = readNumericPrefix(typed);
    if (!megahertz) {
        Crystalfreq.setText(crystalShown);
        return;
    }
    CrystalCommit commit = commitCrystal(*megahertz);
    crystalShown = commit.megahertz.text;
    Crystalfreq.setText(crystalShown);
    if (commit.limit == Limit::Minimum) {
        notice("Minimum crystal frequency reached!");
    } else if (commit.limit == Limit::Maximum) {
        notice("Maximum crystal frequency reached!");
    }
    CrystalRatio = commit.ratio;
    recomputeChain();
}

void ChipPanel::recomputeChain() {
    // The parameter follows from the field's MHz and the new ratio, so the frequency stays and the word
    // moves; the lists then take their new texts.
    FreqCenter_LostFocus();
    showStep();
    for (ScaledList* list : scaledLists) {
        list->rebuild(CrystalRatio);
    }
    WKUPM_LostFocus();
    crystalChanged();
}

void ChipPanel::bandChosen(Band which) {
    const BandConstants& constants = bandConstants(*ownTraits.bands, which);
    BandMultiplier = constants.multiplier;
    BandBase = constants.base.value_or(BandBase);
    BandCode = constants.code;
    Ctrlw.rebuild();
    // The parameter stays, and the word with it; the frequency moves.
    showFrequency();
    showStep();
    LabelCalibration.setVisible(true);
}

void ChipPanel::showFrequency() {
    FreqCenter.setText(shownFrequency(FreqCode, frequencyScale()).megahertz.text);
    // The word stays, what it means has moved.
    Freqw.refreshTip();
}

std::string ChipPanel::bandCaption() const {
    const Option* chosen = bandGroup.chosen();
    return chosen == nullptr ? std::string() : chosen->caption();
}

std::string ChipPanel::frequencyText(int parameter, int bandField) const {
    for (Band which : ownTraits.offeredBands) {
        const BandConstants& constants = bandConstants(*ownTraits.bands, which);
        if (constants.code == bandField) {
            FrequencyScale scale = frequencyScale();
            scale.multiplier = constants.multiplier;
            scale.base = constants.base.value_or(scale.base);
            return shownFrequency(static_cast<float>(parameter), scale).megahertz.text + " MHz";
        }
    }
    return "parameter " + std::to_string(parameter) + " in a band that the chip has not";
}

std::string ChipPanel::wakeUpText(const WakeUpSetting& setting) const {
    WakeUpTime time = wakeUpTime(ownTraits.wakeUp.timer, setting, CrystalRatio);
    return time.shown.text + " " + std::string(time.unit);
}

void ChipPanel::showStep() {
    for (Band which : ownTraits.offeredBands) {
        if (band(which)->chosen()) {
            FreqStep.setText(
                frequencyStep(bandConstants(*ownTraits.bands, which).stepKilohertz, CrystalRatio).text);
        }
    }
}

void ChipPanel::FreqCenter_LostFocus() {
    FrequencyCommit commit = commitFrequency(FreqCenter.text(), frequencyScale());
    FreqCode = commit.code;
    if (commit.limit == Limit::Minimum) {
        notice("Minimum frequency reached!");
    } else if (commit.limit == Limit::Maximum) {
        notice("Maximum frequency reached!");
    }
    FreqCenter.setText(commit.shown.megahertz.text);
    Freqw.rebuild();
}

void ChipPanel::PowerSupply_LostFocus() {
    std::string typed = PowerSupply.text();
    if (!isCanonicalSupply(typed)) {
        notice("Incorrect Power Supply voltage format!  (" + typed + " V)");
    }
    SupplyCommit commit = commitSupply(typed);
    PowerSupply.setText(commit.volts.text);
    if (commit.limit == Limit::Minimum) {
        notice("Minimum supply voltage is 2.0 V!");
    } else if (commit.limit == Limit::Maximum) {
        notice("Maximum supply voltage is 5.4 V!");
    }
    bench.preferences.Pref_Voltage = PowerSupply.text();
    if (!bench.connect->isOpen()) {
        // Told once: a second commit in a row finds the notice standing.
        if (Statusline.text() != "Communication fault.") {
            notice("Communication fault.");
            bench.warn("Commport not available, please open commport. PSU setting was not updated.");
        }
        return;
    }
    reading();
    // This field takes the generation 2 constant on every board.
    bench.connect->Send_To_LoadBoard(supplyCommand(commit.volts.value, supplyConstant(2)));
}

void ChipPanel::LBD_LostFocus() {
    lowBattery = committedInteger(LBD.text(), ownTraits.threshold.range);
    LBD.setText(std::to_string(lowBattery));
    LBDV.setText(thresholdVoltage(lowBattery, ownTraits.threshold).text);
    LBDw.rebuild();
}

void ChipPanel::LBDV_LostFocus() {
    VoltageCommit commit = commitThresholdVoltage(LBDV.text(), ownTraits.threshold);
    LBD.setText(std::to_string(commit.threshold));
    LBD_LostFocus();
}

WakeUpSetting ChipPanel::commitWakeUpFields() {
    WakeUpSetting setting = commitWakeUp(ownTraits.wakeUp, WKUPM.text(), WKUPR.text());
    WKUPM.setText(std::to_string(setting.mantissa));
    WKUPR.setText(std::to_string(setting.exponent));
    return setting;
}

void ChipPanel::WKUPM_LostFocus() {
    wakeUp = commitWakeUpFields();
    WakeUpTime time = wakeUpTime(ownTraits.wakeUp.timer, wakeUp, CrystalRatio);
    WKUPTIME.setText(time.shown.text);
    Label8.setCaption(std::string(time.unit));
    Wkupw.rebuild();
    wakeUpCommitted();
}

} // namespace zor
