// SPDX-License-Identifier: MIT
// The parts of a chip's panel that look the same on all seven: what is set on the left, the words it becomes
// on the right with the actions under them, the chip's answers at the bottom.
#pragma once

#include "desktop/views/compose.h"
#include "panels/common/chip_panel.h"

namespace zor {

[[nodiscard]] QWidget* crystalGroup(ChipPanel& panel);
/// The bands that the chip has, the centre frequency and the step.
[[nodiscard]] QWidget* frequencyGroup(ChipPanel& panel);
[[nodiscard]] QWidget* supplyGroup(ChipPanel& panel);
/// @param more  lines of the chip's own
[[nodiscard]] QWidget* wakeUpGroup(ChipPanel& panel, Lines more = {});
[[nodiscard]] QWidget* lowBatteryGroup(ChipPanel& panel, Lines more = {});

/// A reminder that comes and goes.
[[nodiscard]] QWidget* mark(Label& element);
/// A formula whose exponent is a label of its own, raised into the gap that the formula leaves for it.
[[nodiscard]] QWidget* formula(Label& text, Label& exponent);
/// Why settings are disabled, in the softer colour; folds rather than widens its group.
[[nodiscard]] QWidget* reason(Label& label);
/// What the settings come to, folded away at first.
[[nodiscard]] QWidget* forecastArea(ChipPanel& panel);

/// The whole window.
/// @param settings  what the engineer sets
/// @param answers  what stands beside the status indicators; may be empty
[[nodiscard]] QWidget* panelWindow(ChipPanel& panel, QWidget* settings, std::vector<Cell> answers = {});

} // namespace zor
