// SPDX-License-Identifier: MIT
#include "desktop/views/registry.h"

#include "desktop/views/views.h"

namespace zor {

const std::map<std::string, View>& allViews() {
    static const std::map<std::string, View> views{
        {"OpalV2", {opalView}},
        {"JadeV1", {jadeView}},
        {"KT1102", {onyxView}},
        {"BerylV3", {berylView}},
        {"FRM_Topaz", {topazView}},
        {"AmberV1", {amberView}},
        {"Coral", {coralView}},
        {"ECET", {contentEditorView}},
        {"Frm_CmdSequence", {commandEditorView}},
        {"FirmLoad", {firmLoadView}},
        {"Frm_AmberTestFunctions", {testFunctionsView}},
        {"Frm_BerylRfLinkTest", {berylLinkView}},
        {"Frm_BerylTestFunctions", {testFunctionsView}},
        {"Frm_GenHeader", {headerView}},
        {"AmberV1rflink", {receiverLinkView}},
        {"AmberV1rflink_LB2", {receiverLinkView}},
        {"Help_R1", {dataFilterHelpView}},
        {"OpalV2test", {opalTestView}},
        {"Preferences", {preferencesView, FormWindow::Frame::Titled}},
        {"Products", {productsView}},
        {"SPI", {registerToolView}},
        {"SPIsub2", {addCommandView}},
        {"Terminal", {terminalView}},
        {"eeprom", {eepromView}},
        {"frmAbout", {aboutView}},
        {"frm_Compare", {compareView}},
        {"frm_Guide", {guideView}},
        {"frm_Link", {carrierView}},
        {"frm_Link_RX", {dataOutputView}},
        {"frm_Play", {playView, FormWindow::Frame::Titled}},
        {"frm_PowerSupply", {powerSupplyView}},
        {"frm_SetFrom", {setFromView}},
        {"frm_TxSearch", {txSearchView}},
        {"frm_VireoMacSniffer", {macSnifferView}},
        {"frm_WireLog", {wireLogView, FormWindow::Frame::Titled, &wireLogDocking}},
        {"frm_Splash", {splashView, FormWindow::Frame::Bare}},
    };
    return views;
}

const View* findView(const std::string& formName) {
    auto view = allViews().find(formName);
    return view == allViews().end() ? nullptr : &view->second;
}

} // namespace zor
