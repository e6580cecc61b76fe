// SPDX-License-Identifier: MIT
// How much goes into an event's routine and its fields.
#pragma once

#include "eeprom/event_routine.h"
#include "support/numbers.h"

#include <cstddef>

namespace zor {

inline constexpr std::size_t fillDigits = 2;
inline constexpr std::size_t patternDigits = 4;
/// What a routine keeps free of payload: the head of its transmit command and a sleep command.
inline constexpr std::size_t commandRoom = transmitHead + sleepCommand.size();

/// Bytes that so many digits are.
[[nodiscard]] inline std::size_t roundedHalf(std::size_t digits) {
    return static_cast<std::size_t>(roundToInt(static_cast<double>(digits) / 2));
}

} // namespace zor
