// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zor {

/// Nearest integer, ties to the even neighbour: 2.5 gives 2, 3.5 gives 4. Infinities stay.
[[nodiscard]] double roundTiesEven(double value);

/// Rounded at the given decimal place, ties to even. A number that reads as a tie in its 15 digits is one,
/// whatever its last bits are: 7.1875 rounds to 7.188 also as the quotient that falls just short of it.
/// @param decimals  0 to 15
[[nodiscard]] double roundToDecimals(double value, int decimals);

/// roundTiesEven, held inside an int's range; for numbers that a field's limits clamp afterwards.
[[nodiscard]] int roundToInt(double value);

/// Shortest decimal text of a number with up to 15 significant digits: no trailing zeros, no exponent, and
/// no "0" before the point of a value below 1 (".5", "-.5"). Infinities give 16 digits of nine.
[[nodiscard]] std::string numberText(double value);

/// The same with the 7 significant digits that a single-precision number carries.
[[nodiscard]] std::string numberText(float value);

/// With exactly so many decimals (0 to 15) and a point whatever the machine's language, for texts that are
/// only looked at: 13.4 with one decimal gives "13.4", 0.05 with none "0".
[[nodiscard]] std::string decimalsText(double value, int decimals);

/// In so many digits (1 to 17), as a power of ten where that is shorter: "1.5e+12".
[[nodiscard]] std::string shortText(double value, int digits);

/// The number that a text begins with: leading blanks, one sign, digits and one decimal point, or "&H" and
/// hexadecimal digits. There is no exponent, so "1e3" reads as 1.
/// @return nothing if the text does not begin with a number
[[nodiscard]] std::optional<double> readNumericPrefix(std::string_view text);

/// How much of a text readNumericPrefix takes, blanks behind the number included; 0 if there is no number.
[[nodiscard]] std::size_t numericPrefixLength(std::string_view text);

/// readNumericPrefix with 0 for a text without a number, the rule of every numeric field.
[[nodiscard]] double numericPrefix(std::string_view text);

/// Upper-case hexadecimal without prefix or leading zeros, as words are shown and sent.
[[nodiscard]] std::string hexText(std::uint32_t value);

/// Upper-case hexadecimal padded with zeros to at least the given number of digits.
[[nodiscard]] std::string hexText(std::uint32_t value, int digits);

/// The value of a text that is hexadecimal from end to end, in either case.
/// @return nothing if it is empty, longer than 8 digits or holds another character
[[nodiscard]] std::optional<std::uint32_t> readHex(std::string_view text);

} // namespace zor
