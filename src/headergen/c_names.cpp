// SPDX-License-Identifier: MIT
#include "headergen/c_names.h"

#include "support/letters.h"

#include <algorithm>

namespace zor {

namespace {

bool beginsName(char c) {
    return isLetter(c) || c == '_';
}

} // namespace

bool isIdentifier(std::string_view text) {
    return !text.empty() && beginsName(text.front()) &&
           std::all_of(text.begin(), text.end(), [](char c) { return beginsName(c) || isDigit(c); });
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
