// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/chip_panel.h"
#include "panels/common/panel_memory.h"
#include "shell/panel_registry.h"

#include <memory>

namespace zor {

struct PanelRegistry::Slot {
    const PanelRow& row;
    std::unique_ptr<ChipPanel> panel;
    /// What it showed when it had been loaded; nothing while it is not.
    std::unique_ptr<PanelMemory> loaded;
    Subscription ending;
};

/// A panel that its window's button took away, with what of it cannot be had again otherwise.
struct PanelRegistry::Discarded {
    Slot& slot;
    bool bijaku;
    PanelMemory memory;
    /// The chip keeps its words as long as the port stays open.
    Subscription portClosing;
    /// It is of a run before: what files hold for all panels comes back with it.
    bool ofAnotherRun = false;
};

} // namespace zor
