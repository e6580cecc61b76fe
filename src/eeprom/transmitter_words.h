// SPDX-License-Identifier: MIT
// What the EEPROM tools ask of the transmitter panels. They work with the KT1100 and the KT1101 alone.
#pragma once

#include "link/bench.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zor {

class ChipPanel;

/// The open panel that gives its words; the KT1100's if both are open. nullptr if neither is.
[[nodiscard]] ChipPanel* transmitterPanel(const Bench& bench);
/// The panel by its form's name, open or hidden; nullptr if it was never opened.
[[nodiscard]] ChipPanel* panelNamed(const Bench& bench, std::string_view formName);
/// A transmitter panel is open; if not, a box asks for one.
[[nodiscard]] bool IsTXPanelOn(const Bench& bench);
/// A word as the panel shows it; empty if the panel has none of that name.
[[nodiscard]] std::string shownWord(const ChipPanel& panel, std::string_view name);
/// Crystal frequency in Hz of the KT1101 if its panel is open, else of the KT1100; a panel that was never
/// opened has the standard crystal.
[[nodiscard]] std::int32_t transmitterCrystal(const Bench& bench);

} // namespace zor
