// SPDX-License-Identifier: MIT
#include "shell/tool_table.h"

#include "compare/frm_compare.h"
#include "compare/frm_set_from.h"
#include "eeprom/ecet.h"
#include "eeprom/eeprom.h"
#include "eeprom/frm_cmd_sequence.h"
#include "headergen/frm_gen_header.h"
#include "registertool/spi.h"
#include "registertool/spi_sub2.h"
#include "rftools/amber_v1_rflink.h"
#include "rftools/beryl_rf_link_test.h"
#include "rftools/frm_link.h"
#include "rftools/frm_link_rx.h"
#include "rftools/opal_v2_test.h"
#include "rftools/test_functions.h"
#include "rftools/tx_search.h"
#include "shell/about.h"
#include "utilities/firm_load.h"
#include "utilities/guide.h"
#include "utilities/mac_sniffer.h"
#include "utilities/power_supply.h"
#include "utilities/terminal.h"
#include "utilities/wire_log.h"

#include <algorithm>
#include <cassert>

namespace zor {

namespace {

template <class Window>
std::unique_ptr<Form> make(Bench& bench) {
    return std::make_unique<Window>(bench);
}

using Menu = MainMenu;
using Switch = WindowSwitches;

} // namespace

const std::vector<ToolRow>& toolRows() {
    constexpr auto placed = WorkspaceValues::TopLeft;
    constexpr auto sized = WorkspaceValues::TopLeftHeightWidth;
    constexpr auto script = WorkspaceValues::ScriptTopLeftHeightWidth;
    // clang-format off
    static const std::vector<ToolRow> rows = {
        {Tool::frm_Splash,             "frm_Splash",             &Switch::SplashOn,         nullptr,                       make<Splash>},
        {Tool::Help_R1,                "Help_R1",                nullptr,                   nullptr,                       make<DataFilterHelp>},
        {Tool::Terminal,               "Terminal",               &Switch::Terminalon,       &Menu::mnutoolsTerminal,       make<Terminal>, script},
        {Tool::frm_PowerSupply,        "frm_PowerSupply",        &Switch::PowerSupplyOn,    nullptr,                       make<PowerSupply>},
        {Tool::eeprom,                 "eeprom",                 &Switch::EEPROMon,         nullptr,                       make<Eeprom>, sized},
        {Tool::ECET,                   "ECET",                   nullptr,                   &Menu::mnutoolsECET,           make<ECET>},
        {Tool::Frm_CmdSequence,        "Frm_CmdSequence",        nullptr,                   nullptr,                       make<Frm_CmdSequence>},
        {Tool::frm_Link,               "frm_Link",               &Switch::CWLinkTXOn,       &Menu::mnutoolsRFSetup_TX,     make<frm_Link>},
        {Tool::frm_Link_RX,            "frm_Link_RX",            &Switch::CWLinkRXOn,       &Menu::mnutoolsRFSetup_RX,     make<frm_Link_RX>},
        {Tool::AmberV1rflink,          "AmberV1rflink",          &Switch::RxLinkOn,         nullptr,                       makeAmberV1rflink, sized},
        {Tool::AmberV1rflink_LB2,      "AmberV1rflink_LB2",      &Switch::RxLinkOn_LB2,     nullptr,                       makeAmberV1rflink_LB2, sized},
        {Tool::Frm_BerylRfLinkTest,    "Frm_BerylRfLinkTest",    &Switch::TRxLinkOn,        &Menu::mnuToolsBerylRFlink,    make<Frm_BerylRfLinkTest>},
        {Tool::OpalV2test,             "OpalV2test",             &Switch::OpalV2testOn,     &Menu::mnuToolsOpalTestmode,   make<OpalV2test>, placed},
        {Tool::Frm_AmberTestFunctions, "Frm_AmberTestFunctions", nullptr,                   &Menu::mnuToolsAmberTestmode,  make<Frm_AmberTestFunctions>},
        {Tool::Frm_BerylTestFunctions, "Frm_BerylTestFunctions", nullptr,                   &Menu::mnuToolsBerylTestmode,  make<Frm_BerylTestFunctions>},
        {Tool::SPI,                    "SPI",                    nullptr,                   &Menu::mnuSPI,                 make<SPI>},
        {Tool::SPIsub2,                "SPIsub2",                nullptr,                   nullptr,                       make<SPIsub2>},
        {Tool::Frm_GenHeader,          "Frm_GenHeader",          nullptr,                   &Menu::mnuGenCHeader,          make<Frm_GenHeader>},
        {Tool::FirmLoad,               "FirmLoad",               &Switch::FirmLoadOn,       &Menu::mnuload,                make<FirmLoad>},
        {Tool::frm_VireoMacSniffer,    "frm_VireoMacSniffer",    &Switch::VireoMacSnifferOn, &Menu::mnutoolsSniffer,       make<MacSniffer>},
        {Tool::frm_TxSearch,           "frm_TxSearch",           nullptr,                   &Menu::mnutoolsTxSearch,       make<TxSearch>},
        {Tool::frm_WireLog,            "frm_WireLog",            nullptr,                   &Menu::mnutoolsWireLog,        make<WireLog>},
        {Tool::frm_Guide,              "frm_Guide",              nullptr,                   nullptr,                       make<Guide>},
        {Tool::frm_SetFrom,            "frm_SetFrom",            nullptr,                   nullptr,                       make<frm_SetFrom>},
        {Tool::frm_Compare,            "frm_Compare",            nullptr,                   &Menu::mnutoolsCompare,        make<frm_Compare>},
    };
    // clang-format on
    return rows;
}

const ToolRow& rowOf(Tool tool) {
    const ToolRow& row = toolRows().at(static_cast<std::size_t>(tool));
    assert(row.tool == tool && "a row of the tools' table stands at another place than its tool");
    return row;
}

const ToolRow* findToolRow(std::string_view form) {
    const std::vector<ToolRow>& rows = toolRows();
    auto row = std::find_if(rows.begin(), rows.end(),
                            [form](const ToolRow& candidate) { return candidate.form == form; });
    return row == rows.end() ? nullptr : &*row;
}

} // namespace zor
