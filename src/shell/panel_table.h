// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"
#include "shell/main_menu.h"

#include <memory>
#include <string_view>
#include <vector>

namespace zor {

class ChipPanel;
struct PanelTraits;

/// Which bar button a panel belongs to.
enum class ChipClass { Transmitter, Receiver, Transceiver };

/// The tools that come and go with a class of panels.
struct PanelTools {
    std::vector<MenuEntry MainMenu::*> enabledOnShow;
    /// Enabled with the panel while a generation 2 board is connected.
    std::vector<MenuEntry MainMenu::*> enabledWithGeneration2;
    std::vector<MenuEntry MainMenu::*> disabledOnHide;
    std::vector<Tool> closedOnHide;
};

/// One chip panel.
struct PanelRow {
    /// Its form's name.
    const char* name;
    bool WindowSwitches::*on;
    ChipClass chipClass;
    MenuEntry MainMenu::*view;
    /// The entry of the regional low-power variant; nullptr for a chip without one.
    MenuEntry MainMenu::*viewBijaku;
    PanelTools tools;
    /// nullptr for a panel that does not exist: its entries stay disabled.
    std::unique_ptr<ChipPanel> (*make)(Bench&);
    /// The extension of its configuration files, without the point.
    const char* fileKind;
    const PanelTraits& (*traits)();
};

enum class Variant { Plain, Bijaku };

/// One choice of a panel: an entry of the View menu and of a bar button's drop-down list.
struct PanelChoice {
    const char* key;
    MenuEntry MainMenu::*view;
    const char* panel;
    /// What the bar button remembers of it.
    const char* selection;
    /// What the bar button then reads.
    const char* caption;
    Variant variant;
};

[[nodiscard]] const std::vector<PanelRow>& panelRows();
[[nodiscard]] const std::vector<PanelChoice>& panelChoices();
/// The panel's choice that is no regional variant.
[[nodiscard]] const PanelChoice& plainChoiceOf(std::string_view panel);

} // namespace zor
