// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace zor::sim {

/// What may stand behind a command word.
enum class ArgumentForm {
    none,
    outputLine,    // one digit 0 to 7
    zeroOrOne,     // one digit
    supplyCode,    // one or two hexadecimal digits, below FF, for which there is no voltage
    byte,          // two hexadecimal digits
    word,          // four hexadecimal digits
    byteList,      // bytes of one or two hexadecimal digits between commas; an empty field is no byte
    numberList,    // decimal numbers between commas, each 0 to 255
    optionalCount, // nothing, or a decimal number 1 to 255
};

/// Both ways of writing a command are good: with a blank in front of the argument and without.
[[nodiscard]] std::string_view withoutBlanks(std::string_view argument);

[[nodiscard]] bool hasForm(std::string_view argument, ArgumentForm form);

// Values of arguments whose form is right.

[[nodiscard]] std::uint8_t byteOf(std::string_view hex);
[[nodiscard]] std::size_t numberOf(std::string_view decimal);
[[nodiscard]] std::vector<std::uint8_t> bytesOf(std::string_view list);
[[nodiscard]] std::vector<std::size_t> numbersOf(std::string_view list);

/// A decimal number from the least to the greatest; nothing for any other text.
[[nodiscard]] std::optional<int> readNumber(std::string_view text, int least, int greatest);

} // namespace zor::sim
