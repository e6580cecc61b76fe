// SPDX-License-Identifier: MIT
#include "panels/receivers/beryl_v3.h"

namespace zor {

namespace {

const PanelTraits berylTraits = {
    .formName = "BerylV3",
    .title = "KT3100 Transceiver control panel",
    .foldedHeight = 8800,
    .unfoldedHeight = 9700,
    .width = 15000,
    .frequencyForm = FrequencyForm::TenThenMultiplier,
    .bands = &multiplierBands,
    .offeredBands = {Band::Band315, Band::Band433, Band::Band868, Band::Band915},
    .startBand = Band::Band315,
    .startFrequency = "315",
    .startCapacitance = "12.5 pF",
    .wakeUp = {},
    .threshold = {},
    .supplyField = SupplyField::Commits,
    .statusCaptions = transceiverStatus(),
    .statusBytes = 2,
    .statusInterval = std::chrono::milliseconds(50),
    .statusCommand = "",
    .interruptPosition = 3,
    .loadNotice = "Update chip control commands, and power management settings!",
    .updateWithoutPort = "Commport not available, please open commport. Control commands were not updated.",
    .file = {.extension = "trc",
             .filter = "Transceiver Configuration files (*.trc)|*.trc|All files (*.*)|*.*",
             .loadTitle = "Load Transceiver Configuration File",
             .saveTitle = "Save Transceiver Configuration File",
             .banner = "# ZOR Transceiver configuration file. Version 2.0.0",
             .wrongBanner = "Incorrect configuration file version",
             .saveName = SaveName::AsChosen},
};

const ReceivingTraits berylReceiving = transceiverTraits();

} // namespace

BerylV3::BerylV3(Bench& ownBench)
    : TransceiverPanel(ownBench, berylTraits, berylReceiving) {
    setWords({&Ctrlw, &Freqw, &PowerW, &Recw, &TXCtrlw, &Wkupw, &Dutyw, &LBDw, &AFCw, &Dataratew, &Datafiltw,
              &FIFOw});
}

void BerylV3::SetFrameMode() {
    showVariant("KT3100B Transceiver control panel");
    Frame1_11.setVisible(!bench.IsBijakuModeSet());
}

} // namespace zor
