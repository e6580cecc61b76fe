// SPDX-License-Identifier: MIT
#include "registertool/cell_values.h"

#include "registertool/register_lines.h"
#include "support/numbers.h"

#include <cstdint>

namespace zor {

void makeCells(std::deque<BitCell>& cells, Form& form, const std::string& name, int count, int firstIndex) {
    for (int number = 0; number < count; ++number) {
        cells.emplace_back(form, name + "(" + std::to_string(firstIndex + number) + ")", number);
    }
}

void showBits(std::deque<BitCell>& cells, std::string_view hexValue) {
    std::string digits = HexToBinary(hexValue);
    for (std::size_t number = 0; number < digits.size(); ++number) {
        cells[number].setState(digits[digits.size() - 1 - number] == '1' ? BitState::One : BitState::Zero);
    }
}

void flip(BitCell& cell) {
    cell.setState(cell.state() == BitState::Zero ? BitState::One : BitState::Zero);
}

std::string byteOf(const std::deque<BitCell>& cells) {
    std::uint32_t byte = 0;
    for (std::size_t number = cells.size(); number-- > 0;) {
        byte = byte * 2 + (cells[number].state() == BitState::One ? 1 : 0);
    }
    return hexText(byte, 2);
}

} // namespace zor
