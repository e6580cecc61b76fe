// SPDX-License-Identifier: MIT
// The headers of the two transceivers.
#include "headergen/chip_headers.h"
#include "headergen/receiving_headers.h"

#include "panels/receivers/beryl_v3.h"
#include "panels/receivers/frm_topaz.h"

namespace zor {

namespace {

// clang-format off

HeaderBlock configurationBlock(const TransceiverPanel& p) {
    return {"CONFIGSET_CMD", 2, wordOf(p.Ctrlw), "Configuration Setting Command",
            {enabled("TX Register:", 3, p.EnTXLatch),
             enabled("RX FIFO:",     3, p.EnRxFIFO),
             bandLine(p),
             shown("Crystal Load Capacitance:", 1, p.Cxtal)}};
}

HeaderBlock powerBlock(const TransceiverPanel& p) {
    return {"POWERMAN_CMD", 2, wordOf(p.PowerW), "Power Management Command",
            {enabled("Receiver Chain:",       3, p.chb_er),
             enabled("Base Band:",            3, p.chb_ebb),
             enabled("Transmitter:",          3, p.chb_et),
             enabled("Synthesizer:",          3, p.chb_es),
             enabled("Crystal Oscillator:",   2, p.chb_ex),
             enabled("Low Battery Detector:", 2, p.chb_eb),
             enabled("Wake up Timer:",        3, p.chb_ew),
             disabled("Clock Output:",        3, p.chb_dc)}};
}

DetailLine pinFunctionLine(const TransceiverPanel& p) {
    DetailLine line{"Function of Pin 16:", 2, std::nullopt};
    if (p.Pin8IsVDI.chosen()) {
        // Not quite the option's caption.
        line.value = "VDI Output";
    } else if (p.Pin8IsInt.chosen()) {
        line.value = p.Pin8IsInt.caption();
    }
    return line;
}

HeaderBlock receiverBlock(const TransceiverPanel& p) {
    return {"RECEIVERCNT_CMD", 2, wordOf(p.Recw), "Receiver Control Command",
            {pinFunctionLine(p),
             shown("VDI Response Time:", 2, p.VDI),
             shown("Baseband Bandwidth", 2, p.BasebandBW, " kHz"),
             shown("LNA Gain Set:",      3, p.LNAgain),
             shown("RSSI Treshold:",     3, p.DRSSI)}};
}

/// @param behindTheLevel  lines of the chip's own
HeaderBlock fifoBlock(const TransceiverPanel& p, const DetailLines& behindTheLevel = {}) {
    HeaderBlock block = with({"FIFO_RESET_CMD", 2, wordOf(p.FIFOw), "FIFO and Reset Mode Command",
                              {shown("FIFO IT Level:", 3, p.ITlevelNr)}}, behindTheLevel);
    return with(std::move(block), {shown("FIFO Fill Start Condition:", 1, p.FIFOstrt),
                                   enabled("Synchron Latch:",          3, p.ffillen),
                                   disabled("Sensitive Reset:",        2, p.SensResEn)});
}

HeaderBlock transmitterBlock(const TransceiverPanel& p) {
    return {"TXCONFIG_CMD", 2, wordOf(p.TXCtrlw), "TX Configuration Control Command",
            {shown("Modulation Polarity:", 2, p.ModPol),
             shown("Frequency Deviation:", 2, p.ModFreq, " kHz"),
             shown("Output Power:",        3, p.OutputPower)}};
}

} // namespace

HeaderBlocks headerBlocks(const BerylV3& p) {
    return {
        configurationBlock(p),
        powerBlock(p),
        frequencyBlock(p),
        dataRateBlock(p),
        receiverBlock(p),
        dataFilterBlock(p),
        fifoBlock(p),
        frequencyControlBlock(p),
        transmitterBlock(p),
        wakeUpBlock(p),
        dutyCycleBlock(p),
        lowBatteryBlock(p),
    };
}

HeaderBlocks headerBlocks(const FRM_Topaz& p) {
    return {
        configurationBlock(p),
        powerBlock(p),
        frequencyBlock(p),
        dataRateBlock(p),
        receiverBlock(p),
        dataFilterBlock(p),
        fifoBlock(p, {shown("Synchron Pattern:", 2, p.SynchPattern)}),
        {"SYNCPATT_CMD", 2, wordOf(p.SynchPatt), "Synchron Pattern Command",
         {hexadecimal("Synchron Pattern:", 2, p.TB_SP)}},
        frequencyControlBlock(p),
        transmitterBlock(p),
        {"PLLSET_CMD", 2, wordOf(p.PLLCmd), "PLL Setting Command",
         {enabled("XTAL Low Power Mode:", 2, p.CB_LPX),
          enabled("PHD Delay:",           3, p.CB_DDY),
          disabled("PLL Dithering:",      3, p.CB_DDIT),
          shown("uC CLK frequency:",      2, p.CB_RFT),
          shown("PLL bandwidth:",         3, p.CB_PLLBW)}},
        wakeUpBlock(p),
        dutyCycleBlock(p),
        lowBatteryBlock(p),
    };
}

// clang-format on

} // namespace zor
