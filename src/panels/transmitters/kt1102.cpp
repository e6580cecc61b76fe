// SPDX-License-Identifier: MIT
#include "panels/transmitters/kt1102.h"

namespace zor {

namespace {

/// The step shown is the one of the upper bands; the true one of the lowest is an eighth of it.
constexpr double shownStep = 20;
constexpr double deviationStep = 20;

constexpr BandTable onyxBands = {{
    {1, std::nullopt, 0, shownStep}, // not offered
    {1, 43, 1, shownStep},
    {8, 10, 2, shownStep},
    {8, 11, 3, shownStep},
}};

const PanelTraits onyxTraits = transmitterTraits({
    .formName = "KT1102",
    .title = "KT1102 transmitter control panel",
    .foldedHeight = 10100,
    .unfoldedHeight = 10800,
    .bands = &onyxBands,
    .offeredBands = {Band::Band433, Band::Band868, Band::Band915},
    .startBand = Band::Band868,
    .startFrequency = "868.3",
    .wakeUp = extendedWakeUp,
    .threshold = {{0, 15}, 20, 20},
    // The chip puts its status out without being asked by a command.
    .statusCommand = "",
    .file = {.extension = "tc2",
             // The label is its sibling's; users know it so.
             .filter = "KT1101 Configuration files (*.tc1)|*.tc2|All files (*.*)|*.*",
             .loadTitle = "Load KT1102 Configuration File",
             .saveTitle = "Save KT1102 Configuration File",
             .banner = "# ZOR KT1102 configuration file. Version 2.2.2",
             .wrongBanner = "Incorrect configuration file version.",
             .saveName = SaveName::AppendMissing},
});

/// No automatic power control, so no tick excludes another.
const std::vector<PowerTick> ticks = {
    {5, "Xtal osc.", {}},     {4, "Synthesizer", {}},
    {3, "Power amp.", {}},    {2, "Low battery detector", {}},
    {1, "Wake-up timer", {}}, {0, "Disable   C clock output", {}},
};

constexpr IntegerRange levelRange = {0, 63};
constexpr IntegerRange dividerRange = {0, 127};

} // namespace

const PanelTraits& KT1102::chipTraits() {
    return onyxTraits;
}

KT1102::KT1102(Bench& ownBench)
    : TransmitterPanel(ownBench, onyxTraits, ticks, deviationStep)
    , UD_LBD(*this, "UD_LBD")
    , CB_ebs(*this, "CB_ebs", "Enable 32 kHz clk out in sleep mode")
    , CB_EnFIFO(*this, "CB_EnFIFO", "Enable Transmit FIFO")
    , TB_FIFOITLevel(*this, "TB_FIFOITLevel")
    , SL_FIFOITLevel(*this, "SL_FIFOITLevel", levelRange.minimum, levelRange.maximum, 0)
    , UD_FIFOITLevel(*this, "UD_FIFOITLevel")
    , TB_FIFOcmd(*this, "TB_FIFOcmd", "FIFO Setting Command:")
    , CB_Prescaler(*this, "CB_Prescaler", "Enable Prescaler (cs)")
    , TB_DataRate(*this, "TB_DataRate")
    , SL_DataRateLevel(*this, "SL_DataRateLevel", dividerRange.minimum, dividerRange.maximum, 0)
    , UD_DataRate(*this, "UD_DataRate")
    , TB_DataRateValue(*this, "TB_DataRateValue", "", TextField::Access::ReadOnly)
    , TB_DataRateCmd(*this, "TB_DataRateCmd", "Data Rate Command:")
    , SL_WakeUpM(*this, "SL_WakeUpM", extendedWakeUp.mantissa.minimum, extendedWakeUp.mantissa.maximum, 0)
    , UD_WakeUpM(*this, "UD_WakeUpM")
    , SL_WakeUpR(*this, "SL_WakeUpR", extendedWakeUp.exponent.minimum, extendedWakeUp.exponent.maximum, 0)
    , UD_WakeUpR(*this, "UD_WakeUpR")
    , WKUPD(*this, "WKUPD")
    , UD_WakeUpD(*this, "UD_WakeUpD")
    , EWkupw(*this, "EWkupw", "Extended Wake-Up Timer Command:")
    , CB_EnLowPowerXtal(*this, "CB_EnLowPowerXtal", "Enable Low Power for Xtal")
    , CB_512ClockTail(*this, "CB_512ClockTail", "512/128 bit clock Tail")
    , CB_DisWUTAutocal(*this, "CB_DisWUTAutocal", "Disable WUT Autocalibration")
    , CB_DisFIFOAutoSleep(*this, "CB_DisFIFOAutoSleep", "Disable Autosleep on FIFO IT")
    , CB_EnWUonIT(*this, "CB_EnWUonIT", "Enable Auto wake up on IT")
    , C_PLLBW(*this, "C_PLLBW")
    , EFCmd(*this, "EFCmd", "Extended Features Command:")
    , thresholdLink(LBD, onyxTraits.threshold.range, nullptr, &UD_LBD)
    , fifoLevel(TB_FIFOITLevel, levelRange, &SL_FIFOITLevel, &UD_FIFOITLevel)
    , dataRateDivider(TB_DataRate, dividerRange, &SL_DataRateLevel, &UD_DataRate)
    , wakeUpM(WKUPM, extendedWakeUp.mantissa, &SL_WakeUpM, &UD_WakeUpM)
    , wakeUpR(WKUPR, extendedWakeUp.exponent, &SL_WakeUpR, &UD_WakeUpR)
    , wakeUpD(WKUPD, extendedWakeUp.divisor, nullptr, &UD_WakeUpD) {
    wire();
    defineWords();
}

void KT1102::wire() {
    setScaledLists({&CLKout, &ModFreq});
    feed(OutputPower, Ctrlw);
    WakeUpFormulaPower.setCaption("R-D");
    ThresholdFormula.setCaption("V       = 2.0 + T * 0.1 [V]");
    // The clock selection stands in the low battery word.
    CLKout.onChange = [this] { LBD_LostFocus(); };
    CB_ebs.onChange = [this] { LBD_LostFocus(); };
    feed(CB_EnFIFO, TB_FIFOcmd);
    TB_FIFOITLevel.onCommit = [this] { TB_FIFOITLevel_LostFocus(); };
    CB_Prescaler.onChange = [this] { TB_DataRate_LostFocus(); };
    TB_DataRate.onCommit = [this] { TB_DataRate_LostFocus(); };
    WKUPD.onCommit = [this] { WKUPM_LostFocus(); };
    for (TickBox* box :
         {&CB_EnLowPowerXtal, &CB_512ClockTail, &CB_DisWUTAutocal, &CB_DisFIFOAutoSleep, &CB_EnWUonIT}) {
        feed(*box, EFCmd);
    }
    feed(C_PLLBW, EFCmd);
}

void KT1102::defineWords() {
    Ctrlw.define(0x8000, {bandBits(), bits(10, 8, "output power", OutputPower), capacitanceBits(),
                          bits(3, 3, "polarity", ModPol), bits(2, 0, "deviation", ModFreq, "kHz")});
    TB_FIFOcmd.define(0xCE00,
                      {bit(7, "transmit FIFO", CB_EnFIFO),
                       readBack(bits(5, 0, "interrupt level", [this] { return fifoLevel.value(); }),
                                numberSetting(
                                    TB_FIFOITLevel, [this] { return fifoLevel.value(); }, levelRange))});
    TB_DataRateCmd.define(
        0xC800, {bit(7, "prescaler", CB_Prescaler),
                 readBack(bits(
                              6, 0, "divider", [this] { return dataRateDivider.value(); },
                              [this] { return TB_DataRateValue.text() + " kbps"; }),
                          numberSetting(
                              TB_DataRate, [this] { return dataRateDivider.value(); }, dividerRange))});
    LBDw.define(0xC200, {bits(7, 5, "clock output", CLKout, "MHz"), bit(4, "32 kHz clock in sleep", CB_ebs),
                         thresholdBits(3)});
    Wkupw.define(0xE000,
                 {readBack(bits(11, 8, "R", [this] { return wakeUp.exponent; }), wakeUpExponent()),
                  readBack(bits(7, 0, "low byte of M", [this] { return wakeUpLowByte(wakeUp.mantissa); }),
                           wakeUpMantissa())});
    EWkupw.define(0xC300,
                  {readBack(bits(7, 6, "D", [this] { return wakeUp.divisor; }),
                            numberSetting(
                                WKUPD, [this] { return wakeUp.divisor; }, extendedWakeUp.divisor)),
                   readBack(bits(5, 0, "high bits of M", [this] { return wakeUpHighBits(wakeUp.mantissa); }),
                            wakeUpMantissa(), 8)});
    EFCmd.define(0xB000, {bit(7, "low power crystal oscillator", CB_EnLowPowerXtal),
                          bit(6, "clock tail of 512 bits", CB_512ClockTail),
                          bit(4, "wake-up timer calibration off", CB_DisWUTAutocal),
                          bits(3, 2, "PLL bandwidth", C_PLLBW),
                          bit(1, "sleep at FIFO interrupt off", CB_DisFIFOAutoSleep),
                          bit(0, "wake up at interrupt", CB_EnWUonIT)});
    setWords({&Ctrlw, &Freqw, &PowerMw, &TB_FIFOcmd, &TB_DataRateCmd, &LBDw, &Wkupw, &EWkupw, &EFCmd});
}

void KT1102::setDefaults() {
    TransmitterPanel::setDefaults();
    showSharedRevision();
    C_PLLBW.fill(std::vector<std::string>{"15 kHz", "30 kHz", "60 kHz", "120 kHz"});
    C_PLLBW.select(0);
    TB_FIFOITLevel.setText("3");
    TB_FIFOITLevel_LostFocus();
    TB_DataRate.setText("&H13");
    TB_DataRate_LostFocus();
    WKUPM.setText("150");
    WKUPR.setText("1");
    WKUPD.setText("0");
    WKUPM_LostFocus();
}

std::vector<Element*> KT1102::lowBatteryElements() {
    return {&LBD, &LBDV, &LBDw, &UD_LBD};
}

std::vector<Element*> KT1102::wakeUpElements() {
    return {&WKUPM,      &WKUPR,      &WKUPD,      &SL_WakeUpM, &SL_WakeUpR,
            &UD_WakeUpM, &UD_WakeUpR, &UD_WakeUpD, &Wkupw,      &EWkupw};
}

WakeUpSetting KT1102::commitWakeUpFields() {
    return {wakeUpM.commit(), wakeUpR.commit(), wakeUpD.commit()};
}

void KT1102::wakeUpCommitted() {
    EWkupw.rebuild();
}

void KT1102::TB_FIFOITLevel_LostFocus() {
    fifoLevel.commit();
    TB_FIFOcmd.rebuild();
}

void KT1102::TB_DataRate_LostFocus() {
    Prescaler prescaler = CB_Prescaler.ticked() ? Prescaler::On : Prescaler::Off;
    TB_DataRateValue.setText(dataRate(dataRateDivider.commit(), prescaler, CrystalRatio).text);
    TB_DataRateCmd.rebuild();
}

void KT1102::crystalChanged() {
    TB_DataRate_LostFocus();
}

void KT1102::commitFurtherRead() {
    WKUPM_LostFocus();
}

KeptParts KT1102::keptParts() {
    KeptParts parts = TransmitterPanel::keptParts();
    for (LinkedNumber* number :
         {&thresholdLink, &fifoLevel, &dataRateDivider, &wakeUpM, &wakeUpR, &wakeUpD}) {
        parts.push_back(number->kept());
    }
    return parts;
}

ConfigurationLines KT1102::configuration() {
    return joined({crystalLines(),
                   {shownAndHeldTextLine(FreqCenter)},
                   modulationLines(),
                   powerTickLines(),
                   {tickLine(CB_EnFIFO), textLine(TB_FIFOITLevel, [this] { TB_FIFOITLevel_LostFocus(); }),
                    tickLine(CB_Prescaler), textLine(TB_DataRate, [this] { TB_DataRate_LostFocus(); }),
                    supplyLine(), textLine(Revision), textLine(LBD), textLine(WKUPD), textLine(WKUPM),
                    textLine(WKUPR), tickLine(CB_ebs), tickLine(CB_EnLowPowerXtal), tickLine(CB_512ClockTail),
                    tickLine(CB_DisWUTAutocal), tickLine(CB_DisFIFOAutoSleep), tickLine(CB_EnWUonIT),
                    positionLine(C_PLLBW)}});
}

} // namespace zor
