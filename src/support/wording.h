// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zor {

/// "1 word", "0 words", "3 words"
[[nodiscard]] inline std::string counted(std::size_t number, std::string_view thing) {
    return std::to_string(number).append(" ").append(thing).append(number == 1 ? "" : "s");
}

/// The name of one of a row of elements: "Text1(3)".
[[nodiscard]] inline std::string indexed(std::string_view name, int index) {
    return std::string(name).append("(").append(std::to_string(index)).append(")");
}

[[nodiscard]] inline std::string inQuotes(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

/// A truth value as databases and their tables write it.
[[nodiscard]] inline std::string truthText(bool value) {
    return value ? "True" : "False";
}

} // namespace zor
