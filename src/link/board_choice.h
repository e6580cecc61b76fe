// SPDX-License-Identifier: MIT
#pragma once

#include "link/connect.h"
#include "link/data_selector.h"
#include "link/port_search.h"

namespace zor {

/// Turns a choice in LoadboardList into an open connection on the working port.
class BoardChoice {
  public:
    BoardChoice(Bench& ownBench, LinkBar& ownBar, LinkStateMachine& ownLink, Connect& channel,
                DataSelector& dataSelector);

    /// What only the board before could do is not offered any more.
    Signal<> otherBoardLeft;
    /// The chosen board is a generation 2 one: its tools may be offered.
    Signal<> generation2Connected;
    /// The chosen board is a loader.
    Signal<> loaderConnected;
    /// A board is chosen, or none need be: the panels may be used.
    Signal<> panelsEnabled;

    /// Opens the board that was lost, and sets it up as a choice of its entry does. A failure is told.
    void connectAgain(const std::string& entry);

  private:
    void LoadboardList_click();
    void connectTo(int port);
    void offerBoard();

    Bench& bench;
    LinkBar& bar;
    LinkStateMachine& link;
    Connect& connect;
    DataSelector& selector;
};

} // namespace zor
