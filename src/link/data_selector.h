// SPDX-License-Identifier: MIT
#pragma once

#include "link/connect.h"
#include "link/link_state.h"

#include <cstdint>
#include <string>

namespace zor {

/// The selector of the radio's raw data line on a generation 2 board, and Data mode, in which the port is
/// closed and the user's own equipment talks over the line.
///
///     internal <--> external            port open, "X1" and "X0"
///        |  ^          |  ^
///        v  |          v  |             in: "X2" and the port is closed
///        Data mode                      out: the driver's break, the port opened again, a bare CR
///
/// A panel or tool that needs the data line forces it to internal and gives it back later.
class DataSelector {
  public:
    enum Index { internal = 0, external = 1, dataMode = 2 };

    DataSelector(Bench& ownBench, LinkBar& ownBar, LinkStateMachine& ownLink, Connect& channel);

    /// Fills the list.
    void fill();
    /// A fresh generation 2 board: the list is given back and set to internal, which sends its command.
    void reset();

    /// @param window  the title of the window that takes the line
    void DisableDataSelector(const std::string& window = {});
    void EnableDataSelector();

    /// Data mode began: the board's entry is no longer shown.
    Signal<> dataModeEntered;

    /// The window that holds the data line; empty while nobody does.
    [[nodiscard]] const std::string& holder() const { return holdingWindow; }
    Signal<> holderChanged;

    /// The entry that a panel's hold of the line will give back.
    [[nodiscard]] std::int16_t savedIndex() const { return SavedDataSelectorIndex; }

  private:
    void CB_Mode_Click();
    void comeBack();
    void enterDataMode();
    void setTips(const std::string& tip);
    void setHolder(const std::string& window);

    Bench& bench;
    LinkBar& bar;
    LinkStateMachine& link;
    Connect& connect;
    std::int16_t SavedDataSelectorIndex = 0;
    std::string holdingWindow;
    bool comingBack = false;
    /// A board asked for its line before the list was filled.
    bool resetWaits = false;
};

} // namespace zor
