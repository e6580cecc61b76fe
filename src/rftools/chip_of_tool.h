// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"

#include <string>
#include <string_view>
#include <vector>

namespace zor {

class ChipPanel;

/// The chip panel that a tool works beside: the open one of these, else one that is out of sight, else
/// nullptr.
[[nodiscard]] ChipPanel* panelOfTool(const Bench& bench, const std::vector<std::string_view>& panels);

/// Writes into that panel's status line, if there is one.
void showNotice(const Bench& bench, const std::vector<std::string_view>& panels, const std::string& text);

} // namespace zor
