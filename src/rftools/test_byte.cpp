// SPDX-License-Identifier: MIT
#include "rftools/test_byte.h"

namespace zor {

namespace {

std::string binary(std::uint32_t value, int width) {
    std::string digits;
    for (int place = width - 1; place >= 0; --place) {
        digits += ((value >> place) & 1U) != 0 ? '1' : '0';
    }
    return digits;
}

} // namespace

std::string explained(std::uint32_t byte, const std::vector<ByteField>& fields) {
    std::string lines;
    for (const ByteField& field : fields) {
        int width = field.highBit - field.lowBit + 1;
        std::uint32_t value = byte >> field.lowBit & ((1U << width) - 1);
        std::string range = std::to_string(field.highBit);
        if (width > 1) {
            range += ":" + std::to_string(field.lowBit);
        }
        lines += (lines.empty() ? "" : "\n") + range + " " + field.name + " " + binary(value, width);
        if (value < field.meanings.size()) {
            lines += " = " + field.meanings[value];
        }
    }
    return lines;
}

} // namespace zor
