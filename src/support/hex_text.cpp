// SPDX-License-Identifier: MIT
#include "support/hex_text.h"

#include "support/numbers.h"

namespace zor {

std::string hexOfText(std::string_view text) {
    std::string digits;
    digits.reserve(2 * text.size());
    for (char c : text) {
        digits += hexText(static_cast<unsigned char>(c), 2);
    }
    return digits;
}

std::string textOfHex(std::string_view digits) {
    std::string text;
    text.reserve(digits.size() / 2);
    for (std::size_t at = 0; at + 1 < digits.size(); at += 2) {
        std::string_view pair = digits.substr(at, 2);
        auto value = readHex(pair);
        if (!value) {
            value = readHex(pair.substr(0, 1));
        }
        text += static_cast<char>(value.value_or(0));
    }
    return text;
}

} // namespace zor
