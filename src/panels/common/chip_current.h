// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/values.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zor {

struct Bench;

/// The 10-bit value of the board's answer to "AD", out of the last 100 characters received.
/// @return 0 to 1023; nothing if no hexadecimal bytes stand where the answer has them
[[nodiscard]] std::optional<std::int32_t> converterReading(std::string_view last100);

/// What the chip draws, as the board's converter has it.
struct CurrentReading {
    enum class Range { Low, High };

    Range range = Range::High;
    /// 0 to 1023; 1023 is no current.
    std::int32_t counts = 1023;
    /// As the supply tool writes it, in its unit.
    ShownNumber shown;
    const char* unit = "mA";
    /// The board answered every line of it; without that the characters may be those of an earlier answer.
    bool answered = false;

    /// In uA, before any rounding.
    [[nodiscard]] double microamps() const;
    /// By how much the true current may lie beside it, in uA: one step of the converter.
    [[nodiscard]] double step() const;
};

/// Reads the chip's current: in the high range, and where that has too few counts in the low one. The port is
/// open.
/// @param unitFound  told each unit as soon as its range has given a figure
/// @return nothing if an answer could not be read
[[nodiscard]] std::optional<CurrentReading>
readChipCurrent(const Bench& bench, const std::function<void(const char* unit)>& unitFound = {});

} // namespace zor
