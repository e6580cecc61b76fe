// SPDX-License-Identifier: MIT
#include "shell/main_menu.h"

namespace zor {

MainMenu::MainMenu(Form& main)
    : File(main, nullptr, "File", "File")
    , mnuSaveWorkspace(main, &File, "mnuSaveWorkspace", "Save workspace")
    , mnuFilePreferences(main, &File, "mnuFilePreferences", "&Preferences...")
    , recent(main, File)
    , mnuFileRecord(main, &File, "mnuFileRecord", "Record...")
    , mnuFilePlay(main, &File, "mnuFilePlay", "Play...")
    , mnuFileExit(main, &File, "mnuFileExit", "Exit")
    , edit(main)
    , View(main, nullptr, "View", "View")
    , mnuViewTx0(main, &View, "mnuViewTx0", "KT1100 (Transmitter) control panel")
    , mnuViewTx0Bijaku(main, &View, "mnuViewTx0Bijaku", "KT1100B (Transmitter) control panel")
    , mnuViewTx1(main, &View, "mnuViewTx1", "KT1101 (Transmitter) control panel")
    , mnuViewTx2(main, &View, "mnuViewTx2", "KT1102 (Transmitter) control panel")
    , mnuViewRx(main, &View, "mnuViewRx", "KT2100 (Receiver) control panel")
    , mnuViewCoralRx(main, &View, "mnuViewCoralRx", "KT2102 (Receiver) control panel")
    , mnuViewTRx(main, &View, "mnuViewTRx", "KT3100 (Transceiver) control panel")
    , mnuViewTRxBijaku(main, &View, "mnuViewTRxBijaku", "KT3100B (Transceiver) control panel")
    , mnuViewTopazTRx(main, &View, "mnuViewTopazTRx", "KT3101 (Transceiver) control panel")
    , mnuViewToolbar(main, &View, "mnuViewToolbar", "Toolbar")
    , panel(main)
    , Tools(main, nullptr, "Tools", "Tools")
    , mnutoolsTerminal(main, &Tools, "mnutoolsTerminal", "Terminal Window")
    , EETools(main, &Tools, "EETools", "Standalone Transmitter tools")
    , mnutoolsECET(main, &EETools, "mnutoolsECET", "EEPROM Content Editor Tool")
    , mnutoolsEEPROM(main, &EETools, "mnutoolsEEPROM", "EEPROM programmer")
    , mnutoolsRFSetup(main, &Tools, "mnutoolsRFSetup", "CW Link Setup")
    , mnutoolsRFSetup_RX(main, &mnutoolsRFSetup, "mnutoolsRFSetup_RX", "Receiver")
    , mnutoolsRFSetup_TX(main, &mnutoolsRFSetup, "mnutoolsRFSetup_TX", "Transmitter")
    , RFLink(main, &Tools, "RFLink", "RF link test")
    , mnuToolsRFlink(main, &RFLink, "mnuToolsRFlink", "KT2100 Receiver RF link test")
    , mnuToolsBerylRFlink(main, &RFLink, "mnuToolsBerylRFlink", "KT3100 and KT3101 Transceiver RF link test")
    , mnuAdv(main, &Tools, "mnuAdv", "Advanced")
    , TestModes(main, &mnuAdv, "TestModes", "Factory Test Modes")
    , mnuToolsOpalTestmode(main, &TestModes, "mnuToolsOpalTestmode", "KT1100 transmitter test mode")
    , mnuToolsAmberTestmode(main, &TestModes, "mnuToolsAmberTestmode", "KT2100 receiver test mode")
    , mnuToolsBerylTestmode(main, &TestModes, "mnuToolsBerylTestmode", "KT3100 transceiver test mode")
    , mnuSPI(main, &mnuAdv, "mnuSPI", "SPI Tool")
    , mnuGenCHeader(main, &mnuAdv, "mnuGenCHeader", "ANSI C Header Generator")
    , mnuload(main, &mnuAdv, "mnuload", "Firmware Loader")
    , mnutoolsTxSearch(main, &mnuAdv, "mnutoolsTxSearch", "Transmitter Auto Search")
    , mnutoolsSniffer(main, &Tools, "mnutoolsSniffer", "VireoMac Packet Sniffer")
    , mnutoolsWireLog(main, &Tools, "mnutoolsWireLog", "Wire Log")
    , mnutoolsCompare(main, &Tools, "mnutoolsCompare", "Compare")
    , windows(main)
    , Help(main, nullptr, "Help", "Help")
    , mnuHelpSWguide(main, &Help, "mnuHelpSWguide", "ZOR Software Guide")
    , mnuHelpWindow(main, &Help, "mnuHelpWindow", "Help on the window in front")
    , mnuHelp1100DS(main, &Help, "mnuHelp1100DS", "KT1100 datatsheet")
    , mnuHelp2100DS(main, &Help, "mnuHelp2100DS", "KT2100 datatsheet")
    , mnuHelpBrowseDoc(main, &Help, "mnuHelpBrowseDoc", "Browse documents ...")
    , mnuHelpBrowseEx(main, &Help, "mnuHelpBrowseEx", "Browse examples ...")
    , mnuHelpProducts(main, &Help, "mnuHelpProducts", "Supported Products ...")
    , mnuHelpAbout(main, &Help, "mnuHelpAbout", "About") {
    mnuViewToolbar.setChecked(true);
    mnutoolsWireLog.setShortcut("Ctrl+L");
    mnuHelpWindow.setShortcut("F1");
    for (MenuEntry* entry :
         {&recent.mnuRecent, &mnuFileRecord, &mnuFileExit, &mnuViewRx, &mnuViewTRx, &mnuViewToolbar, &EETools,
          &mnuAdv, &mnuHelp1100DS, &mnuHelpBrowseDoc, &mnuHelpProducts}) {
        entry->setBeginsSection(true);
    }
    mnuAdv.setVisible(false);
    mnuload.setVisible(false);

    // What only a panel, a board or an existing window enables.
    for (MenuEntry* entry : {&mnuViewTx0,
                             &mnuViewTx0Bijaku,
                             &mnuViewTx1,
                             &mnuViewTx2,
                             &mnuViewRx,
                             &mnuViewCoralRx,
                             &mnuViewTRx,
                             &mnuViewTRxBijaku,
                             &mnuViewTopazTRx,
                             &mnutoolsECET,
                             &mnutoolsEEPROM,
                             &mnutoolsRFSetup_RX,
                             &mnutoolsRFSetup_TX,
                             &mnuToolsRFlink,
                             &mnuToolsBerylRFlink,
                             &mnuToolsOpalTestmode,
                             &mnuToolsAmberTestmode,
                             &mnuToolsBerylTestmode,
                             &mnuSPI,
                             &mnuGenCHeader,
                             &mnuload,
                             &mnutoolsTxSearch,
                             &mnutoolsSniffer,
                             &mnutoolsCompare,
                             &mnutoolsWireLog,
                             &mnuFileRecord,
                             &mnuFilePlay}) {
        entry->setEnabled(false);
    }
}

} // namespace zor
