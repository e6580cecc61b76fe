// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zor {

/// Letters a to z as capitals, every other byte as it is: hexadecimal digits count alike in either case,
/// whatever the machine's language.
[[nodiscard]] inline std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return upper;
}

} // namespace zor
