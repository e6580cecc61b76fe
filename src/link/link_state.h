// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"
#include "link/link_bar.h"

#include <string>

namespace zor {

/// How the program stands to a board.
enum class LinkState {
    /// No board; a search may be begun.
    None,
    /// Port after port is tried.
    Searching,
    /// Boards were found; none is chosen.
    Choosing,
    /// The working port is open on a board.
    Connected,
    /// The board talks over its data line; the port is closed.
    DataMode,
    /// The board went while it was connected; a search may be begun.
    Lost,
};

/// The one state of the link. Nobody else fills or locks the list of boards, enables Connect and Disconnect,
/// or shows the data selector's bar. Of the texts beside them it writes what a step of the picture says; what
/// is received turns CommStatus too (Connect), and who begins a reading says so there.
///
///     None ---begin---> Searching ---found---> Choosing ---chosen---> Connected <---> DataMode
///      ^  ^                |   ^                  |                    |     |           |
///      |  +---none found---+   +---begin--- Lost  |                    |     |           |
///      |                                     ^----|--------lost--------+     |           |
///      +-------------------disconnected-----------+--------------------------+--gone-----+
///
/// A step that the picture lacks is a programming error. Owned by the main window.
class LinkStateMachine {
  public:
    LinkStateMachine(Bench& ownBench, LinkBar& ownBar);

    [[nodiscard]] LinkState state() const { return current; }
    /// The state has changed and the bars show it.
    Signal<LinkState> entered;

    void beginSearch();
    /// The search is at this port now.
    void showTrial(int portNumber);
    /// @param found   what the bar says of it while the search goes on
    /// @param entry   its line in the list of boards
    /// @param device  what the system calls its port
    void addBoard(const std::string& found, const std::string& entry, const std::string& device);
    /// Choosing if there is a board, else None.
    void endSearch();

    /// The working port is open on the chosen board.
    void connected();
    /// The data selector is the board's and may be used.
    void offerSelector(bool offered);
    void enterDataMode();
    /// Back on the board that Data mode was entered with.
    void leaveDataMode();
    /// The user gave the board up.
    void disconnected();
    /// Data mode cannot be left, for its board has gone.
    void goneInDataMode();
    /// The board went while it was connected, or while it was being set up.
    void lost();
    /// The list's entry of the board that was lost last.
    [[nodiscard]] const std::string& lostEntry() const { return entryOfLost; }
    /// The list has the lost board alone and shows it, for it is about to be opened again.
    void showLostBoard();
    /// It could not be opened.
    void hideLostBoard() { emptyList(); }

  private:
    void enter(LinkState next);
    /// Nothing in the list; it says what to do.
    void emptyList();

    Bench& bench;
    LinkBar& bar;
    LinkState current = LinkState::None;
    std::string entryOfLost;
};

} // namespace zor
