// SPDX-License-Identifier: MIT
// The numbers of a search as the chips count them and as people read them.
#pragma once

#include "panels/common/values.h"

#include <string>

namespace zor::search_scale {

/// Frequency parameters of a span.
inline constexpr int lowestParameter = 96;
inline constexpr int highestParameter = 3903;
/// F goes to the band's base and a whole unit of it in so many steps.
inline constexpr int parametersOfUnit = 4000;
/// dBm of the lowest threshold; each further one is 6 dB more, the same on every chip that receives.
inline constexpr int lowestThreshold = -103;
inline constexpr int thresholdStep = 6;
inline constexpr int lastThreshold = 7;
/// What a plot shows where nothing reached the limit, in dBm.
inline constexpr double silence = lowestThreshold - thresholdStep;
/// From a setting to its reading, in ms.
inline constexpr IntegerRange dwellRange = {5, 1000};
inline constexpr int startDwell = 10;
/// From one point to the next, in kHz.
inline constexpr IntegerRange stepRange = {1, 10000};

[[nodiscard]] inline int decibels(int threshold) {
    return lowestThreshold + thresholdStep * threshold;
}

[[nodiscard]] inline std::string fourDecimals(double number) {
    return shownNumber(number, 4).text;
}

} // namespace zor::search_scale
