// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zor {

/// Each character as the two upper-case hexadecimal digits of its code.
[[nodiscard]] std::string hexOfText(std::string_view text);

/// Each pair of hexadecimal digits, in either case, as the character of that code. Of a pair with something
/// else in it the digits in front of that count; a lone last digit is dropped.
[[nodiscard]] std::string textOfHex(std::string_view digits);

} // namespace zor
