// SPDX-License-Identifier: MIT
// The headers of the two receivers.
#include "headergen/chip_headers.h"
#include "headergen/receiving_headers.h"

#include "panels/receivers/amber_v1.h"
#include "panels/receivers/coral.h"

namespace zor {

namespace {

// clang-format off

HeaderBlock configurationBlock(const ReceiverPanel& p) {
    return {"CONFIGSET_CMD", 2, wordOf(p.Ctrlw), "Configuration Setting Command",
            {bandLine(p),
             enabled("Low Battery Detector:",   2, p.enb),
             enabled("Wake up Timer:",          3, p.ent),
             enabled("Crystal Oscillator:",     2, p.enx),
             shown("Crystal Load Capacitance:", 1, p.Cxtal),
             shown("Baseband Bandwidth",        2, p.BasebandBW, " kHz"),
             disabled("Clock Output:",          3, p.disclk)}};
}

HeaderBlock receiverBlock(const ReceiverPanel& p) {
    return {"RECEIVERSET_CMD", 2, wordOf(p.Recw), "Receiver Setting Command",
            {shown("VDI Signal:",       3, p.VDI),
             shown("LNA Gain Set:",     3, p.LNAgain),
             shown("RSSI Treshold:",    3, p.DRSSI),
             enabled("Receiver Chain:", 3, p.enrec)}};
}

HeaderBlock fifoBlock(const ReceiverPanel& p, const char* title) {
    return {"FIFO_CMD", 3, wordOf(p.FIFOw), title,
            {shown("FIFO IT Level:",             3, p.ITlevelNr),
             shown("FIFO Fill Start Condition:", 1, p.FIFOstrt),
             enabled("Synchron Latch:",          3, p.ffillen),
             enabled("FIFO Operation:",          3, p.fmodeen)}};
}

} // namespace

HeaderBlocks headerBlocks(const AmberV1& p) {
    return {
        configurationBlock(p),
        frequencyBlock(p),
        receiverBlock(p),
        wakeUpBlock(p),
        dutyCycleBlock(p),
        lowBatteryBlock(p),
        frequencyControlBlock(p),
        dataFilterBlock(p),
        // The rate alone: this header says nothing of the prescaler.
        {"DATARATE_CMD", 2, wordOf(p.Dataratew), "Data Rate Command",
         {shown("Data Rate:", 3, p.DATARATE, p.DataRateUnit)}},
        fifoBlock(p, "Output and FIFO Mode Command"),
    };
}

HeaderBlocks headerBlocks(const Coral& p) {
    return {
        configurationBlock(p),
        frequencyBlock(p),
        receiverBlock(p),
        {"WTC_CMD", 3, wordOf(p.Wkupw), "Wake Up Timer Command", {}},
        {"EWTC_CMD", 3, wordOf(p.EWkupw), "Extended Wake Up Timer Command",
         {shown("Time Period: ", 3, p.WKUPTIME, p.Label8)}},
        lowBatteryBlock(p),
        frequencyControlBlock(p),
        with(dataFilterBlock(p),
             {disabled("Autosleep on FIFO IT:", 2, p.DFILTbit5),
              enabled("Auto wake up on IT:",    3, p.cb_ewi)}),
        dataRateBlock(p),
        fifoBlock(p, "FIFO Setting Command"),
        {"EFC_CMD", 3, wordOf(p.EFw), "Extended Features Command",
         {enabled("Low Power for XTAL:",   2, p.CB_exlp),
          either("Clock Tail:",            3, p.OB_512bit.chosen(), "512 bit", "128 bit"),
          disabled("WUT autocalibration:", 2, p.CB_dcal),
          shown("PLL bandwidth:",          3, p.CB_PllBW)}},
    };
}

// clang-format on

} // namespace zor
