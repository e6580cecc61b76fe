// SPDX-License-Identifier: MIT
#include "panels/transmitters/opal_v2.h"

namespace zor {

namespace {

constexpr const char* oldRevision = "'C' or below";
constexpr const char* newRevision = "'D' or above";

const PanelTraits opalTraits = transmitterTraits({
    .formName = "OpalV2",
    .title = "KT1100 transmitter control panel",
    .foldedHeight = 8930,
    .unfoldedHeight = 9700,
    .bands = &multiplierBands,
    .offeredBands = {Band::Band315, Band::Band433, Band::Band868, Band::Band915},
    .startBand = Band::Band315,
    .startFrequency = "315",
    .wakeUp = {.exponent = {0, 23}},
    .statusCommand = "WSCC",
    .file = {.extension = "tc",
             .filter = "Transmitter Configuration files (*.tc) | *.tc |All files (*.*)| *.*",
             .loadTitle = "Load Transmitter Configuration File",
             .saveTitle = "Save Transmitter Configuration File",
             .banner = "# ZOR KT1100 configuration file. Version 2.0.0",
             .wrongBanner = "Incorrect configuration file version",
             .saveName = SaveName::CutDoubled},
});

} // namespace

const PanelTraits& OpalV2::chipTraits() {
    return opalTraits;
}

OpalV2::OpalV2(Bench& ownBench)
    : AutoPowerTransmitter(ownBench, opalTraits)
    , Frame1(*this, "Frame1", "Select revision:")
    , Green(*this, "Green", {0, 192, 0})
    , Yellow(*this, "Yellow", {255, 255, 0}) {
    Revision.setContainer(&Frame1);
    Revision.onChange = [this] { Revision_Click(); };
    LBDw.define(0xC200, {thresholdBits(4)});
    setWords({&Ctrlw, &Freqw, &OutPowerw, &PowerMw, &LBDw, &Wkupw});
}

void OpalV2::setDefaults() {
    AutoPowerTransmitter::setDefaults();
    Revision.fill(std::vector<std::string>{oldRevision, newRevision});
    Revision.selectText(bench.preferences.Pref_OpalRevision);
}

ConfigurationLines OpalV2::configuration() {
    return joined(
        {crystalLines(),
         {textLine(WKUPM), textLine(WKUPR, [this] { WKUPM_LostFocus(); }), heldTextLine(FreqCenter)},
         modulationLines(),
         powerTickLines(),
         {supplyLine(), textLine(Modulation), textLine(Revision), textLine(LBD)}});
}

int OpalV2::powerBits() const {
    return revisionFlag == 0 ? 2 : 3;
}

int OpalV2::ookMark() const {
    // The keying stands above the power step.
    return 1 << powerBits();
}

void OpalV2::layOutPowerWord() {
    definePowerWord(powerBits());
    laidOutFor = revisionFlag;
}

void OpalV2::partsPutBack() {
    if (laidOutFor != revisionFlag) {
        layOutPowerWord();
    }
}

void OpalV2::Revision_Click() {
    if (Revision.text() == oldRevision && revisionFlag != 0) {
        switchRevision(0, Yellow);
    }
    if (Revision.text() == newRevision && revisionFlag != 1) {
        switchRevision(1, Green);
    }
    powerChanged();
}

void OpalV2::switchRevision(int flag, const Swatch& colour) {
    revisionFlag = flag;
    layOutPowerWord();
    OutputPower.fill(outputPowers(std::size_t{1} << static_cast<unsigned>(powerBits())));
    OutputPower.selectText("Pmax");
    Revision.setBackground(colour.background());
}

KeptParts OpalV2::keptParts() {
    KeptParts parts = AutoPowerTransmitter::keptParts();
    parts.push_back(keptPart(revisionFlag));
    return parts;
}

void OpalV2::SetFrameMode() {
    showVariant("KT1100B transmitter control panel");
    Frame1.setBordered(!bench.IsBijakuModeSet());
}

} // namespace zor
