// SPDX-License-Identifier: MIT
#include "link/data_selector.h"

#include "link/commands.h"
#include "support/marked.h"

#include <utility>

namespace zor {

namespace {

constexpr const char* freeTip = "Please Select the FSK raw data mode!";
constexpr const char* forcedTip = "Please disable the FIFO mode or the CW Link Setup!";

} // namespace

DataSelector::DataSelector(Bench& ownBench, LinkBar& ownBar, LinkStateMachine& ownLink, Connect& channel)
    : bench(ownBench)
    , bar(ownBar)
    , link(ownLink)
    , connect(channel) {
    bar.CB_Mode.setTip(freeTip);
    bar.CB_Mode.onChange = [this] { CB_Mode_Click(); };
}

void DataSelector::fill() {
    bar.CB_Mode.setEntries({"Vireo FSK I/O: Int.", "Vireo FSK I/O: Ext.", "Data Mode"});
    if (!std::exchange(resetWaits, false) || bench.link.LoadBoardRev <= 1 || !connect.isOpen()) {
        return;
    }
    // The board came while the start waited for its user.
    if (bar.CB_Mode.enabled()) {
        reset();
    } else {
        SavedDataSelectorIndex = internal;
        bar.CB_Mode.select(internal);
    }
}

void DataSelector::reset() {
    bar.CB_Mode.setEnabled(true);
    setTips(freeTip);
    setHolder({});
    resetWaits = bar.CB_Mode.entries().empty();
    bar.CB_Mode.select(internal);
}

void DataSelector::DisableDataSelector(const std::string& window) {
    if (!bar.CB_Mode.enabled() || bench.link.LoadBoardRev <= 1 || !connect.isOpen()) {
        return;
    }
    SavedDataSelectorIndex = static_cast<std::int16_t>(bar.CB_Mode.position());
    // Before its command waits: nobody shall choose another line meanwhile.
    bar.CB_Mode.setEnabled(false);
    setTips(forcedTip);
    setHolder(window);
    bar.CB_Mode.select(internal);
}

void DataSelector::EnableDataSelector() {
    if (bar.CB_Mode.enabled() || bench.link.LoadBoardRev <= 1 || !connect.isOpen()) {
        return;
    }
    bar.CB_Mode.select(SavedDataSelectorIndex);
    bar.CB_Mode.setEnabled(true);
    setTips(freeTip);
    setHolder({});
}

void DataSelector::setHolder(const std::string& window) {
    holdingWindow = window;
    std::string hint = window.empty() ? window : "Held by the window \"" + window + "\"";
    bar.Text1.setHint(hint);
    bar.CB_Mode.setHint(hint);
    holderChanged.emit();
}

void DataSelector::setTips(const std::string& tip) {
    bar.Text1.setTip(tip);
    bar.CB_Mode.setTip(tip);
}

void DataSelector::CB_Mode_Click() {
    if (comingBack) {
        // Until the line is back the choice may change; the last one counts.
        return;
    }
    // A list that the start did not fill has no position at all.
    auto linePosition = [this] {
        int position = bar.CB_Mode.position();
        return position == internal || position == external;
    };
    try {
        if (linePosition() && !connect.isOpen()) {
            comeBack();
        }
        if (bar.CB_Mode.position() == dataMode) {
            enterDataMode();
        } else if (linePosition()) {
            connect.Send_To_LoadBoard(std::string(
                bar.CB_Mode.position() == internal ? command::selectInternal : command::selectExternal));
        }
    } catch (const ToolError& error) {
        bench.tellError(error, "Comm. port openerror");
    }
}

void DataSelector::comeBack() {
    Marked marked(comingBack);
    if (connect.usb.IssueBreakByDriver(bench.link.UsbLocation) != 0) {
        bar.CB_Mode.putPosition(dataMode);
        if (!bench.platform.ports.present(connect.portNumber())) {
            link.goneInDataMode();
        }
        throw ToolError(unsupported, "Commport is not available");
    }
    connect.open(connect.portNumber(), {.clearInput = true, .dtr = true, .rts = true});
    link.leaveDataMode();
    // A bare carriage return brings the prompt back into step.
    connect.Send_To_LoadBoard("\r");
}

void DataSelector::enterDataMode() {
    if (!connect.isOpen()) {
        return;
    }
    connect.writeDirectly(command::enterDataMode);
    link.enterDataMode();
    connect.closeOnPurpose();
    dataModeEntered.emit();
}

} // namespace zor
