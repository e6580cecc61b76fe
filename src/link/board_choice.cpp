// SPDX-License-Identifier: MIT
#include "link/board_choice.h"

#include "link/commands.h"
#include "support/numbers.h"

namespace zor {

namespace {

/// The port of a list entry: what stands behind its last "m".
int portOfEntry(const std::string& entry) {
    std::size_t mark = entry.rfind('m');
    return mark == std::string::npos ? 0
                                     : roundToInt(numericPrefix(std::string_view(entry).substr(mark + 1)));
}

} // namespace

BoardChoice::BoardChoice(Bench& ownBench, LinkBar& ownBar, LinkStateMachine& ownLink, Connect& channel,
                         DataSelector& dataSelector)
    : bench(ownBench)
    , bar(ownBar)
    , link(ownLink)
    , connect(channel)
    , selector(dataSelector) {
    bar.LoadboardList.onChange = [this] { LoadboardList_click(); };
}

void BoardChoice::LoadboardList_click() {
    if (bench.link.ListChangeBlocked || bar.LoadboardList.position() < 0) {
        return;
    }
    std::string entry = bar.LoadboardList.text();
    const Firmware* firmware = firmwareOfEntry(entry);
    if (firmware != nullptr) {
        bench.link.LoadBoardRev = firmware->loadBoardRev;
    }
    if (bench.link.LoadBoardRev < 1) {
        panelsEnabled.emit();
        return;
    }
    try {
        connectTo(portOfEntry(entry));
    } catch (const ToolError& error) {
        bench.tellError(error, "Comm. port open error");
    }
}

void BoardChoice::connectAgain(const std::string& entry) {
    link.showLostBoard();
    try {
        connectTo(portOfEntry(entry));
    } catch (const ToolError& error) {
        link.hideLostBoard();
        bench.tellError(error, "Comm. port open error");
    }
}

void BoardChoice::connectTo(int port) {
    if (bench.link.LoadBoardRev == 2) {
        connect.usb.GetUSBLocationsByDriver();
    }
    connect.open(port, {.inputBuffer = 4096, .dtr = true, .rts = true});
    if (bench.link.LoadBoardRev == 2) {
        bench.link.UsbLocation = connect.usb.GetThisUSBLocationByDriver();
    }
    // Locked before the first wait: a second choice in it would find the port taken.
    link.connected();
    otherBoardLeft.emit();
    connect.Send_To_LoadBoard(std::string(command::identify));
    if (bench.link.LoadBoardRev == 1) {
        connect.Send_To_LoadBoard(
            supplyCommand(numericPrefix(bench.preferences.Pref_Voltage), supplyConstant(1)));
    }
    connect.Send_To_LoadBoard(std::string(command::releaseLine3));
    if (bench.link.LoadBoardRev == 2) {
        connect.Send_To_LoadBoard(
            supplyCommand(numericPrefix(bench.preferences.Pref_Voltage), supplyConstant(2)));
    }
    // A board that went meanwhile has nothing to offer.
    if (connect.isOpen()) {
        offerBoard();
    }
    panelsEnabled.emit();
}

void BoardChoice::offerBoard() {
    if (bench.link.LoadBoardRev == 2) {
        generation2Connected.emit();
        selector.reset();
        link.offerSelector(connect.isOpen());
    }
    if (bench.link.LoadBoardRev == 40) {
        loaderConnected.emit();
    }
}

} // namespace zor
