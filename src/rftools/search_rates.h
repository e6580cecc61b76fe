// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace zor {

/// A data rate as a receiver's word sets it.
struct RateSetting {
    int divider = 0;
    bool prescaler = false;
    double kilobits = 0; // a second
    friend bool operator==(const RateSetting&, const RateSetting&) = default;
};

/// Which rates of a chip to try, and how.
struct RateRange {
    int greatestDivider = 127;
    bool hasPrescaler = true;
    float crystalRatio = 1;
};

/// The setting whose rate comes nearest.
[[nodiscard]] RateSetting nearestRate(double kilobits, const RateRange& range);
/// Rates one after the other until a clock locks: that one, then the customary ones, then all that lie
/// further than 1.5 % from one before, the fastest first.
[[nodiscard]] std::vector<RateSetting> rateTrials(double first, const RateRange& range);

} // namespace zor
