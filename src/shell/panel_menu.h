// SPDX-License-Identifier: MIT
#pragma once

#include "elements/menu.h"
#include "link/bench.h"

#include <functional>

namespace zor {

/// The menu of what is done to the open chip panel, by keys that work wherever the focus is. An entry does
/// what a click on the panel's own button does: the panel comes to the front, and a number that is being
/// typed in it is committed first. Belongs to the main window's menu bar.
class PanelMenu {
  public:
    explicit PanelMenu(Form& main);

    void wire(Bench& bench);
    /// The entries can be used while a panel is open.
    void refresh(const Bench& bench);

    MenuEntry mnuPanel;
    MenuEntry mnuPanelUpdate;
    MenuEntry mnuPanelReadStatus;
    MenuEntry mnuPanelLoad;
    MenuEntry mnuPanelSave;
    MenuEntry mnuPanelCopyWords;
    MenuEntry mnuPanelCopyArray;
    MenuEntry mnuPanelSetFrom;
};

} // namespace zor
