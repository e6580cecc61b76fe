// SPDX-License-Identifier: MIT
// The serial EEPROM on the board's bus as a run talks to it.
#pragma once

#include "support/numbers.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace zor::eeprom_device {

inline constexpr std::chrono::milliseconds readInterval(50);
/// The status register comes back behind the instruction as the second byte of the word.
inline constexpr const char* statusCommand = "S20500";
inline constexpr const char* readPageCommand = "RS16";
inline constexpr const char* selectHigh = "H2";
inline constexpr std::uint32_t writeUnderWay = 0x01;
/// Where the two digits of a word's second byte stand in the last 15 characters, from 1.
inline constexpr std::size_t statusPosition = 6;
/// An answer to "RS16": 16 times two digits and a separator, and the prompt.
inline constexpr std::size_t pageAnswer = 55;

[[nodiscard]] inline std::string statusText(const char* word, std::uint32_t status) {
    return std::string(word) + "0x" + hexText(status);
}

} // namespace zor::eeprom_device
