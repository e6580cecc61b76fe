// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zor {

/// A stretch of a plot's axis; the low end lies below the high one.
struct PlotRange {
    double low = 0;
    double high = 1;
    friend bool operator==(const PlotRange&, const PlotRange&) = default;
};

/// One mark of an axis: where, and what stands beside it.
struct PlotTick {
    double at = 0;
    std::string text;
    friend bool operator==(const PlotTick&, const PlotTick&) = default;
};

/// Marks at round numbers (1, 2 or 5 times a power of ten apart) inside a range.
/// @param most  how many there is room for, from 2 on; at least two come, fewer only where a whole number
///              apart is demanded and the range is shorter
/// @param wholeOnly  marks at whole numbers alone, for counts
[[nodiscard]] std::vector<PlotTick> roundTicks(PlotRange range, int most, bool wholeOnly = false);

/// Marks at powers of ten inside a range of positive numbers, every second or third one where there is less
/// room; where fewer than two fit, at 1, 2 and 5 times a power.
[[nodiscard]] std::vector<PlotTick> decadeTicks(PlotRange range, int most);

/// The range widened to the round marks around it, so that the axis begins and ends at one. A range without a
/// width is given one around it.
[[nodiscard]] PlotRange roundedRange(PlotRange range, int most, bool wholeOnly = false);

/// The same to powers of ten; what is not positive takes `smallest`.
[[nodiscard]] PlotRange decadeRange(PlotRange range, double smallest);

} // namespace zor
