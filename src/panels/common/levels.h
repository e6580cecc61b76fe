// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/values.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zor {

/// A chip's low-battery threshold T in its relation to the voltage, (T + offset) / 10.
struct ThresholdTraits {
    IntegerRange range = {0, 31};
    /// Tenths of a volt at T = 0 in the voltage shown for a T.
    std::int32_t shownOffset = 22;
    /// The same for a voltage typed in. It is another one on the chip whose two directions disagree.
    std::int32_t typedOffset = 22;
};

/// The voltage that LBDV shows for a threshold, in V.
[[nodiscard]] ShownNumber thresholdVoltage(std::int32_t threshold, const ThresholdTraits& traits);

/// A threshold voltage typed into LBDV.
struct VoltageCommit {
    /// The text that replaces the typed one at a limit; "0" or "5.3".
    std::string limitText;
    Limit limit = Limit::None;
    /// The threshold for LBD, not clamped: that field's own commit does it and rewrites the voltage.
    std::int32_t threshold = 0;
};

/// The tenths of a volt are computed in single precision.
/// @param text  its numeric prefix counts, in V; clamped to 0 to 5.3
[[nodiscard]] VoltageCommit commitThresholdVoltage(std::string_view text, const ThresholdTraits& traits);

/// True if a supply text is the plain form of the number it begins with: no sign, blank, trailing zero or
/// leading "0" of a fraction, and nothing behind the number.
[[nodiscard]] bool isCanonicalSupply(std::string_view text);

/// What the commit of a panel's PowerSupply gives.
struct SupplyCommit {
    /// In V, one decimal, 2 to 5.4.
    ShownNumber volts;
    Limit limit = Limit::None;
};

/// @param text  its numeric prefix counts, in V
[[nodiscard]] SupplyCommit commitSupply(std::string_view text);

/// The chip current of a reading in the high range, in mA to one decimal.
/// @param reading  of the converter, 0 to 1023; 1023 is no current
[[nodiscard]] ShownNumber milliamperes(std::int32_t reading);

/// The chip current of a reading in the low range, in uA.
/// @param reading  of the converter, 0 to 1023; 1023 is no current
[[nodiscard]] ShownNumber microamperes(std::int32_t reading);

/// Power step of an output power text in steps of -3 dB: "Pmax" 0, "-3 dB" 1, "-21 dB" 7.
[[nodiscard]] std::int32_t powerStep(std::string_view text);

/// The same as a word's three bits; nothing for a text, such as a file's, that is no step of the chip and
/// would carry into the next field.
[[nodiscard]] std::optional<int> powerCode(std::string_view text);

} // namespace zor
