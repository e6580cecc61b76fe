// SPDX-License-Identifier: MIT
// Letters and digits as the wire, the files and identifiers have them: ASCII, whatever the machine's
// language. Every other byte is part of a UTF-8 text and stays as it is.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace zor {

[[nodiscard]] constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// What a hexadecimal digit is worth, in either case; -1 for any other byte.
[[nodiscard]] constexpr int hexDigit(char c) {
    if (isDigit(c)) {
        return c - '0';
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

/// In either case.
[[nodiscard]] constexpr bool isHexDigit(char c) {
    return hexDigit(c) >= 0;
}

[[nodiscard]] constexpr bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// A blank, a tab, or what ends a line or page.
[[nodiscard]] constexpr bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

[[nodiscard]] constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] constexpr char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

[[nodiscard]] inline std::string lowerCase(std::string_view text) {
    std::string changed(text);
    std::ranges::transform(changed, changed.begin(), lower);
    return changed;
}

[[nodiscard]] inline std::string upperCase(std::string_view text) {
    std::string changed(text);
    std::ranges::transform(changed, changed.begin(), upper);
    return changed;
}

/// Upper and lower case alike.
[[nodiscard]] constexpr bool sameLetter(char a, char b) {
    return lower(a) == lower(b);
}

/// Upper and lower case alike.
[[nodiscard]] inline bool sameText(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, sameLetter);
}

} // namespace zor
