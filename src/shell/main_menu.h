// SPDX-License-Identifier: MIT
#pragma once

#include "elements/menu.h"
#include "shell/edit_menu.h"
#include "shell/panel_menu.h"
#include "shell/recent_menu.h"
#include "shell/window_menu.h"

namespace zor {

/// The menu bar of the main window, every entry under its product name. An entry whose window does not exist
/// is disabled.
struct MainMenu {
    explicit MainMenu(Form& main);

    MenuEntry File;
    MenuEntry mnuSaveWorkspace;
    MenuEntry mnuFilePreferences;
    RecentMenu recent;
    /// Enabled by who records and plays.
    MenuEntry mnuFileRecord;
    MenuEntry mnuFilePlay;
    MenuEntry mnuFileExit;

    EditMenu edit;

    MenuEntry View;
    MenuEntry mnuViewTx0;
    MenuEntry mnuViewTx0Bijaku;
    MenuEntry mnuViewTx1;
    MenuEntry mnuViewTx2;
    MenuEntry mnuViewRx;
    MenuEntry mnuViewCoralRx;
    MenuEntry mnuViewTRx;
    MenuEntry mnuViewTRxBijaku;
    MenuEntry mnuViewTopazTRx;
    MenuEntry mnuViewToolbar;

    PanelMenu panel;

    MenuEntry Tools;
    MenuEntry mnutoolsTerminal;
    MenuEntry EETools;
    MenuEntry mnutoolsECET;
    MenuEntry mnutoolsEEPROM;
    MenuEntry mnutoolsRFSetup;
    MenuEntry mnutoolsRFSetup_RX;
    MenuEntry mnutoolsRFSetup_TX;
    MenuEntry RFLink;
    MenuEntry mnuToolsRFlink;
    MenuEntry mnuToolsBerylRFlink;
    MenuEntry mnuAdv;
    MenuEntry TestModes;
    MenuEntry mnuToolsOpalTestmode;
    MenuEntry mnuToolsAmberTestmode;
    MenuEntry mnuToolsBerylTestmode;
    MenuEntry mnuSPI;
    MenuEntry mnuGenCHeader;
    MenuEntry mnuload;
    MenuEntry mnutoolsTxSearch;
    MenuEntry mnutoolsSniffer;
    MenuEntry mnutoolsWireLog;
    MenuEntry mnutoolsCompare;

    WindowMenu windows;

    MenuEntry Help;
    MenuEntry mnuHelpSWguide;
    MenuEntry mnuHelpWindow;
    MenuEntry mnuHelp1100DS;
    MenuEntry mnuHelp2100DS;
    MenuEntry mnuHelpBrowseDoc;
    MenuEntry mnuHelpBrowseEx;
    MenuEntry mnuHelpProducts;
    MenuEntry mnuHelpAbout;
};

} // namespace zor
