// SPDX-License-Identifier: MIT
// How the main window follows the link: what its bars begin, and what a state of the link opens and closes.
#include "panels/common/chip_panel.h"
#include "shell/main_window.h"

#include <string>

namespace zor {

void MainWindow::wireLink() {
    linkBar.Connect.onClick = [this] { Connect_Click(); };
    linkBar.Disconnect.onClick = [this] { Disconnect_Click(); };
    auto noLoader = [this] { menu.mnuload.setEnabled(false); };
    subscriptions.push_back(link.entered.subscribe([this](LinkState state) { linkEntered(state); }));
    listen(search.finished, [this] { searchFinished(); });
    listen(selector.dataModeEntered, noLoader);
    listen(selector.holderChanged, [this] { foot.refresh(); });
    subscriptions.push_back(linkBar.Toolbar3.changed.subscribe([this] { foot.refresh(); }));
    listen(channel.lost, [this] { link.lost(); });
    listen(channel.lost, noLoader);
    listen(boardChoice.otherBoardLeft, noLoader);
    listen(boardChoice.otherBoardLeft, [this] { disableLinkEntries(); });
    listen(boardChoice.loaderConnected, [this] { menu.mnuload.setEnabled(true); });
    listen(boardChoice.panelsEnabled, [this] { EnablePanelButtons(true); });
    listen(boardChoice.generation2Connected, [this] {
        const WindowSwitches& b = ownBench.windows;
        if (b.TRXon || b.TRX1on) {
            menu.mnuToolsBerylRFlink.setEnabled(true);
            menu.mnutoolsRFSetup_TX.setEnabled(true);
            menu.mnutoolsRFSetup_RX.setEnabled(true);
        }
        if (b.TX0on || b.TX1on) {
            menu.mnutoolsRFSetup_TX.setEnabled(true);
        }
        if (b.RXon || b.RX1on) {
            menu.mnutoolsRFSetup_RX.setEnabled(true);
        }
    });
}

void MainWindow::startSearch() {
    foot.say("");
    search.begin();
}

void MainWindow::EnablePanelButtons(bool flag) {
    for (Element* element : {static_cast<Element*>(&TX), static_cast<Element*>(&RX),
                             static_cast<Element*>(&TRX), static_cast<Element*>(&menu.View),
                             static_cast<Element*>(&menu.Tools), static_cast<Element*>(&kept.KeptBring)}) {
        element->setEnabled(flag);
    }
    if (flag && !waitingFile.empty()) {
        openFile(std::exchange(waitingFile, {}));
    }
}

void MainWindow::linkEntered(LinkState state) {
    showDevice();
    if (state == LinkState::DataMode || state == LinkState::Connected) {
        foot.say("");
    }
    foot.refresh();
}

void MainWindow::showDevice() {
    bool chosen = link.state() == LinkState::Connected || link.state() == LinkState::DataMode;
    int port = channel.portNumber();
    std::string device = chosen ? ownBench.platform.ports.devicePath(port) : std::string();
    std::string hint = device.empty() ? device : "Port " + std::to_string(port) + ": " + device;
    linkBar.LoadBoard.setHint(hint);
    linkBar.LoadboardList.setHint(hint);
}

void MainWindow::searchFinished() {
    std::string unopened = unopenedDevices();
    foot.say(unopened);
    if (link.state() == LinkState::None) {
        if (unopened.empty()) {
            foot.say("No board found. The panels work without one; \"zor --demo\" simulates one.");
        }
        EnablePanelButtons(true);
        return;
    }
    if (linkBar.LoadboardList.entries().size() == 1) {
        linkBar.LoadboardList.select(0);
    } else if (!waitingFile.empty()) {
        tellWaitingFile();
    }
}

std::string MainWindow::unopenedDevices() const {
    auto joined = [](const std::vector<std::string>& devices) {
        std::string text;
        for (const std::string& device : devices) {
            text += (text.empty() ? "" : ", ") + device;
        }
        return text;
    };
    std::string text;
    if (!search.deniedDevices().empty()) {
        text = "No permission to open " + joined(search.deniedDevices()) +
               ": join the group dialout, or install the udev rule that comes with the program.";
    }
    if (!search.busyDevices().empty()) {
        text += (text.empty() ? "" : " ") + std::string("In use by another program: ") +
                joined(search.busyDevices()) + ".";
    }
    return text;
}

void MainWindow::Connect_Click() {
    if (channel.isOpen() || !linkBar.LoadboardList.entries().empty()) {
        return;
    }
    ownBench.link.LoadBoardRev = 0;
    EnablePanelButtons(false);
    startSearch();
}

void MainWindow::closeLinkTools() {
    // Those that are open, whatever their switches say.
    for (Tool tool :
         {Tool::Frm_BerylRfLinkTest, Tool::AmberV1rflink_LB2, Tool::frm_Link, Tool::frm_Link_RX}) {
        tools.close(tool);
    }
    disableLinkEntries();
}

void MainWindow::disableLinkEntries() {
    menu.mnuToolsBerylRFlink.setEnabled(false);
    menu.mnutoolsRFSetup_TX.setEnabled(false);
    menu.mnutoolsRFSetup_RX.setEnabled(false);
}

void MainWindow::Disconnect_Click() {
    closeLinkTools();
    try {
        channel.closeOnPurpose();
    } catch (const ToolError& error) {
        ownBench.tellError(error, "Comm. port open error");
    }
    link.disconnected();
    menu.mnuload.setEnabled(false);
}

} // namespace zor
