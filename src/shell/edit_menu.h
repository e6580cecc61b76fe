// SPDX-License-Identifier: MIT
#pragma once

#include "elements/list_box.h"
#include "elements/menu.h"
#include "link/bench.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zor {

class History;

/// The menu by which the user goes back and forth in the steps of the window in front, and the list of them
/// at the foot. Nothing is sent by it. Belongs to the main window's menu bar.
class EditMenu {
  public:
    explicit EditMenu(Form& main);

    void wire(Bench& bench);
    /// Another window is in front, or its steps are others.
    void refresh();

    /// The newest of the steps; more of them only `Undo` reaches.
    static constexpr std::size_t listed = 200;

    MenuEntry mnuEdit;
    MenuEntry mnuEditUndo;
    MenuEntry mnuEditRedo;
    /// What was set in the window in front, step by step, behind its beginning; shown while there is any. A
    /// choice goes back or forth to that step.
    ListBox Steps;

    /// What `Undo` does when the window in front has nothing to take back: its caption, empty for nothing.
    std::function<std::string()> furtherUndo;
    std::function<void()> onFurtherUndo;

  private:
    [[nodiscard]] History* inFront() const;
    void hear();
    void showSteps(const History* history);
    void goBack();
    void goForth();

    const Desk* desk;
    Bench* bench = nullptr;
    const History* heard = nullptr;
    const History* listedOf = nullptr;
    void listSteps(const History& history);

    /// Steps in front of those that are listed, and the numbers of those that are.
    std::size_t unlisted = 0;
    std::vector<std::uint64_t> shownNumbers;
    Subscription stepping;
    Subscription acting;
};

} // namespace zor
