// SPDX-License-Identifier: MIT
// The headers of the three transmitters.
#include "headergen/chip_headers.h"

#include "panels/transmitters/jade_v1.h"
#include "panels/transmitters/kt1102.h"
#include "panels/transmitters/opal_v2.h"

namespace zor {

namespace {

// clang-format off

HeaderBlocks autoPowerBlocks(const AutoPowerTransmitter& p) {
    return {
        {"CONFIGSET_CMD", 2, wordOf(p.Ctrlw), "Configuration Setting Command",
         {bandLine(p),
          shown("Clock Output Frequency:",  2, p.CLKout, " MHz"),
          shown("Crystal Load Capacitance:", 1, p.Cxtal),
          shown("Modulation Polarity:",     2, p.ModPol),
          shown("Frequency Deviation:",     2, p.ModFreq, " kHz")}},
        frequencyBlock(p),
        {"POWERMAN_CMD", 2, wordOf(p.PowerMw), "Power Management Command",
         {enabled("Crystal and Synthesizer Auto Control:", 1, *p.pm(7)),
          enabled("Power Amplifier Auto Control",          1, *p.pm(6)),
          enabled("Crystal Oscillator:",                   2, *p.pm(5)),
          enabled("Synthesizer:",                          3, *p.pm(4)),
          enabled("Power Amplifier:",                      3, *p.pm(3)),
          enabled("Low Battery Detector:",                 2, *p.pm(2)),
          enabled("Wake up Timer:",                        3, *p.pm(1)),
          disabled("Clock Output:",                        3, *p.pm(0))}},
        {"POWERSET_CMD", 2, wordOf(p.OutPowerw), "Power Setting Command",
         {shown("Modulation type:", 2, p.Modulation),
          shown("Output Power:",    3, p.OutputPower)}},
        {"LBD_CMD", 3, wordOf(p.LBDw), "Low Battery Detector Command",
         {shown("Threshold Voltage: ", 2, p.LBDV, " V")}},
        {"SLEEP_CMD", 2, constant("0xC400"), "Sleep Command",
         {always("Clock Tail:", 3, "0 periods")}},
        // In seconds, whatever unit the panel shows the time in.
        {"WTC_CMD", 3, wordOf(p.Wkupw), "Wake Up Timer Command",
         {shown("Time Period: ", 3, p.WKUPTIME, " seconds")}},
    };
}

// clang-format on

} // namespace

HeaderBlocks headerBlocks(const OpalV2& panel) {
    return autoPowerBlocks(panel);
}

HeaderBlocks headerBlocks(const JadeV1& panel) {
    // Its data rate and PLL words have no macro.
    return autoPowerBlocks(panel);
}

HeaderBlocks headerBlocks(const KT1102& p) {
    // clang-format off
    return {
        {"CONFIGSET_CMD", 2, wordOf(p.Ctrlw), "Configuration Setting Command",
         {bandLine(p),
          shown("Output Power:",             3, p.OutputPower),
          shown("Crystal Load Capacitance:", 1, p.Cxtal),
          shown("Modulation Polarity:",      2, p.ModPol),
          shown("Frequency Deviation:",      2, p.ModFreq, " kHz")}},
        frequencyBlock(p),
        {"POWERMAN_CMD", 2, wordOf(p.PowerMw), "Power Management Command",
         {enabled("Crystal Oscillator:",   2, *p.pm(5)),
          enabled("Synthesizer:",          3, *p.pm(4)),
          enabled("Power Amplifier:",      2, *p.pm(3)),
          enabled("Low Battery Detector:", 2, *p.pm(2)),
          enabled("Wake up Timer:",        3, *p.pm(1)),
          disabled("Clock Output:",        3, *p.pm(0))}},
        {"FIFO_CMD", 3, wordOf(p.TB_FIFOcmd), "FIFO Setting Command",
         {enabled("TX FIFO:",     3, p.CB_EnFIFO),
          shown("FIFO IT Level:", 3, p.TB_FIFOITLevel)}},
        {"DATARATE_CMD", 2, wordOf(p.TB_DataRateCmd), "Data Rate Command",
         {enabled("Prescaler:", 3, p.CB_Prescaler),
          shown("Data Rate:",   3, p.TB_DataRateValue, " kbps")}},
        {"LBD_CMD", 3, wordOf(p.LBDw), "Low Battery Detector and Microcontroller Clock Divider Command",
         {shown("Threshold Voltage: ",     2, p.LBDV, " V"),
          shown("Clock Output Frequency:", 2, p.CLKout, " MHz"),
          enabled("32 kHz clk in sleep:",  2, p.CB_ebs)}},
        {"WTC_CMD", 3, wordOf(p.Wkupw), "Wake Up Timer Command", {}},
        {"EWTC_CMD", 3, wordOf(p.EWkupw), "Extended Wake Up Timer Command",
         {shown("Time Period: ", 3, p.WKUPTIME, p.Label8)}},
        {"EFC_CMD", 3, wordOf(p.EFCmd), "Extended Features Command",
         {enabled("Low Power for XTAL:",    2, p.CB_EnLowPowerXtal),
          either("Clock Tail:",             3, p.CB_512ClockTail.ticked(), "512 bit", "128 bit"),
          disabled("WUT autocalibration:",  2, p.CB_DisWUTAutocal),
          disabled("Autosleep on FIFO IT:", 2, p.CB_DisFIFOAutoSleep),
          enabled("Auto wake up on IT:",    2, p.CB_EnWUonIT),
          shown("PLL bandwidth:",           3, p.C_PLLBW)}},
    };
    // clang-format on
}

} // namespace zor
