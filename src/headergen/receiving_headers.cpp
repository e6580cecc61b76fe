// SPDX-License-Identifier: MIT
#include "headergen/receiving_headers.h"

#include "panels/receivers/receiving_panel.h"

namespace zor {

// clang-format off

HeaderBlock wakeUpBlock(const ReceivingPanel& p) {
    return {"WTC_CMD", 3, wordOf(p.Wkupw), "Wake Up Timer Command",
            {shown("Time Period: ", 3, p.WKUPTIME, p.Label8)}};
}

HeaderBlock dutyCycleBlock(const ReceivingPanel& p) {
    return {"LOWDUTYCCL_CMD", 2, wordOf(p.Dutyw), "Low Duty-Cycle Command",
            {shown("Low Duty-Cycle:",  3, p.DUTY_CALC, p.DutyUnit),
             enabled("Low Duty Mode:", 3, p.enlowdc)}};
}

HeaderBlock lowBatteryBlock(const ReceivingPanel& p) {
    return {"LBD_CMD", 3, wordOf(p.LBDw), "Low Battery Detector and Microcontroller Clock Divider Command",
            {shown("Threshold Voltage: ",     2, p.LBDV, " V"),
             shown("Clock Output Frequency:", 2, p.CLKout, " MHz")}};
}

HeaderBlock frequencyControlBlock(const ReceivingPanel& p) {
    return {"AFC_CMD", 3, wordOf(p.AFCw), "AFC Command",
            {shown("Automatic Operation Mode:", 1, p.AFCauto),
             shown("Range Limit:",              3, p.AFCres),
             enabled("Strobe:",                 4, p.afcst),
             enabled("Fine Mode:",              3, p.afcfi),
             enabled("Output:",                 4, p.afcoen),
             enabled("AFC Operation:",          3, p.afcen)}};
}

HeaderBlock dataFilterBlock(const ReceivingPanel& p) {
    return {"DATAFILTER_CMD", 2, wordOf(p.Datafiltw), "Data Filter Command",
            {shown("Clock Recovery Mode:", 2, p.ClkRecMode),
             shown("Filter Type:",         3, p.FILTTYPE),
             shown("DQD Parameter:",       3, p.StatefiltNr)}};
}

HeaderBlock dataRateBlock(const ReceivingPanel& p) {
    return {"DATARATE_CMD", 2, wordOf(p.Dataratew), "Data Rate Command",
            {enabled("Prescaler:", 3, p.dataratepresc),
             shown("Data Rate:",   3, p.DATARATE, p.DataRateUnit)}};
}

// clang-format on

} // namespace zor
