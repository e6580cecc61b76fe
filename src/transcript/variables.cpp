// SPDX-License-Identifier: MIT
#include "transcript/variables.h"

#include "registertool/spi.h"

#include <algorithm>
#include <iterator>

namespace zor::transcript {

namespace {

std::string shown(const std::string& value) {
    return value;
}
std::string shown(bool value) {
    return value ? "true" : "false";
}
std::string shown(std::int32_t value) {
    return std::to_string(value);
}
std::string shown(std::int16_t value) {
    return std::to_string(value);
}

/// A variable of the register tool; empty while the tool is closed.
std::string ofRegisterTool(MainWindow& program, std::string (*value)(SPI&)) {
    auto* tool = dynamic_cast<SPI*>(program.bench().tools.find(Tool::SPI));
    return tool == nullptr ? std::string() : value(*tool);
}

struct Variable {
    const char* name;
    std::string (*value)(MainWindow&);
};

const Variable variables[] = {
    {"Last7", [](MainWindow& p) { return shown(p.bench().link.Last7); }},
    {"Last15", [](MainWindow& p) { return shown(p.bench().link.Last15); }},
    {"Last100", [](MainWindow& p) { return shown(p.bench().link.Last100); }},
    {"Buf1", [](MainWindow& p) { return shown(p.bench().link.Buf1); }},
    {"LoadBoardRev", [](MainWindow& p) { return shown(p.bench().link.LoadBoardRev); }},
    {"UsbLocation", [](MainWindow& p) { return shown(p.bench().link.UsbLocation); }},
    {"CurrentPath", [](MainWindow& p) { return shown(p.bench().link.CurrentPath); }},
    {"CurrentDrive", [](MainWindow& p) { return shown(p.bench().link.CurrentDrive); }},
    {"ListChangeBlocked", [](MainWindow& p) { return shown(p.bench().link.ListChangeBlocked); }},
    {"LoadBoardIndex", [](MainWindow& p) { return shown(p.bench().link.LoadBoardIndex); }},
    {"Commport_min", [](MainWindow& p) { return shown(p.bench().preferences.Commport_min); }},
    {"Commport_max", [](MainWindow& p) { return shown(p.bench().preferences.Commport_max); }},
    {"Pref_LoadWS", [](MainWindow& p) { return shown(p.bench().preferences.Pref_LoadWS); }},
    {"Pref_CCautoLoad", [](MainWindow& p) { return shown(p.bench().preferences.Pref_CCautoLoad); }},
    {"Pref_OpalRevision", [](MainWindow& p) { return shown(p.bench().preferences.Pref_OpalRevision); }},
    {"Pref_JadeRevision", [](MainWindow& p) { return shown(p.bench().preferences.Pref_JadeRevision); }},
    {"Pref_AmberRevision", [](MainWindow& p) { return shown(p.bench().preferences.Pref_AmberRevision); }},
    {"Pref_RxLinkTimeout", [](MainWindow& p) { return shown(p.bench().preferences.Pref_RxLinkTimeout); }},
    {"Pref_Voltage", [](MainWindow& p) { return shown(p.bench().preferences.Pref_Voltage); }},
    {"TX0on", [](MainWindow& p) { return shown(p.bench().windows.TX0on); }},
    {"TX1on", [](MainWindow& p) { return shown(p.bench().windows.TX1on); }},
    {"TX2on", [](MainWindow& p) { return shown(p.bench().windows.TX2on); }},
    {"RXon", [](MainWindow& p) { return shown(p.bench().windows.RXon); }},
    {"RX1on", [](MainWindow& p) { return shown(p.bench().windows.RX1on); }},
    {"TRXon", [](MainWindow& p) { return shown(p.bench().windows.TRXon); }},
    {"TRX1on", [](MainWindow& p) { return shown(p.bench().windows.TRX1on); }},
    {"EEPROMon", [](MainWindow& p) { return shown(p.bench().windows.EEPROMon); }},
    {"Terminalon", [](MainWindow& p) { return shown(p.bench().windows.Terminalon); }},
    {"RxLinkOn", [](MainWindow& p) { return shown(p.bench().windows.RxLinkOn); }},
    {"RxLinkOn_LB2", [](MainWindow& p) { return shown(p.bench().windows.RxLinkOn_LB2); }},
    {"TRxLinkOn", [](MainWindow& p) { return shown(p.bench().windows.TRxLinkOn); }},
    {"OpalV2testOn", [](MainWindow& p) { return shown(p.bench().windows.OpalV2testOn); }},
    {"VireoMacSnifferOn", [](MainWindow& p) { return shown(p.bench().windows.VireoMacSnifferOn); }},
    {"PowerSupplyOn", [](MainWindow& p) { return shown(p.bench().windows.PowerSupplyOn); }},
    {"CWLinkRXOn", [](MainWindow& p) { return shown(p.bench().windows.CWLinkRXOn); }},
    {"CWLinkTXOn", [](MainWindow& p) { return shown(p.bench().windows.CWLinkTXOn); }},
    {"FirmLoadOn", [](MainWindow& p) { return shown(p.bench().windows.FirmLoadOn); }},
    {"SplashOn", [](MainWindow& p) { return shown(p.bench().windows.SplashOn); }},
    {"SelectedTx", [](MainWindow& p) { return shown(p.bench().selections.SelectedTx); }},
    {"SelectedRx", [](MainWindow& p) { return shown(p.bench().selections.SelectedRx); }},
    {"SelectedTrx", [](MainWindow& p) { return shown(p.bench().selections.SelectedTrx); }},
    {"SavedBoardIndex", [](MainWindow& p) { return shown(p.bench().link.LoadBoardIndex); }},
    {"Last7OK", [](MainWindow&) { return std::string(LinkVariables::Last7OK); }},
    {"Last7ERROR", [](MainWindow&) { return std::string(LinkVariables::Last7ERROR); }},
    {"CommState", [](MainWindow& p) { return shown(p.bench().link.CommState()); }},
    {"BijakuMode", [](MainWindow& p) { return shown(p.bench().IsBijakuModeSet()); }},
    {"ComFlag", [](MainWindow& p) { return shown(p.bench().connect->ComFlag); }},
    {"WaitTicks", [](MainWindow& p) { return shown(p.bench().connect->WaitTicks); }},
    {"WaitLimit", [](MainWindow& p) { return shown(p.bench().connect->WaitLimit); }},
    {"WaitArmed", [](MainWindow& p) { return shown(p.bench().connect->WaitArmed); }},
    {"UsbLocationCount", [](MainWindow& p) { return shown(p.bench().connect->usb.UsbLocationCount()); }},
    {"SavedDataSelectorIndex", [](MainWindow& p) { return shown(p.dataSelector().savedIndex()); }},
    {"SearchComNr", [](MainWindow& p) { return shown(p.portSearch().portNumber()); }},
    {"SearchComMax", [](MainWindow& p) { return shown(p.portSearch().lastPort()); }},
    {"SearchTicks", [](MainWindow& p) { return shown(p.portSearch().ticks()); }},
    {"SearchLimit", [](MainWindow& p) { return shown(p.portSearch().tickLimit()); }},
    {"FactoryClickPending", [](MainWindow& p) { return shown(p.factoryClickPending()); }},
    {"CurrentTab",
     [](MainWindow& p) { return ofRegisterTool(p, [](SPI& t) { return shown(t.CurrentTab); }); }},
    {"TxSize", [](MainWindow& p) { return ofRegisterTool(p, [](SPI& t) { return shown(t.fifo.TxSize); }); }},
    {"RxSize", [](MainWindow& p) { return ofRegisterTool(p, [](SPI& t) { return shown(t.fifo.RxSize); }); }},
    {"TxAddress",
     [](MainWindow& p) { return ofRegisterTool(p, [](SPI& t) { return shown(t.fifo.TxAddress); }); }},
    {"RxAddress",
     [](MainWindow& p) { return ofRegisterTool(p, [](SPI& t) { return shown(t.fifo.RxAddress); }); }},
    {"FifoSelectLine",
     [](MainWindow& p) { return ofRegisterTool(p, [](SPI& t) { return shown(t.fifo.FifoSelectLine); }); }},
    {"PlainCaption", [](MainWindow& p) { return p.plainCaption(); }},
};

} // namespace

std::optional<std::string> variable(MainWindow& program, std::string_view name) {
    const auto* row = std::find_if(std::begin(variables), std::end(variables),
                                   [name](const Variable& candidate) { return candidate.name == name; });
    if (row == std::end(variables)) {
        return std::nullopt;
    }
    return row->value(program);
}

} // namespace zor::transcript
