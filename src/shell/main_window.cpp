// SPDX-License-Identifier: MIT
#include "shell/main_window.h"

#include "eeprom/eeprom_naming.h"
#include "panels/common/chip_panel.h"

#include "shell/settings.h"
#include "shell/wire_log_memory.h"
#include "support/file_name.h"
#include "utilities/guide.h"

#include <algorithm>

namespace zor {

namespace {

constexpr std::chrono::milliseconds factoryGestureTime(1000);
/// Size at the first start, in twips: 1280 x 800 pixels.
constexpr Extent startExtent{12000, 19200};
constexpr const char* startFileClosing = "Please save the workspace again!";

} // namespace

MainWindow::MainWindow(Platform& platform, Desk& desk)
    : Form(desk, "main", productTitle, Kind::Main)
    , Notice(*this, "Notice")
    , Undo(*this, "Undo", "Undo")
    , Toolbar1(*this, "Toolbar1")
    , TX(*this, Toolbar1, "TX", "KT110x")
    , RX(*this, Toolbar1, "RX", "KT210x")
    , TRX(*this, Toolbar1, "TRX", "KT310x")
    , EE(*this, Toolbar1, "EE", "EE")
    , linkBar(*this)
    , menu(*this)
    , ownBench(platform, desk, tools)
    , foot(platform.loop, Notice, [this] { return standingNotice(); })
    , link(ownBench, linkBar)
    , channel(ownBench)
    , messages(ownBench, channel)
    , recorder(ownBench, channel.tap)
    , selector(ownBench, linkBar, link, channel)
    , search(ownBench, link, channel)
    , boardChoice(ownBench, linkBar, link, channel, selector)
    , reconnect(ownBench, linkBar, link, boardChoice, channel)
    , tools(ownBench)
    , registry(ownBench, menu, {TX, RX, TRX})
    , programmer(ownBench, EE, menu.mnutoolsEEPROM)
    , kept(*this, ownBench, registry)
    , workspace(ownBench)
    , columnMemory(ownBench)
    , FactoryModeTimer(platform.loop, [this] { FactoryModeTimer_Timer(); }) {
    setExtent(startExtent);
    ownBench.connect = &channel;
    ownBench.dataSelector = &selector;
    ownBench.wireRecorder = &recorder;
    naming = recorder.addNaming([this](std::string_view line, std::string_view) {
        const ChipPanel* panel = ownBench.openPanel();
        return panel == nullptr ? std::string() : panel->meaningOfLine(line);
    });
    subscriptions.push_back(recorder.addNaming(EepromNaming(ownBench)));
    subscriptions.push_back(rememberWireLogPlace(ownBench));
    ownBench.CommStatus = &linkBar.CommStatus;
    subscriptions.push_back(ownBench.noticed.subscribe([this](const std::string& text) { foot.say(text); }));
    subscriptions.push_back(
        ownBench.withdrawn.subscribe([this](const std::string& text) { foot.withdraw(text); }));
    platform.loop.uncaught = [this](const ToolError& error) { ownBench.tellError(error, productTitle); };
    FactoryModeTimer.setInterval(factoryGestureTime);
    workspace.openPanel = [this](std::string_view panel) { registry.reopen(panel); };
    workspace.createPanel = [this](std::string_view panel) -> Form& { return registry.create(panel); };
    Undo.setVisible(false);
    Undo.onClick = [this] { registry.restoreDiscarded(); };
    subscriptions.push_back(Notice.changed.subscribe([this] { nameUndo(); }));
    subscriptions.push_back(
        registry.settingsDiscarded.subscribe([this](const std::string& chip) { offerUndo(chip); }));
    listen(registry.undoLost, [this] {
        Undo.setVisible(false);
        foot.withdraw(discardedNotice);
    });
    ownBench.recentFiles.restore(readRecentFiles(platform));
    listen(ownBench.recentFiles.changed,
           [this] { writeRecentFiles(ownBench.platform, ownBench.recentFiles.all()); });
    listen(ownBench.recentFiles.changed, [this] { menu.recent.show(ownBench.recentFiles); });
    linkBar.Connect.setShortcut("F9");
    wireMenu();
    wireLink();
}

MainWindow::~MainWindow() {
    loop().uncaught = nullptr;
}

void MainWindow::wireMenu() {
    auto wire = [this](MenuEntry& entry, std::function<void()> action) {
        entry.onClick = [this, action = std::move(action)] {
            tools.close(Tool::frm_Splash);
            action();
        };
    };
    wire(menu.mnuSaveWorkspace, [this] {
        workspace.save();
        ownBench.platform.dialogs.show(
            {.text = "Workspace configuration has been saved.", .icon = BoxIcon::Information});
    });
    wire(menu.mnuFilePreferences, [this] { tools.openPreferences(menu.mnuload); });
    wire(menu.mnuFileExit, [this] { close(); });
    wire(menu.mnuViewToolbar, [this] {
        menu.mnuViewToolbar.setChecked(!menu.mnuViewToolbar.checked());
        Toolbar1.setVisible(menu.mnuViewToolbar.checked());
    });
    for (const ToolRow& row : toolRows()) {
        if (row.entry != nullptr) {
            wire(menu.*row.entry, [this, tool = row.tool] { openTool(tool); });
        }
    }
    // Its window is another one for each generation of the board.
    wire(menu.mnuToolsRFlink, [this] {
        openTool(ownBench.link.LoadBoardRev == 2 ? Tool::AmberV1rflink_LB2 : Tool::AmberV1rflink);
    });
    // Those that need neither a panel nor a board; mnuload is enabled while a loader is connected.
    for (Tool tool : {Tool::SPI, Tool::Frm_GenHeader, Tool::frm_VireoMacSniffer, Tool::frm_TxSearch,
                      Tool::frm_WireLog, Tool::frm_Compare}) {
        (menu.*rowOf(tool).entry).setEnabled(tools.exists(tool));
    }
    wire(menu.mnuHelpSWguide, [this] { openGuide({}); });
    wire(menu.mnuHelpWindow, [this] {
        const Form* front = desk().front();
        openGuide(front == nullptr ? std::string() : front->name());
    });
    wire(menu.mnuHelp1100DS, [this] { openDataSheet("KT1100"); });
    wire(menu.mnuHelp2100DS, [this] { openDataSheet("KT2100"); });
    wire(menu.mnuHelpBrowseDoc, [this] { browse("Documentation", "Browse documentation "); });
    wire(menu.mnuHelpBrowseEx, [this] { browse("Examples", "Browse examples"); });
    wire(menu.mnuHelpProducts, [this] { tools.openProducts(); });
    wire(menu.mnuHelpAbout, [this] { tools.openAbout(extent()); });
    menu.recent.onOpen = [this](const std::string& path) { openFile(path); };
    menu.recent.show(ownBench.recentFiles);
    menu.panel.wire(ownBench);
    listen(menu.windows.changed, [this] { menu.panel.refresh(ownBench); });
    menu.edit.furtherUndo = [this] {
        return Undo.visible() ? "Undo closing " + discardedChip : std::string();
    };
    menu.edit.onFurtherUndo = [this] { registry.restoreDiscarded(); };
    menu.edit.wire(ownBench);
    listen(Undo.changed, [this] { menu.edit.refresh(); });
    listen(menu.windows.changed, [this] { menu.edit.refresh(); });
    onDoubleClick = [this] { factoryGesture(); };
}

void MainWindow::tickWhileOpen(MenuEntry& entry, Form& form) {
    entry.setChecked(true);
    registerToolEnding = form.closed.subscribe([&entry] { entry.setChecked(false); });
}

void MainWindow::openTool(Tool tool) {
    if (tools.exists(tool)) {
        tools.open(tool);
        if (tool == Tool::SPI) {
            tickWhileOpen(menu.mnuSPI, *tools.find(tool));
        }
    } else {
        foot.say("This version does not have that window.");
    }
}

void MainWindow::start() {
    show();
    FactoryClickPending = false;
    PlainCaption = title();
    ownBench.link.CurrentPath = nameOf(ownBench.platform.programFolder);
    ownBench.link.CurrentDrive = ownBench.link.CurrentPath.substr(0, 2);
    ownBench.link.port.endStart();
    linkBar.LoadBoard.setText("not found");
    kept.look();
    try {
        readPreferences(ownBench);
        EnablePanelButtons(false);
        startSearch();
        if (ownBench.preferences.Pref_LoadWS == 1) {
            workspace.load();
        } else {
            tools.openSplash(extent());
        }
    } catch (const ToolError& error) {
        // The routine ends here, so the data selector stays empty in this run.
        ownBench.tellFileError(error, "File open error", startFileClosing);
        return;
    }
    selector.fill();
}

std::string MainWindow::standingNotice() const {
    if (link.state() == LinkState::DataMode) {
        return "Data mode: choose one of the first two entries of the data selector to come back.";
    }
    if (linkBar.Toolbar3.visible() && !selector.holder().empty()) {
        return "The data selector is held by the window \"" + selector.holder() + "\".";
    }
    return {};
}

void MainWindow::offerUndo(const std::string& chip) {
    discardedChip = chip;
    discardedNotice = "Settings of the " + chip + " panel were discarded";
    Undo.setTip("Brings the " + chip + " panel back with the settings that it had when it was closed");
    Undo.setVisible(true);
    foot.say(discardedNotice);
}

/// Beside another text the button says itself what it undoes.
void MainWindow::nameUndo() {
    Undo.setCaption(Notice.caption() == discardedNotice ? "Undo" : "Undo closing " + discardedChip);
}

void MainWindow::factoryGesture() {
    if (FactoryClickPending) {
        FactoryClickPending = false;
        return;
    }
    setTitle(title() + ".");
    FactoryClickPending = true;
    FactoryModeTimer.start();
}

void MainWindow::FactoryModeTimer_Timer() {
    FactoryModeTimer.stop();
    setTitle(PlainCaption);
    // One double click alone hides the menu; a second one within the second has cleared the mark.
    menu.mnuAdv.setVisible(!FactoryClickPending);
    FactoryClickPending = false;
}

void MainWindow::unload() {
    kept.end();
    registry.closeAtExit();
    try {
        channel.closeOnPurpose();
    } catch (const ToolError&) {
        // The device went before the program; there is nobody left to tell.
    }
    closeOpenForms();
    loop().leave();
}

void MainWindow::closeOpenForms() {
    auto open = [this] {
        const std::vector<Form*>& forms = desk().forms();
        auto form = std::find_if(forms.begin(), forms.end(),
                                 [this](const Form* other) { return other != this && other->isOpen(); });
        return form == forms.end() ? nullptr : *form;
    };
    // Closing one may close or discard another, so each turn looks again.
    for (Form* form = open(); form != nullptr; form = open()) {
        try {
            form->close();
        } catch (const ActionDropped&) {
            // There is no line any more to say good-bye on.
        } catch (const ToolError&) {
            // There is nobody left to tell.
        }
    }
}

} // namespace zor
