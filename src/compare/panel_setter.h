// SPDX-License-Identifier: MIT
#pragma once

#include "compare/header_reader.h"
#include "link/bench.h"
#include "panels/common/settings_plan.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zor {

class ChipPanel;

/// Words by their elements' names.
using WordValues = std::vector<std::pair<std::string, std::uint32_t>>;

/// What a panel is to be brought to. What is not named stays as it is.
struct WantedSettings {
    /// In Hz.
    std::optional<std::uint32_t> crystal;
    /// An entry of Revision; empty for the present one.
    std::string revision;
    WordValues words;
};

/// Brings the panel to exactly that, or changes nothing and says what no setting gives. Nothing is sent.
/// Throws ToolError if the panel's settings are in use just now.
[[nodiscard]] std::vector<RefusedBits> setPanel(const Bench& bench, ChipPanel& panel,
                                                const WantedSettings& wanted);

/// What a header's text wants of the panel. Throws HeaderFault for one of another chip too.
struct WantedByHeader {
    WantedSettings settings;
    /// Macros that end as commands do and are none of the chip's.
    std::vector<std::string> foreign;
};
[[nodiscard]] WantedByHeader wantedByHeader(const ChipPanel& panel, std::string_view text);

/// The band that the words name, as the configuration word has it; nothing if they name none.
[[nodiscard]] std::optional<int> bandOf(const ChipPanel& panel, const WordValues& words);

/// The crystal that the panel's settings name, in Hz.
[[nodiscard]] std::uint32_t shownCrystal(const ChipPanel& panel);

} // namespace zor
