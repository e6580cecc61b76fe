// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zor {

/// The limit that a committed value ran into, for the notice that goes with it.
enum class Limit { None, Minimum, Maximum };

/// A computed number and the text that its field shows; the text reads back as the number.
struct ShownNumber {
    double value = 0;
    std::string text;

    bool operator==(const ShownNumber&) const = default;
};

/// Values a field takes, both ends included.
struct IntegerRange {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;

    [[nodiscard]] constexpr std::int32_t clamp(std::int32_t value) const {
        return value < minimum ? minimum : value > maximum ? maximum : value;
    }
};

/// A value rounded at a decimal place, ties to even, and its text.
/// @param decimals  0 to 15
[[nodiscard]] ShownNumber shownNumber(double value, int decimals);

/// A value with its 15 digits, and the number that these say.
[[nodiscard]] ShownNumber shownInFull(double value);

/// What a whole-number field holds after its commit: its text's numeric prefix, rounded with ties to even and
/// clamped. A text without a number counts as 0.
[[nodiscard]] std::int32_t committedInteger(std::string_view text, IntegerRange range);

} // namespace zor
