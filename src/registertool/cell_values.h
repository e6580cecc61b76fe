// SPDX-License-Identifier: MIT
#pragma once

#include "elements/bit_cell.h"

#include <deque>
#include <string>
#include <string_view>

namespace zor {

// Rows of cells as the values that they show. A row stands in the order of its bits' numbers.

/// A value edited and not sent, and a batch that runs.
inline constexpr Colour editedColour{0, 192, 192};
/// A batch that does not.
inline constexpr Colour idleColour{224, 224, 224};

/// Adds cells named "name(0)" on, with the names' numbers counting on from `firstIndex`.
void makeCells(std::deque<BitCell>& cells, Form& form, const std::string& name, int count,
               int firstIndex = 0);
/// Each cell becomes One where the value's binary form has a 1, else Zero.
void showBits(std::deque<BitCell>& cells, std::string_view hexValue);
/// A Zero becomes One, anything else Zero.
void flip(BitCell& cell);
/// The byte of the cells, two upper-case digits.
[[nodiscard]] std::string byteOf(const std::deque<BitCell>& cells);

} // namespace zor
