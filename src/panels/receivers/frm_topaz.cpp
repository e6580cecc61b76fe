// SPDX-License-Identifier: MIT
#include "panels/receivers/frm_topaz.h"

namespace zor {

namespace {

PanelTraits makePanelTraits() {
    PanelTraits traits = transceiverPanelTraits();
    traits.formName = "FRM_Topaz";
    traits.title = "KT3101 Transceiver control panel";
    traits.foldedHeight = 9800;
    traits.unfoldedHeight = 10600;
    traits.file.extension = "lrc";
    // The apostrophe is the label's own.
    traits.file.filter = "'T3101 Transceiver Configuration files (*.lrc)|*.lrc|All files (*.*)|*.*";
    traits.file.banner = "# ZOR KT3101 Transceiver configuration file. Version 2.0.0";
    return traits;
}

ReceivingTraits makeReceivingTraits() {
    ReceivingTraits traits = transceiverTraits();
    traits.furtherPages = {"PLL Settings", "Synchron Pattern"};
    return traits;
}

const PanelTraits topazTraits = makePanelTraits();
const ReceivingTraits topazReceiving = makeReceivingTraits();

constexpr std::uint32_t synchronBase = 0xCE00;

} // namespace

const PanelTraits& FRM_Topaz::chipTraits() {
    return topazTraits;
}

FRM_Topaz::FRM_Topaz(Bench& ownBench)
    : TransceiverPanel(ownBench, topazTraits, topazReceiving)
    , SynchronPattern(static_cast<Form&>(*this), synchronBase)
    , CB_RFT(*this, "CB_RFT")
    , CB_PLLBW(*this, "CB_PLLBW")
    , CB_LPX(*this, "CB_LPX", "Crystal Oscillator Low Power Mode")
    , CB_DDY(*this, "CB_DDY", "Phase Detector Delay")
    , CB_DDIT(*this, "CB_DDIT", "Disable PLL Dithering")
    , PLLCmd(*this, "PLLCmd", "PLL Setting Command:")
    , SynchPattern(*this, "SynchPattern") {
    CB_RFT.setCaption("uP Clock rise and fall time control");
    CB_PLLBW.setCaption("PLL Bandwidth");
    SynchPattern.setCaption("Synchron Pattern");
    for (TickBox* tick : {&CB_LPX, &CB_DDY, &CB_DDIT}) {
        feed(*tick, PLLCmd);
    }
    feed(CB_RFT, PLLCmd);
    feed(CB_PLLBW, PLLCmd);
    feed(SynchPattern, FIFOw);
    PLLCmd.define(0xCC00, {bits(6, 5, "clock edges", CB_RFT), bit(4, "low power oscillator", CB_LPX),
                           bit(3, "phase detector delay", CB_DDY), bit(2, "no dithering", CB_DDIT),
                           fixedBit(1, "always 1"), bits(0, 0, "PLL bandwidth", CB_PLLBW)});
    std::vector<BitField> fields = fifoFields();
    fields.insert(fields.begin() + 1, bits(3, 3, "synchron pattern", SynchPattern));
    FIFOw.define(fifoBase, std::move(fields));
    setWords({&Ctrlw, &Freqw, &PowerW, &Recw, &TXCtrlw, &Wkupw, &Dutyw, &LBDw, &AFCw, &Dataratew, &Datafiltw,
              &FIFOw, &PLLCmd, &SynchPatt});
}

void FRM_Topaz::setDefaults() {
    TransceiverPanel::setDefaults();
    // The two codes between which one is left out: 0x40 is none of the chip's.
    begin(CB_RFT, {{{"5 or 10 MHz", 0}, {"3.3 MHz", 1}, {"2.5 MHz or below", 3}}, "2.5 MHz or below"});
    begin(CB_PLLBW, {{{"Max. 86.2 kbps", 0}, {"Max. 256 kbps", 1}}, "Max. 256 kbps"});
    begin(SynchPattern, {{{"2DD4", 0}, {"D4", 1}}, "2DD4"});
    CB_DDIT.setTicked(true);
}

KeptParts FRM_Topaz::keptParts() {
    KeptParts parts = TransceiverPanel::keptParts();
    parts.push_back(SynchronPattern::kept());
    return parts;
}

ConfigurationLines FRM_Topaz::furtherTransmitterLines() {
    return {tickLine(CB_LPX), tickLine(CB_DDY), tickLine(CB_DDIT), textLine(CB_RFT), textLine(CB_PLLBW)};
}

ConfigurationLines FRM_Topaz::furtherFifoLines() {
    return {textLine(TB_SP, [this] { TB_SP_LostFocus(); })};
}

} // namespace zor
