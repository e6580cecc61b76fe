// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/values.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zor {

enum class Prescaler { Off, On };

/// Data rate in kbit/s of a divider, 3 decimals: 10000 kHz x ratio / 29 / (divider + 1), an eighth of it with
/// the prescaler.
/// @param divider  0 to 255
[[nodiscard]] ShownNumber dataRate(std::int32_t divider, Prescaler prescaler, float crystalRatio);

enum class WakeUpTimer {
    Seconds,  ///< time = M x 2^R ms, counted on the panel in seconds from the start
    Extended, ///< time = M x 2^(R - D) ms, counted in milliseconds up to 999
};

/// The wake-up timer of a chip and what its fields take.
struct WakeUpTraits {
    WakeUpTimer timer = WakeUpTimer::Seconds;
    IntegerRange mantissa = {0, 255}; ///< M
    IntegerRange exponent = {0, 29};  ///< R
    IntegerRange divisor = {0, 0};    ///< D, of the extended timer alone
};

inline constexpr WakeUpTraits extendedWakeUp = {WakeUpTimer::Extended, {0, 16383}, {0, 15}, {0, 3}};

/// The three settings of a wake-up timer, within their chip's ranges.
struct WakeUpSetting {
    std::int32_t mantissa = 0;
    std::int32_t exponent = 0;
    std::int32_t divisor = 0;

    bool operator==(const WakeUpSetting&) const = default;
};

/// The settings that the fields' texts give when they are committed: rounded, and clamped without a notice.
/// A panel without a divisor leaves its text empty.
[[nodiscard]] WakeUpSetting commitWakeUp(const WakeUpTraits& traits, std::string_view mantissa,
                                         std::string_view exponent, std::string_view divisor = {});

/// A wake-up time as WKUPTIME shows it, with the text of its unit label.
struct WakeUpTime {
    ShownNumber shown;
    /// "ms", "sec", "min", "hrs" or "days".
    std::string_view unit;
};

/// The wake-up time in the unit that suits it. A step to the next unit divides what the step before has
/// rounded to 3 decimals: above 999 ms, 600 seconds, 600 minutes and 60 hours.
[[nodiscard]] WakeUpTime wakeUpTime(WakeUpTimer timer, const WakeUpSetting& setting, float crystalRatio);

/// The low byte of M, as the wake-up word holds it.
[[nodiscard]] constexpr std::int32_t wakeUpLowByte(std::int32_t mantissa) {
    return mantissa & 0xFF;
}

/// The six high bits of M, as the extended wake-up word holds them.
/// @param mantissa  0 to 16383
[[nodiscard]] constexpr std::int32_t wakeUpHighBits(std::int32_t mantissa) {
    return (mantissa & 0x3F00) / 256;
}

/// The same by the receiver's own rule, which divides by 255 and rounds; it gives the same bits for every M.
/// @param mantissa  0 to 16383
[[nodiscard]] std::int32_t wakeUpHighBitsBy255(std::int32_t mantissa);

/// Values of the low-duty field of every chip that has one.
inline constexpr IntegerRange dutyRange = {0, 127};

/// The share of time, in percent, that the receiver is on in low-duty operation, as DUTY_CALC shows it:
/// (2 x duty + 1) / M x 100 to 3 decimals, at most 100. M = 0 gives 100.
/// @param duty  0 to 127
/// @param mantissa  the number that WKUPM shows, any
[[nodiscard]] ShownNumber dutyCycle(std::int32_t duty, double mantissa);

} // namespace zor
