// SPDX-License-Identifier: MIT
#include "headergen/c_names.h"

#include <algorithm>

namespace zor {

namespace {

// Not the locale's letters: C has no others.
bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

bool isIdentifier(std::string_view text) {
    return !text.empty() && isLetter(text.front()) &&
           std::all_of(text.begin(), text.end(), [](char c) { return isLetter(c) || isDigit(c); });
}

std::string prefixNote(const std::string& prefix) {
    if (isIdentifier(prefix)) {
        return {};
    }
    return prefix.empty()
               ? "Without a text the macros begin with an underscore; C keeps such names for itself."
               : "This is no C identifier; a compiler will not take the macros.";
}

} // namespace zor
