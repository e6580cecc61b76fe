// SPDX-License-Identifier: MIT
#include "link/link_state.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <utility>
#include <vector>

namespace zor {

namespace {

/// What of the bar hangs on the state alone.
struct BarRow {
    bool connect;
    bool disconnect;
    bool listLocked;
    std::vector<LinkState> next;
};

const BarRow& rowOf(LinkState state) {
    using S = LinkState;
    // clang-format off
    static const std::array<BarRow, 6> rows = {{
        /* None      */ {true,  false, false, {S::None, S::Searching}},
        /* Searching */ {false, false, false, {S::Choosing, S::None}},
        /* Choosing  */ {false, true,  false, {S::Connected, S::None}},
        /* Connected */ {false, true,  true,  {S::DataMode, S::Lost, S::Connected, S::None}},
        /* DataMode  */ {false, false, true,  {S::Connected, S::None}},
        /* Lost      */ {true,  false, false, {S::Searching, S::Connected}},
    }};
    // clang-format on
    return rows[static_cast<std::size_t>(state)];
}

} // namespace

LinkStateMachine::LinkStateMachine(Bench& ownBench, LinkBar& ownBar)
    : bench(ownBench)
    , bar(ownBar) {
    // Nothing is connected, also where the program's start ends early.
    bar.Disconnect.setEnabled(false);
    bar.Toolbar3.setVisible(false);
}

void LinkStateMachine::enter(LinkState next) {
    assert(std::find(rowOf(current).next.begin(), rowOf(current).next.end(), next) !=
               rowOf(current).next.end() &&
           "a step of the link that its picture lacks");
    current = next;
    const BarRow& row = rowOf(next);
    bar.LoadboardList.setLocked(row.listLocked);
    bar.Connect.setEnabled(row.connect);
    bar.Disconnect.setEnabled(row.disconnect);
    if (next != LinkState::Connected && next != LinkState::DataMode) {
        bar.Toolbar3.setVisible(false);
    }
    entered.emit(next);
}

void LinkStateMachine::beginSearch() {
    enter(LinkState::Searching);
    bar.LoadboardList.setEnabled(false);
}

void LinkStateMachine::showTrial(int portNumber) {
    bar.LoadboardList.putText("searching");
    bar.CommStatus.setText("COM " + std::to_string(portNumber));
}

void LinkStateMachine::addBoard(const std::string& found, const std::string& entry,
                                const std::string& device) {
    bar.LoadBoard.setText(found);
    bar.LoadboardList.addEntry(entry);
    auto tips = bar.LoadboardList.entryTips();
    tips.push_back(device);
    bar.LoadboardList.setEntryTips(std::move(tips));
}

void LinkStateMachine::endSearch() {
    bar.CommStatus.setText("Finished");
    if (bar.LoadboardList.entries().empty()) {
        bar.LoadBoard.setText("not found");
        bar.LoadboardList.putText("Not found");
        enter(LinkState::None);
        return;
    }
    bar.LoadboardList.putText("Please select...");
    bar.LoadboardList.setEnabled(true);
    enter(LinkState::Choosing);
}

void LinkStateMachine::connected() {
    enter(LinkState::Connected);
    // Another board's selector is none of this one's.
    bar.Toolbar3.setVisible(bar.Toolbar3.visible() && bench.link.LoadBoardRev == 2);
}

void LinkStateMachine::offerSelector(bool offered) {
    bar.Toolbar3.setVisible(offered);
}

void LinkStateMachine::enterDataMode() {
    bench.link.LoadBoardIndex = static_cast<std::int16_t>(bar.LoadboardList.position());
    bench.link.ListChangeBlocked = true;
    bar.LoadboardList.putPosition(-1);
    bench.link.ListChangeBlocked = false;
    enter(LinkState::DataMode);
    bar.CommStatus.setText("Data mode");
}

void LinkStateMachine::leaveDataMode() {
    bench.link.ListChangeBlocked = true;
    bar.LoadboardList.select(bench.link.LoadBoardIndex);
    bench.link.ListChangeBlocked = false;
    enter(LinkState::Connected);
}

void LinkStateMachine::disconnected() {
    emptyList();
    enter(LinkState::None);
    bar.CommStatus.setText("No comm.");
}

void LinkStateMachine::goneInDataMode() {
    disconnected();
}

void LinkStateMachine::showLostBoard() {
    bench.link.ListChangeBlocked = true;
    bar.LoadboardList.setEntries({entryOfLost});
    bar.LoadboardList.select(0);
    bench.link.ListChangeBlocked = false;
    bar.LoadboardList.setEnabled(true);
}

void LinkStateMachine::lost() {
    entryOfLost = bar.LoadboardList.text();
    emptyList();
    bar.CommStatus.setText("No comm.");
    enter(LinkState::Lost);
}

void LinkStateMachine::emptyList() {
    ListBox& list = bar.LoadboardList;
    for (int entry = static_cast<int>(list.entries().size()) - 1; entry >= 0; --entry) {
        list.removeEntry(entry);
    }
    list.setEntryTips({});
    list.putText("Press connect");
}

} // namespace zor
