// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// Bits of a chip's word, by the name of the panel's element that shows it.
struct WordBits {
    const char* word;
    std::uint32_t clear;
    std::uint32_t set;
};

/// A state of a chip that draws a current of its own.
struct ChipState {
    enum class Kind { Sleep, WakeUpTimer, Crystal, Synthesizer, Receive, Transmit };

    Kind kind;
    /// The chip is in it, if not in a later one of its row, while one of these bits is set; 0 always.
    const char* word;
    std::uint32_t bits;
    /// What brings it there, in this order.
    std::vector<WordBits> words;
};

/// Where a chip's panel has what a forecast is made of, by its elements' names; nullptr where the chip has no
/// such setting.
struct ForecastChip {
    const char* panel;
    const char* deviation = nullptr; ///< kHz
    const char* keying = nullptr;    ///< a list with "OOK" in it
    const char* rate = nullptr;      ///< kbit/s
    const char* bandwidth = nullptr; ///< kHz, of the receiver
    const char* power = nullptr;     ///< the list of output powers
    /// The output power's bits, the highest power 0.
    WordBits powerBits = {nullptr, 0, 0};
    int powerShift = 0;
    const char* wakeUpTick;
    const char* wakeUpDivisor = nullptr;
    const char* dutyTick = nullptr;
    const char* dutyPercent = nullptr;
    std::vector<ChipState> states;
};

/// One row a panel.
[[nodiscard]] const std::vector<ForecastChip>& forecastChips();
/// nullptr for another form.
[[nodiscard]] const ForecastChip* findForecastChip(std::string_view panel);

/// A state as it is written and kept: "sleep", "receive", "transmit -3 dB".
/// @param power  of a transmitting chip
[[nodiscard]] std::string stateName(ChipState::Kind kind, std::string_view power = {});

} // namespace zor
