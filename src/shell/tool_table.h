// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"
#include "shell/main_menu.h"

#include <memory>
#include <string_view>
#include <vector>

namespace zor {

/// What the workspace file keeps of an open window, each value a line, in this order.
enum class WorkspaceValues {
    Nothing,
    TopLeft,
    TopLeftHeightWidth,
    /// The script editor's tick before the place and size.
    ScriptTopLeftHeightWidth,
};

/// One tool: a new tool is one row here, one form, one view.
struct ToolRow {
    Tool tool;
    /// Its form's name.
    const char* form;
    /// True while it is open; nullptr for a tool without a switch. The tool itself sets and clears it.
    bool WindowSwitches::*on;
    /// What opens it; nullptr where something else does.
    MenuEntry MainMenu::*entry;
    /// nullptr for a tool that does not exist: its entry stays disabled.
    std::unique_ptr<Form> (*make)(Bench&);
    WorkspaceValues workspace = WorkspaceValues::Nothing;
};

/// In the order of the enumeration.
[[nodiscard]] const std::vector<ToolRow>& toolRows();
[[nodiscard]] const ToolRow& rowOf(Tool tool);
/// The tool of a form's name; nullptr for another form.
[[nodiscard]] const ToolRow* findToolRow(std::string_view form);

} // namespace zor
