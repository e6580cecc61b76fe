// SPDX-License-Identifier: MIT
#include "panels/receivers/transceiver_panel.h"

#include "link/connect.h"
#include "panels/common/levels.h"

namespace zor {

namespace {

constexpr int deviationCount = 16;
constexpr double deviationStep = 15;

constexpr std::uint32_t receiverBit = 0x80;
constexpr std::uint32_t transmitterBit = 0x20;
constexpr std::uint32_t synthesizerBit = 0x10;

} // namespace

ReceivingTraits transceiverTraits() {
    return {
        .receiverCaption = "Receiver Control Command:",
        .fifoCaption = "FIFO and Reset Mode Command:",
        .dutyBase = 0xC800,
        .frequencyControlBase = 0xC400,
        .dataRateBase = 0xC600,
        .bandwidths = {67, 135, 200, 270, 340, 400},
        .bandwidthRow = 2,
        .validData = {{{"Fast", 0}, {"Medium", 1}, {"Slow", 2}, {"Always", 3}}, "Fast"},
        .gain = {{{"max.", 0}, {"-6 dB", 1}, {"-14 dB", 2}, {"-20 dB", 3}}, "max."},
        .frequencyControl = {frequencyControlModes, "Auto, keep Foffset"},
        .frequencyRange = {{{"Unlimited", 0}, {"+15/-16 Fres", 1}, {"+7/-8 Fres", 2}, {"+3/-4 Fres", 3}},
                           "+3/-4 Fres"},
        .clockRecovery = {clockRecoveryModes, "Slow"},
        .filter = {{{"Digital LPF", 1}, {"Analog LPF", 3}}, "Digital LPF"},
        .fifoStart = {{{"Synchron pattern", 0}, {"Always", 1}}, "Synchron pattern"},
        .dataRateDivider = "35",
        .filterBit = "Not used (bit5)",
        .highestFifoLevel = 15,
        .offsetBits = 5,
        .frequencyControlStops = 2,
        .lowBatteryReason = "The Low Battery Detector can be enabled by the Power Management command.",
        .wakeUpReason = "The Wake-up timer can be enabled by the Power Management command.",
        .thresholdFormula = "V       = 2.2 + T * 0.1 [V]",
        .fifoResetWithoutPort = "Commport not available, please open commport. FIFO was not reset.",
        .furtherPages = {},
    };
}

PanelTraits transceiverPanelTraits() {
    return {
        .width = 15000,
        .offeredBands = {Band::Band315, Band::Band433, Band::Band868, Band::Band915},
        .startBand = Band::Band315,
        .startFrequency = "315",
        .startCapacitance = "12.5 pF",
        .supplyField = SupplyField::Commits,
        .statusCaptions = {"FF IT", "POR", "FF OV", "WK-UP", "EXT", "LBD", "FF EM", "DRSSI", "DQD", "CRL",
                           "ATGL", "SGN", "OF3", "OF2", "OF1", "OF0"},
        .statusBytes = 2,
        .statusInterval = std::chrono::milliseconds(50),
        .statusCommand = "",
        .interruptPosition = 3,
        .loadNotice = "Update chip control commands, and power management settings!",
        .updateWithoutPort =
            "Commport not available, please open commport. Control commands were not updated.",
        .file = {.loadTitle = "Load Transceiver Configuration File",
                 .saveTitle = "Save Transceiver Configuration File",
                 .wrongBanner = "Incorrect configuration file version"},
    };
}

TransceiverPanel::TransceiverPanel(Bench& ownBench, const PanelTraits& panelTraits,
                                   const ReceivingTraits& receivingTraits)
    : ReceivingPanel(ownBench, panelTraits, receivingTraits)
    , Frame1_11(*this, "Frame1(11)", "Select revision:")
    , EnTXLatch(*this, "EnTXLatch", "Enable TX Register")
    , EnRxFIFO(*this, "EnRxFIFO", "Enable RX FIFO")
    , chb_er(*this, "chb_er", "Enable the receiver")
    , chb_ebb(*this, "chb_ebb", "Enable receiver baseband")
    , chb_et(*this, "chb_et", "Enable the transmitter")
    , chb_es(*this, "chb_es", "Enable the synthesizer")
    , chb_ex(*this, "chb_ex", "Enable the oscillator")
    , chb_eb(*this, "chb_eb", "Enable the low battery detector")
    , chb_ew(*this, "chb_ew", "Enable the wake-up timer")
    , chb_dc(*this, "chb_dc", "Disable the clock output")
    , PowerW(*this, "PowerW", "Power Management Command:")
    , PinFunction(*this, "PinFunction", "Pin16 function")
    , Pin8IsInt(*this, pinGroup, "Pin8IsInt", "Interrupt input")
    , Pin8IsVDI(*this, pinGroup, "Pin8IsVDI", "VDI output")
    , ModPol(*this, "ModPol")
    , ModFreq(*this, "ModFreq", deviations(deviationCount, deviationStep))
    , OutputPower(*this, "OutputPower")
    , TXCtrlw(*this, "TXCtrlw", "Transmitter Setting command:")
    , SensResEn(*this, "SensResEn", "Disable Sensitive reset") {
    Revision.setContainer(&Frame1_11);
    Pin8IsInt.setContainer(&PinFunction);
    Pin8IsVDI.setContainer(&PinFunction);
    DFILTbit5.setEnabled(false);
    setScaledLists({&CLKout, &BasebandBW, &ModFreq});
    setDataLineWord(Ctrlw);
    wireTicks();
    defineWords();
}

void TransceiverPanel::wireTicks() {
    for (TickBox* tick : {&EnTXLatch, &EnRxFIFO}) {
        feed(*tick, Ctrlw);
    }
    for (TickBox* tick : {&chb_ebb, &chb_et, &chb_es, &chb_ex}) {
        feed(*tick, PowerW);
    }
    chb_er.onChange = [this] { chb_er_Click(); };
    chb_eb.onChange = [this] {
        governLowBattery(chb_eb);
        PowerW.rebuild();
    };
    chb_ew.onChange = [this] {
        governWakeUp(chb_ew);
        PowerW.rebuild();
    };
    chb_dc.onChange = [this] {
        CLKout.setEnabled(!chb_dc.ticked());
        PowerW.rebuild();
    };
    for (Option* option : {&Pin8IsInt, &Pin8IsVDI}) {
        option->onChoose = [this] { Recw.rebuild(); };
    }
    feed(BasebandBW, Recw);
    OutputPower.codeOfText = powerCode;
    feed(ModPol, TXCtrlw);
    feed(ModFreq, TXCtrlw);
    feed(OutputPower, TXCtrlw);
    feed(SensResEn, FIFOw);
}

void TransceiverPanel::defineWords() {
    Ctrlw.define(0x8000, {bit(7, "TX register", EnTXLatch), bit(6, "RX FIFO", EnRxFIFO), bandBits(4),
                          capacitanceBits(0)});
    PowerW.define(0x8200, {bit(7, "receiver", chb_er), bit(6, "baseband", chb_ebb),
                           bit(5, "transmitter", chb_et), bit(4, "synthesizer", chb_es),
                           bit(3, "oscillator", chb_ex), bit(2, "low battery detector", chb_eb),
                           bit(1, "wake-up timer", chb_ew), bit(0, "clock output off", chb_dc)});
    auto pin = [this] { return Pin8IsVDI.chosen() ? 1 : 0; };
    Recw.define(0x9000,
                {readBack(bits(10, 10, "pin 16", pin,
                               [this] { return (Pin8IsVDI.chosen() ? Pin8IsVDI : Pin8IsInt).caption(); }),
                          optionSetting(pin, {{0, &Pin8IsInt}, {1, &Pin8IsVDI}})),
                 bits(9, 8, "VDI", VDI), bits(7, 5, "bandwidth", BasebandBW, "kHz"),
                 bits(4, 3, "LNA gain", LNAgain), bits(2, 0, "DRSSI threshold", DRSSI)});
    TXCtrlw.define(0x9800, {bits(8, 8, "polarity", ModPol), bits(7, 4, "deviation", ModFreq, "kHz"),
                            bits(2, 0, "output power", OutputPower)});
    LBDw.define(0xC000, {bits(7, 5, "clock output", CLKout, "MHz"), thresholdBits(4)});
    Datafiltw.define(0xC200, {bits(7, 6, "clock recovery", ClkRecMode), bit(5, "not used", DFILTbit5),
                              bits(4, 3, "filter", FILTTYPE), filterParameterBits()});
    FIFOw.define(fifoBase, fifoFields());
}

std::vector<BitField> TransceiverPanel::fifoFields() {
    return {readBack(bits(7, 4, "FIFO level", [this] { return ITLEVEL.value(); }), fifoLevelSetting()),
            bits(2, 2, "fill start", FIFOstrt), bit(1, "synchron latch", ffillen),
            bit(0, "sensitive reset off", SensResEn)};
}

void TransceiverPanel::setDefaults() {
    ReceivingPanel::setDefaults();
    chb_ex.setTicked(true);
    Pin8IsInt.choose();
    ModPol.fill(std::vector<std::string>{"fo + df", "fo - df"});
    ModPol.select(0);
    OutputPower.fill(outputPowers());
    OutputPower.select(0);
    Revision.fill(std::vector<std::string>{"'A' or above", "'D' or above"});
    Revision.select(0);
    if (bench.connect->isOpen()) {
        sendLine("Z3");
    }
}

ConfigurationLines TransceiverPanel::configuration() {
    return joined({
        crystalLines(),
        bandLines(),
        {tickLine(EnTXLatch), tickLine(EnRxFIFO), textLine(Cxtal)},
        {tickLine(chb_er), tickLine(chb_ebb), tickLine(chb_et), tickLine(chb_es), tickLine(chb_ex),
         tickLine(chb_ew), tickLine(chb_eb), tickLine(chb_dc)},
        {textLine(FreqCenter), booleanLine(Pin8IsInt), booleanLine(Pin8IsVDI)},
        {textLine(VDI), textLine(LNAgain), textLine(DRSSI)},
        {positionLine(BasebandBW), textLine(ModPol), positionLine(ModFreq), textLine(OutputPower)},
        furtherTransmitterLines(),
        {textLine(WKUPM), textLine(WKUPR), tickLine(enlowdc), textLine(DUTY), positionLine(CLKout)},
        {textLine(LBD)},
        {frequencyControlLine(), tickLine(afcfi), textLine(AFCauto), textLine(AFCres), tickLine(afcst),
         tickLine(afcoen)},
        {shownAndHeldTextLine(DATARATEDIV), tickLine(dataratepresc)},
        {textLine(ClkRecMode), textLine(FILTTYPE), tickLine(DFILTbit5), valueLine(STATEFILT)},
        {tickLine(ffillen), tickLine(SensResEn), textLine(FIFOstrt), valueLine(ITLEVEL)},
        furtherFifoLines(),
        {supplyLine()},
    });
}

void TransceiverPanel::chb_er_Click() {
    // The same bits tell of the FIFO while receiving and of the transmit register otherwise.
    bool receives = chb_er.ticked();
    status(1).setCaption(receives ? "FFIT" : "RGIT");
    status(3).setCaption(receives ? "FFOV" : "RGUR");
    status(8).setCaption(receives ? "RSSI" : "ATS");
    PowerW.rebuild();
}

void TransceiverPanel::calibrate() {
    // The synthesizer calibrates as it starts: by itself, or with the receiver or transmitter that needs it.
    // What is set while a step waits for its answer is in the next one.
    auto off = [this] { return PowerW.value() & ~(receiverBit | transmitterBit | synthesizerBit); };
    sendStep(PowerW, off());
    if (!chb_er.ticked() && !chb_et.ticked()) {
        sendStep(PowerW, off() + synthesizerBit);
    }
    sendStep(PowerW, PowerW.value());
}

} // namespace zor
