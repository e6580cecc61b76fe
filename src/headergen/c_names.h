// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zor {

/// The text is a name in C: letters, digits and underscores, no digit in front.
[[nodiscard]] bool isIdentifier(std::string_view text);

/// What is to be said about a text in front of macros' names; empty if it is a name.
[[nodiscard]] std::string prefixNote(const std::string& prefix);

} // namespace zor
