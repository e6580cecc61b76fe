// SPDX-License-Identifier: MIT
#pragma once

#include "link/board_choice.h"
#include "link/link_state.h"

#include <string>

namespace zor {

/// After a lost board: watches, without a character on any line, for the very adapter that was pulled out,
/// and offers to take the board up again; by itself if the user prefers so. A port that the user did neither
/// search nor choose is never opened. Owned by the main window.
class Reconnect {
  public:
    Reconnect(Bench& ownBench, LinkBar& ownBar, LinkStateMachine& ownLink, BoardChoice& boardChoice,
              const Connect& channel);

  private:
    void linkEntered(LinkState state);
    void watch_Timer();
    void connect();

    Bench& bench;
    LinkBar& bar;
    LinkStateMachine& link;
    BoardChoice& choice;
    const Connect& channel;
    Timer watch;
    /// What tells the lost board's adapter from others.
    std::string adapter;
    Subscription states;
};

} // namespace zor
