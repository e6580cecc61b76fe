// SPDX-License-Identifier: MIT
#pragma once

#include "virtual/virtual_bench.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace zor::testing {

/// Something that a user does and that sends to the board.
struct SendingAction {
    /// For the test's name: letters, digits and underscores.
    std::string name;
    /// The window it is done in; empty for the main window's bars.
    std::string form;
    /// The menu entry that opens the window; nullptr if it has none.
    MenuEntry MainMenu::*opener;
    std::function<void(VirtualBench&)> act;
    /// What is connected.
    sim::BoardKind board = sim::BoardKind::LoadBoard2;
    /// The panel that the window works beside, by its View entry; nullptr if it needs none.
    MenuEntry MainMenu::*panel = nullptr;
    /// The title of the box that tells its end when all goes well; empty if none does.
    std::string endBox = {};
};

/// What a failing test calls it.
inline void PrintTo(const SendingAction& action, std::ostream* out) {
    *out << action.name;
}

/// Every sending action of every window.
[[nodiscard]] std::vector<SendingAction> sendingActions();

} // namespace zor::testing
