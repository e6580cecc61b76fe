// SPDX-License-Identifier: MIT
#include "panels/common/setting_captions.h"

#include "elements/element.h"
#include "elements/tick_box.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zor {

namespace {

/// Settings that have no caption of their own, or one that a sentence cannot use.
constexpr std::array<std::pair<std::string_view, std::string_view>, 57> captions = {{
    {"StdCrystal", "Crystal"},
    {"NonStdCrystal", "Crystal"},
    {"Crystalfreq", "Crystal frequency"},
    {"Cxtal", "Crystal load"},
    {"Band315", "Band"},
    {"Band433", "Band"},
    {"Band868", "Band"},
    {"Band915", "Band"},
    {"FreqCenter", "Centre"},
    {"PowerSupply", "Supply"},
    {"CLKout", "Clock output"},
    {"Revision", "Revision"},
    {"LBD", "Battery threshold T"},
    {"LBDV", "Battery threshold"},
    {"UD_LBD", "Battery threshold T"},
    {"WKUPM", "Wake-up M"},
    {"WKUPR", "Wake-up R"},
    {"WKUPD", "Wake-up D"},
    {"SL_WakeUpM", "Wake-up M"},
    {"SL_WakeUpR", "Wake-up R"},
    {"pm0", "Disable clock output"},
    {"pm6", "Power amplifier"},
    {"disclk", "Disable clock output"},
    {"ModPol", "Polarity"},
    {"ModFreq", "Deviation"},
    {"OutputPower", "Output power"},
    {"Modulation", "Modulation"},
    {"CB_MaxDataRate", "Maximum data rate"},
    {"DATARATEDIV", "Data rate R"},
    {"TB_DataRate", "Data rate R"},
    {"SL_DataRateLevel", "Data rate R"},
    {"dataratepresc", "Enable prescaler"},
    {"TB_FIFOITLevel", "FIFO level"},
    {"SL_FIFOITLevel", "FIFO level"},
    {"ITLEVEL", "FIFO level"},
    {"ITlevelNr", "FIFO level"},
    {"C_PLLBW", "PLL bandwidth"},
    {"CB_PllBW", "PLL bandwidth"},
    {"CB_PLLBW", "PLL bandwidth"},
    {"VDI", "VDI"},
    {"LNAgain", "LNA gain"},
    {"DRSSI", "DRSSI threshold"},
    {"BasebandBW", "Bandwidth"},
    {"DUTY", "Duty cycle D"},
    {"AFCauto", "AFC mode"},
    {"AFCres", "AFC range limit"},
    {"afcoen", "AFC output"},
    {"afcst", "AFC strobe"},
    {"FILTTYPE", "Filter"},
    {"ClkRecMode", "Clock recovery"},
    {"STATEFILT", "DQD parameter"},
    {"StatefiltNr", "DQD parameter"},
    {"FIFOstrt", "FIFO fill start"},
    {"Pin8IsInt", "Pin 16 function"},
    {"Pin8IsVDI", "Pin 16 function"},
    {"OB_512bit", "Clock tail length"},
    {"OB_128bit", "Clock tail length"},
}};

} // namespace

std::string settingCaption(const Element& element) {
    auto row = std::find_if(captions.begin(), captions.end(),
                            [&](const auto& candidate) { return candidate.first == element.name(); });
    if (row != captions.end()) {
        return std::string(row->second);
    }
    std::string caption = element.caption();
    std::size_t begin = caption.find_first_not_of(' ');
    std::size_t end = caption.find_last_not_of(" :");
    return begin == std::string::npos || end == std::string::npos ? element.name()
                                                                  : caption.substr(begin, end + 1 - begin);
}

} // namespace zor
