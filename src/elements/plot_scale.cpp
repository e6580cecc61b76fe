// SPDX-License-Identifier: MIT
#include "elements/plot_scale.h"

#include "support/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace zor {

namespace {

constexpr std::array<double, 3> roundFactors = {1, 2, 5};
/// Room for a number that computed a little beside its mark, in steps.
constexpr double tolerance = 1e-9;
/// Beyond these powers of ten no axis of a bench leads, and a double still counts exactly.
constexpr int leastPower = -300;
constexpr int greatestPower = 300;

double power(int exponent) {
    return std::pow(10.0, std::clamp(exponent, leastPower, greatestPower));
}

int floorPower(double value) {
    return static_cast<int>(std::floor(std::log10(value) + tolerance));
}

/// The smallest round step at which at most so many marks lie in a range.
double roundStep(PlotRange range, int most, bool wholeOnly) {
    double least = (range.high - range.low) / std::max(1, most - 1);
    if (!(least > 0) || !std::isfinite(least)) {
        return 1;
    }
    int exponent = floorPower(least);
    for (;; ++exponent) {
        for (double factor : roundFactors) {
            double step = factor * power(exponent);
            if (step >= least * (1 - tolerance) && (!wholeOnly || step >= 1)) {
                return step;
            }
        }
    }
}

/// As many decimals as the step has, so that neighbours differ and none says more than it is.
std::string tickText(double value, double step) {
    if (value == 0) {
        return "0";
    }
    int decimals = std::max(0, -floorPower(step));
    if (decimals > 6 || std::abs(value) >= 1e9) {
        return shortText(value, 6);
    }
    return decimalsText(value, decimals);
}

/// "0.001" to "1000" as they are, beyond them as a power of ten.
std::string decadeText(double value) {
    int exponent = floorPower(value);
    if (exponent >= -3 && exponent <= 4) {
        return decimalsText(value, std::max(0, -exponent));
    }
    std::array<char, 16> powerOfTen{};
    std::snprintf(powerOfTen.data(), powerOfTen.size(), "E%+03d", exponent);
    return decimalsText(value / power(exponent), 0) + powerOfTen.data();
}

PlotRange withWidth(PlotRange range) {
    if (!std::isfinite(range.low) || !std::isfinite(range.high)) {
        return {0, 1};
    }
    if (range.high < range.low) {
        std::swap(range.low, range.high);
    }
    double magnitude = std::max(std::abs(range.low), std::abs(range.high));
    if (range.high - range.low <= magnitude * 1e-12) {
        double around = magnitude > 0 ? magnitude / 2 : 1;
        return {range.low - (range.low == 0 ? 0 : around), range.high + around};
    }
    return range;
}

} // namespace

std::vector<PlotTick> roundTicks(PlotRange range, int most, bool wholeOnly) {
    range = withWidth(range);
    double step = roundStep(range, most, wholeOnly);
    std::vector<PlotTick> ticks;
    double first = std::ceil(range.low / step - tolerance);
    double last = std::floor(range.high / step + tolerance);
    for (double number = first; number <= last && ticks.size() < static_cast<std::size_t>(std::max(2, most));
         ++number) {
        double at = number * step;
        ticks.push_back({at, tickText(at, step)});
    }
    return ticks;
}

std::vector<PlotTick> decadeTicks(PlotRange range, int most) {
    std::vector<PlotTick> ticks;
    if (!(range.low > 0) || !(range.high >= range.low) || !std::isfinite(range.high)) {
        return ticks;
    }
    int first = static_cast<int>(std::ceil(std::log10(range.low) - tolerance));
    int last = floorPower(range.high);
    if (last - first < 1) {
        for (int exponent = first - 1; exponent <= last + 1; ++exponent) {
            for (double factor : roundFactors) {
                double at = factor * power(exponent);
                if (at >= range.low * (1 - tolerance) && at <= range.high * (1 + tolerance)) {
                    ticks.push_back({at, decadeText(at)});
                }
            }
        }
        return ticks;
    }
    // Rounded up, so that no more come than there is room for.
    int spaces = std::max(1, most - 1);
    int stride = (last - first + spaces - 1) / spaces;
    for (int exponent = first; exponent <= last; exponent += stride) {
        ticks.push_back({power(exponent), decadeText(power(exponent))});
    }
    return ticks;
}

PlotRange roundedRange(PlotRange range, int most, bool wholeOnly) {
    range = withWidth(range);
    double step = roundStep(range, most, wholeOnly);
    return {std::floor(range.low / step + tolerance) * step, std::ceil(range.high / step - tolerance) * step};
}

PlotRange decadeRange(PlotRange range, double smallest) {
    double low = range.low > 0 && std::isfinite(range.low) ? range.low : smallest;
    double high = range.high > low && std::isfinite(range.high) ? range.high : low;
    int lowPower = floorPower(low);
    int highPower = static_cast<int>(std::ceil(std::log10(high) - tolerance));
    return {power(lowPower), power(std::max(highPower, lowPower + 1))};
}

} // namespace zor
