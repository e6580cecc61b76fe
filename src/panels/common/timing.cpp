// SPDX-License-Identifier: MIT
#include "panels/common/timing.h"

#include "support/numbers.h"

#include <array>
#include <cmath>

namespace zor {

namespace {

constexpr int shownDecimals = 3;

struct UnitStep {
    double above; ///< strictly
    double divideBy;
    std::string_view unit;
};

constexpr std::array<UnitStep, 4> unitSteps = {{
    {999, 1000, "sec"},
    {600, 60, "min"},
    {600, 60, "hrs"},
    {60, 24, "days"},
}};

} // namespace

ShownNumber dataRate(std::int32_t divider, Prescaler prescaler, float crystalRatio) {
    // The division by 8 only moves the exponent, so its place among the others does not matter.
    double rate = static_cast<double>(crystalRatio) * 10000 / 29 / (divider + 1.0);
    return shownNumber(prescaler == Prescaler::On ? rate / 8 : rate, shownDecimals);
}

WakeUpSetting commitWakeUp(const WakeUpTraits& traits, std::string_view mantissa, std::string_view exponent,
                           std::string_view divisor) {
    return {committedInteger(mantissa, traits.mantissa), committedInteger(exponent, traits.exponent),
            committedInteger(divisor, traits.divisor)};
}

WakeUpTime wakeUpTime(WakeUpTimer timer, const WakeUpSetting& setting, float crystalRatio) {
    double ratio = crystalRatio;
    double time = 0;
    std::string_view unit;
    std::size_t next = 0;
    if (timer == WakeUpTimer::Extended) {
        time = std::ldexp(setting.mantissa, setting.exponent - setting.divisor) / ratio;
        unit = "ms";
    } else {
        time = std::ldexp(setting.mantissa, setting.exponent) / (ratio * 1000);
        unit = "sec";
        next = 1;
    }
    time = roundToDecimals(time, shownDecimals);
    for (; next < unitSteps.size() && time > unitSteps[next].above; ++next) {
        time = roundToDecimals(time / unitSteps[next].divideBy, shownDecimals);
        unit = unitSteps[next].unit;
    }
    return {{time, numberText(time)}, unit};
}

std::int32_t wakeUpHighBitsBy255(std::int32_t mantissa) {
    return roundToInt((mantissa & 0x3F00) / 255.0);
}

ShownNumber dutyCycle(std::int32_t duty, double mantissa) {
    if (mantissa == 0) {
        return {100, "100"};
    }
    double percent = (2.0 * duty + 1) / mantissa * 100;
    return percent <= 100 ? shownNumber(percent, shownDecimals) : ShownNumber{100, "100"};
}

} // namespace zor
