// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zor {

/// Some bits of a byte, what they are called, and what a value of theirs means.
struct ByteField {
    int highBit = 0;
    int lowBit = 0;
    std::string name;
    /// The meaning of value 0, 1, 2 ...; a value behind the last has none.
    std::vector<std::string> meanings;
};

/// The byte bit by bit, one line a field: "5:4 Mode 01 = GearBox value comes from outside".
[[nodiscard]] std::string explained(std::uint32_t byte, const std::vector<ByteField>& fields);

} // namespace zor
