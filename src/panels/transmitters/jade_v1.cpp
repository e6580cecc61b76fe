// SPDX-License-Identifier: MIT
#include "panels/transmitters/jade_v1.h"

namespace zor {

namespace {

const PanelTraits jadeTraits = transmitterTraits({
    .formName = "JadeV1",
    .title = "KT1101 transmitter control panel",
    .foldedHeight = 10380,
    .unfoldedHeight = 11000,
    .bands = &multiplierBands,
    .offeredBands = {Band::Band433, Band::Band868, Band::Band915},
    .startBand = Band::Band433,
    .startFrequency = "435",
    .wakeUp = {.exponent = {0, 23}},
    .statusCommand = "WSCC",
    .file = {.extension = "tc1",
             .filter = "KT1101 Configuration files (*.tc1)|*.tc1|All files (*.*)|*.*",
             .loadTitle = "Load KT1101 Configuration File",
             .saveTitle = "Save KT1101 Configuration File",
             .banner = "# ZOR KT1101 configuration file. Version 2.0.0",
             .wrongBanner = "Incorrect configuration file version",
             .saveName = SaveName::AppendMissing},
});

constexpr IntegerRange dividerRange = {0, 255};

/// A bandwidth of the synthesizer's loop: what it is good for, and its code in the PLL word.
struct LoopSetting {
    const char* maximumRate;
    int code;
    const char* phaseNoise;
};

constexpr std::array<LoopSetting, 4> loopSettings = {{
    {"19.2", 1, "-112"},
    {"38.4", 3, "-110"},
    {"68.9", 0, "-107"},
    {"115.2", 2, "-102"},
}};

} // namespace

const PanelTraits& JadeV1::chipTraits() {
    return jadeTraits;
}

JadeV1::JadeV1(Bench& ownBench)
    : AutoPowerTransmitter(ownBench, jadeTraits)
    , DATARATEDIV(*this, "DATARATEDIV")
    , DATARATE(*this, "DATARATE", "", TextField::Access::ReadOnly)
    , Dataratew(*this, "Dataratew", "Data Rate Command:")
    , CB_MaxDataRate(*this, "CB_MaxDataRate")
    , TB_PHNoise(*this, "TB_PHNoise", "", TextField::Access::ReadOnly)
    , TB_PLLCmd(*this, "TB_PLLCmd", "PLL Setting Command:")
    , CB_ebs(*this, "CB_ebs", "Enable TX bit Synchronisation")
    , CB_dwc(*this, "CB_dwc", "Disable Wake-up Timer Calibration") {
    DATARATEDIV.onCommit = [this] { DATARATEDIV_LostFocus(); };
    CB_MaxDataRate.onChange = [this] { CB_MaxDataRate_Click(); };
    for (TickBox* box : {&CB_ebs, &CB_dwc}) {
        box->onChange = [this] { LBD_LostFocus(); };
    }
    defineWords();
}

void JadeV1::defineWords() {
    LBDw.define(0xC200, {bit(7, "wake-up timer calibration off", CB_dwc),
                         bit(5, "bit synchronisation", CB_ebs), thresholdBits(4)});
    BitField divider =
        explained(bits(
                      7, 0, "divider", [this] { return dataRateDivider; },
                      [this] { return DATARATE.text() + " kbps"; }),
                  [this](int code) { return dataRate(code, Prescaler::Off, CrystalRatio).text + " kbps"; });
    Dataratew.define(0xC800, {readBack(std::move(divider),
                                       numberSetting(
                                           DATARATEDIV, [this] { return dataRateDivider; }, dividerRange))});
    TB_PLLCmd.define(0xD200, {bits(7, 6, "highest data rate", CB_MaxDataRate, "kbps")});
    setWords({&Ctrlw, &Freqw, &OutPowerw, &PowerMw, &LBDw, &Wkupw, &Dataratew, &TB_PLLCmd});
}

void JadeV1::setDefaults() {
    AutoPowerTransmitter::setDefaults();
    showSharedRevision();
    std::vector<CodeList::Entry> rates;
    rates.reserve(loopSettings.size());
    for (const LoopSetting& setting : loopSettings) {
        rates.push_back({setting.maximumRate, setting.code});
    }
    CB_MaxDataRate.fill(std::move(rates));
    CB_MaxDataRate.select(0);
    DATARATEDIV.setText("0");
    DATARATEDIV_LostFocus();
}

void JadeV1::DATARATEDIV_LostFocus() {
    dataRateDivider = committedInteger(DATARATEDIV.text(), dividerRange);
    DATARATEDIV.setText(std::to_string(dataRateDivider));
    DATARATE.setText(dataRate(dataRateDivider, Prescaler::Off, CrystalRatio).text);
    Dataratew.rebuild();
}

void JadeV1::CB_MaxDataRate_Click() {
    if (CB_MaxDataRate.position() >= 0) {
        TB_PHNoise.setText(loopSettings[static_cast<std::size_t>(CB_MaxDataRate.position())].phaseNoise);
    }
    TB_PLLCmd.rebuild();
}

void JadeV1::crystalChanged() {
    DATARATEDIV_LostFocus();
}

void JadeV1::commitFurtherRead() {
    WKUPM_LostFocus();
    DATARATEDIV_LostFocus();
}

KeptParts JadeV1::keptParts() {
    KeptParts parts = AutoPowerTransmitter::keptParts();
    parts.push_back(keptPart(dataRateDivider));
    return parts;
}

ConfigurationLines JadeV1::configuration() {
    return joined({crystalLines(),
                   {heldTextLine(FreqCenter)},
                   modulationLines(),
                   powerTickLines(),
                   {supplyLine(), textLine(Modulation), textLine(Revision), textLine(LBD), textLine(WKUPM),
                    textLine(WKUPR), tickLine(CB_dwc), tickLine(CB_ebs), textLine(DATARATEDIV),
                    positionLine(CB_MaxDataRate)}});
}

} // namespace zor
