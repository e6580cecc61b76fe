// SPDX-License-Identifier: MIT
// Names for who listens: of elements that show neither a caption of their own nor one beside them.
#include "desktop/widgets/spoken.h"

#include "elements/element.h"
#include "elements/form.h"

#include <map>
#include <string>

namespace zor {

namespace {

/// By "Form.Element" or, for what many windows have, by the element's name alone; without an index.
const std::map<std::string, const char*, std::less<>>& names() {
    // clang-format off
    static const std::map<std::string, const char*, std::less<>> table{
        {"Statusline", "Status line"},
        {"main.CommStatus", "Comport status"},
        {"main.LoadBoard", "Connected board"},
        {"main.LoadboardList", "Boards found"},
        {"main.CB_Mode", "Data selector"},
        {"main.Steps", "Steps"},
        {"TabStrip1", "Pages"},
        {"STATEFILT", "DQD parameter"},
        {"ITLEVEL", "FIFO IT level"},
        {"KT1102.SL_WakeUpM", "M"},
        {"KT1102.SL_WakeUpR", "R"},
        {"KT1102.SL_FIFOITLevel", "Level"},
        {"KT1102.SL_DataRateLevel", "R"},
        {"OpalV2.Green", "Colour of the newer revision"},
        {"OpalV2.Yellow", "Colour of the older revision"},
        {"ProgressBar1", "Progress"},
        {"frm_Play.GR_Lines", "Lines of the transcript"},
        {"frm_Play.PR_Lines", "Lines carried out"},
        {"AmberV1rflink.Monitor", "Received text"},
        {"AmberV1rflink.Packets", "Received packets"},
        {"AmberV1rflink.Text1", "Received packet"},
        {"AmberV1rflink_LB2.Monitor", "Received text"},
        {"AmberV1rflink_LB2.Packets", "Received packets"},
        {"AmberV1rflink_LB2.Text1", "Received packet"},
        {"ECET.Reading", "Reading of the event routine"},
        {"ECET.TB_EEPROMContent", "EEPROM image"},
        {"ECET.TB_ErrorLog", "Log"},
        {"ECET.TB_EventContent", "Event routine"},
        {"ECET.TB_FillData", "Fill byte"},
        {"ECET.TB_Pattern", "Pattern"},
        {"ECET.TB_Payload", "Payload"},
        {"Frm_BerylRfLinkTest.TB_MonitoredData", "Monitor"},
        {"Frm_BerylRfLinkTest.Packets", "Received packets"},
        {"Frm_BerylRfLinkTest.TB_Payload", "Payload"},
        {"Frm_BerylRfLinkTest.TB_RepetitionTime", "Repetition time"},
        {"Frm_BerylRfLinkTest.TB_SynchPatt", "Synchron pattern"},
        {"Frm_GenHeader.TB_Header", "C header"},
        {"Frm_GenHeader.TB_Literal", "Literal before every name"},
        {"OpalV2test.Test0w", "Test command"},
        {"frm_PowerSupply.CursorCurrent", "Current at the cursor"},
        {"frm_PowerSupply.MarkA", "Mark A in seconds"},
        {"frm_PowerSupply.MarkB", "Mark B in seconds"},
        {"SPI.GuiNotes", "Notes on the macro rows"},
        {"SPI.SettingsDataGrid", "Registers"},
        {"SPI.Address", "Address"},
        {"SPI.Name1", "Name"},
        {"SPI.Description", "Description"},
        {"SPI.HexValue", "Value in hexadecimal digits"},
        {"SPI.StatusRegCombo", "Status register"},
        {"SPI.Hexadec", "Status in hexadecimal digits"},
        {"SPI.M_Name", "Register of macro row"},
        {"SPI.M_Address", "Address of macro row"},
        {"SPI.M_Hexvalue", "Value of macro row"},
        {"SPI.Voltage", "Supply voltage"},
        {"SPI.BatchName", "Name of batch"},
        {"SPI.BatchCommands", "Commands of batch"},
        {"SPI.LoopLimit", "Loop limit"},
        {"SPI.TXFIFO", "Bytes to send"},
        {"SPI.RXFIFO", "Bytes received"},
        {"SPI.RateKind", "Error rate shown"},
        {"SPI.RateAxis", "Axis of the error rates"},
        {"SPI.Search", "Search"},
        {"SPI.One", "Colour of a 1"},
        {"SPI.Zero", "Colour of a 0"},
        {"SPI.nodata", "Colour of an unknown bit"},
        {"SPI.Blue", "Colour of a value not sent"},
        {"SPI.LightGray", "Colour at rest"},
        {"Terminal.Text1", "Terminal"},
        {"Terminal.Script", "Script"},
        {"eeprom.WorkSheet", "EEPROM image in hexadecimal digits"},
        {"frm_Compare.GR_Differences", "Differences"},
        {"frm_Guide.Contents", "Contents"},
        {"frm_Guide.Search", "Search in the guide"},
        {"frm_Guide.Page", "Guide"},
        {"frm_SetFrom.GR_Refused", "What no setting gives"},
        {"frm_SetFrom.TB_HeaderText", "C header"},
        {"frm_SetFrom.TB_Word", "Value of the word"},
        {"frm_VireoMacSniffer.Incoming", "Received packets"},
        {"frm_WireLog.Log", "Exchanges"},
    };
    // clang-format on
    return table;
}

} // namespace

QString spokenName(const Element& element) {
    std::string bare = element.name().substr(0, element.name().find('('));
    auto found = names().find(element.form().name() + "." + bare);
    if (found == names().end()) {
        found = names().find(bare);
    }
    if (found == names().end()) {
        return {};
    }
    QString name = QString::fromLatin1(found->second);
    if (bare.size() < element.name().size()) {
        // "Byte 3" of an array.
        name += QLatin1Char(' ') + QString::fromStdString(element.name().substr(
                                       bare.size() + 1, element.name().size() - bare.size() - 2));
    }
    return name;
}

} // namespace zor
