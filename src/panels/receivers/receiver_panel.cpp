// SPDX-License-Identifier: MIT
#include "panels/receivers/receiver_panel.h"

#include "link/connect.h"

namespace zor {

namespace {

constexpr std::uint32_t receiverBit = 0x01;
constexpr const char* clockCaption = "Disable   C clock output";
constexpr const char* notUpdated =
    "Commport not available, please open commport. Control words were not updated.";

} // namespace

PanelTraits receiverPanelTraits() {
    return {
        .foldedHeight = 8600,
        .unfoldedHeight = 9400,
        .width = 15000,
        .offeredBands = {Band::Band315, Band::Band433, Band::Band868, Band::Band915},
        .supplyField = SupplyField::ShownOnly,
        .statusCaptions = {"FF IT", "FF OF", "WK-UP", "LBD", "FF EM", "DRSSI", "DQD", "CRL", "ATGL", "ASAME",
                           "SGN", "OF4", "OF3", "OF2", "OF1", "OF0"},
        .statusBytes = 2,
        .statusInterval = std::chrono::milliseconds(50),
        .statusCommand = "",
        .interruptPosition = 3,
        .loadNotice = "Update chip control words, and power management settings!",
        .updateWithoutPort = notUpdated,
        .file = {.loadTitle = "Load Receiver Configuration File",
                 .wrongBanner = "Incorrect configuration file version"},
    };
}

ReceivingTraits receiverTraits() {
    return {
        .receiverCaption = "Receiver Setting Command:",
        .fifoCaption = "Output and FIFO Mode Command:",
        .dutyBase = 0xCC00,
        .frequencyControlBase = 0xC600,
        .dataRateBase = 0xC800,
        .bandwidths = {67, 135, 200, 270, 340, 400},
        .bandwidthRow = 1,
        .validData = {{{"DRSSI", 0}, {"Data Quality Detect", 1}, {"Clock Recovery locked", 2}, {"Always", 3}},
                      "Clock Recovery locked"},
        // The order of -14 dB and -6 dB is the KT2100's own.
        .gain = {{{"max.", 0}, {"-14 dB", 1}, {"-6 dB", 2}, {"-20 dB", 3}}, "max."},
        .frequencyControl = {frequencyControlModes, "Auto, keep Foffset"},
        .frequencyRange = {{{"Unlimited", 0}, {"+15/-16 Fs", 1}, {"+7/-8 Fs", 2}, {"+3/-4 Fs", 3}},
                           "+3/-4 Fs"},
        .clockRecovery = {clockRecoveryModes, "Slow"},
        .filter = {{{"Digital LPF (OOK)", 0}, {"Digital LPF", 1}, {"Analog LPF", 3}}, "Digital LPF"},
        .fifoStart = {{{"VDI", 0}, {"Synchron pattern", 1}, {"VDI & Synchron pattern", 2}, {"Always", 3}},
                      "Synchron pattern"},
        .dataRateDivider = "35",
        .filterBit = "Not used (bit5)",
        .highestFifoLevel = 15,
        .offsetBits = 6,
        .frequencyControlStops = 1,
        .lowBatteryReason = "The Low Battery Detector can be enabled by the Configuration setting command.",
        .wakeUpReason = "The Wake-up timer can be enabled by the Configuration setting command.",
        .thresholdFormula = "V       = 2.2 + T * 0.1 [V]",
        .fifoResetWithoutPort = notUpdated,
        .furtherPages = {},
    };
}

ReceiverPanel::ReceiverPanel(Bench& ownBench, const PanelTraits& panelTraits,
                             const ReceivingTraits& receivingTraits)
    : ReceivingPanel(ownBench, panelTraits, receivingTraits)
    , enb(*this, "enb", "Low battery")
    , ent(*this, "ent", "Wake-up timer")
    , enx(*this, "enx", "Xtal osc.")
    , disclk(*this, "disclk", clockCaption)
    , Label47(*this, "Label47", "Disable")
    , Label48(*this, "Label48",
              "\xC2\xB5"
              "C clock output")
    , enrec(*this, "enrec", "Enable receiver chain")
    , fmodeen(*this, "fmodeen", "Enable FIFO mode") {
    setScaledLists({&CLKout, &BasebandBW});
    wireTicks();
    defineWords();
}

void ReceiverPanel::wireTicks() {
    enb.onChange = [this] {
        governLowBattery(enb);
        Ctrlw.rebuild();
    };
    ent.onChange = [this] {
        governWakeUp(ent);
        Ctrlw.rebuild();
    };
    feed(enx, Ctrlw);
    disclk.onChange = [this] {
        CLKout.setEnabled(!disclk.ticked());
        Ctrlw.rebuild();
    };
    for (Label* label : {&Label47, &Label48}) {
        label->onClick = [this] { disclk.setTicked(!disclk.ticked()); };
    }
    feed(BasebandBW, Ctrlw);
    feed(enrec, Recw);
    feed(fmodeen, FIFOw);
}

void ReceiverPanel::defineWords() {
    Ctrlw.define(0x8000, {bandBits(), bit(10, "low battery detector", enb), bit(9, "wake-up timer", ent),
                          bit(8, "oscillator", enx), capacitanceBits(),
                          bits(3, 1, "bandwidth", BasebandBW, "kHz"), bit(0, "clock output off", disclk)});
    Recw.define(0xC000, {bits(7, 6, "VDI", VDI), bits(5, 4, "LNA gain", LNAgain),
                         bits(3, 1, "DRSSI threshold", DRSSI), bit(0, "receiver chain", enrec)});
    FIFOw.define(0xCE00, {readBack(bits(
                                       7, 4, "FIFO level", [this] { return ITLEVEL.value() & 0xF; },
                                       [this] { return ITlevelNr.text(); }),
                                   fifoLevelSetting()),
                          bits(3, 2, "fill start", FIFOstrt), bit(1, "synchron latch", ffillen),
                          bit(0, "FIFO mode", fmodeen)});
}

void ReceiverPanel::setDefaults() {
    ReceivingPanel::setDefaults();
    enx.setTicked(true);
    enrec.setTicked(true);
    fmodeen.setTicked(true);
}

void ReceiverPanel::takeDataLineAtStart() {
    if (bench.connect->isOpen()) {
        routeDataLine();
    }
}

void ReceiverPanel::calibrate() {
    // The synthesizer calibrates as the receiver chain starts. What is set while a step waits for its answer
    // is in the next one.
    auto off = [this] { return Recw.value() & ~receiverBit; };
    sendStep(Recw, off());
    sendStep(Recw, off() + receiverBit);
    sendStep(Recw, Recw.value());
}

ConfigurationLines ReceiverPanel::settingLines() {
    return joined({{sharedNumberLine("Pref_RxLinkTimeout", bench.preferences.Pref_RxLinkTimeout)},
                   crystalLines(),
                   bandLines(),
                   {tickLine(ent), tickLine(enb), tickLine(enx), textLine(Cxtal), positionLine(BasebandBW),
                    tickLine(disclk)},
                   {textLine(FreqCenter), tickLine(enrec)},
                   {textLine(VDI), textLine(LNAgain), textLine(DRSSI)}});
}

ConfigurationLines ReceiverPanel::frequencyControlLines() {
    return {textLine(AFCauto),
            textLine(AFCres),
            tickLine(afcst),
            tickLine(afcfi),
            tickLine(afcoen),
            frequencyControlLine(),
            shownAndHeldTextLine(DATARATEDIV),
            tickLine(dataratepresc)};
}

ConfigurationLines ReceiverPanel::fifoLines() {
    return {valueLine(ITLEVEL), textLine(FIFOstrt), tickLine(ffillen), tickLine(fmodeen), supplyLine()};
}

void ReceiverPanel::configurationRead() {
    ReceivingPanel::configurationRead();
    PowerSupply.setText(bench.preferences.Pref_Voltage);
    clearNotice();
}

} // namespace zor
