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

BoardChoice::BoardChoice(Bench& ownBench, LinkBar& ownBar, Connect& channel, DataSelector& dataSelector)
    : bench(ownBench)
    , bar(ownBar)
    , connect(channel)
    , selector(dataSelector) {
    bar.LoadboardList.onChange = [this] { LoadboardList_click(); };
}

void BoardChoice::LoadboardList_click() {
    if (bench.ListChangeBlocked || bar.LoadboardList.position() < 0) {
        return;
    }
    std::string entry = bar.LoadboardList.text();
    const Firmware* firmware = firmwareOfEntry(entry);
    if (firmware != nullptr) {
        bench.LoadBoardRev = firmware->loadBoardRev;
    }
    if (bench.LoadBoardRev < 1) {
        panelsEnabled();
        return;
    }
    try {
        connectTo(portOfEntry(entry));
    } catch (const ToolError& error) {
        bench.tellError(error, "Comm. port open error");
    }
}

void BoardChoice::connectTo(int port) {
    if (bench.LoadBoardRev == 2) {
        connect.usb.GetUSBLocationsByDriver();
    }
    connect.open(port, {.inputBuffer = 4096, .dtr = true, .rts = true});
    if (bench.LoadBoardRev == 2) {
        bench.UsbLocation = connect.usb.GetThisUSBLocationByDriver();
    }
    connect.Send_To_LoadBoard(std::string(command::identify));
    bar.LoadboardList.setLocked(true);
    if (bench.LoadBoardRev == 1) {
        connect.Send_To_LoadBoard(supplyCommand(numericPrefix(bench.Pref_Voltage), supplyConstant(1)));
    }
    connect.Send_To_LoadBoard(std::string(command::releaseLine3));
    if (bench.LoadBoardRev == 2) {
        setUpGeneration2();
    }
    if (bench.LoadBoardRev == 40) {
        loaderConnected();
    }
    panelsEnabled();
}

void BoardChoice::setUpGeneration2() {
    connect.Send_To_LoadBoard(supplyCommand(numericPrefix(bench.Pref_Voltage), supplyConstant(2)));
    generation2Connected();
    selector.reset();
    bar.Toolbar3.setVisible(true);
}

} // namespace zor
