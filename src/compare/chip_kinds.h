// SPDX-License-Identifier: MIT
#pragma once

#include "headergen/header_block.h"

#include <memory>
#include <string>
#include <vector>

namespace zor {

class ChipPanel;
struct Bench;

/// What is known of a chip without its panel being open.
struct ChipKind {
    /// Its panel's form.
    const char* panel;
    const char* device;
    /// The regional low-power variant; nullptr for a chip without one.
    const char* variant;
    std::unique_ptr<ChipPanel> (*make)(Bench&);
    HeaderBlocks (*blocks)(const ChipPanel&);
    /// Its configuration files hold the receiver link's time-out.
    bool keepsTimeout;
};

[[nodiscard]] const std::vector<ChipKind>& chipKinds();
[[nodiscard]] const ChipKind& kindOf(const ChipPanel& panel);

} // namespace zor
