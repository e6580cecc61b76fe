// SPDX-License-Identifier: MIT
#include "panels/receivers/beryl_v3.h"

namespace zor {

namespace {

PanelTraits makePanelTraits() {
    PanelTraits traits = transceiverPanelTraits();
    traits.formName = "BerylV3";
    traits.title = "KT3100 Transceiver control panel";
    traits.foldedHeight = 8800;
    traits.unfoldedHeight = 9700;
    traits.file.extension = "trc";
    traits.file.filter = "Transceiver Configuration files (*.trc)|*.trc|All files (*.*)|*.*";
    traits.file.banner = "# ZOR Transceiver configuration file. Version 2.0.0";
    return traits;
}

const PanelTraits berylTraits = makePanelTraits();
const ReceivingTraits berylReceiving = transceiverTraits();

} // namespace

const PanelTraits& BerylV3::chipTraits() {
    return berylTraits;
}

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
