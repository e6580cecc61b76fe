// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/radio_chip.h"

namespace zor::sim {

/// Which parts of a radio chip draw current, as its latched words say.
struct ChipActivity {
    bool oscillator = false;
    bool synthesizer = false;
    bool amplifier = false;
    int powerStep = 0; // 0 full power to 7, each 3 dB less
    bool receiver = false;
    bool lowBatteryDetector = false;
    bool wakeUpTimer = false;
};

/// What the chip's power bits switch on. Everything is off on a chip that is not told or has had no word.
[[nodiscard]] ChipActivity activityOf(const RadioChip& chip);

/// Supply current in milliamperes: the sum of typical figures of a sub-GHz radio at 2.5 V, 0.0003 mA asleep.
[[nodiscard]] double supplyCurrent(const ChipActivity& activity);

enum class CurrentRange { low, high };

/// What the board's 10-bit converter reads for a current: it falls from 1023 at no current by one count
/// each 24.4 uA in the high range and each 48.8 uA in the low range.
/// @return 0 to 1023
[[nodiscard]] int converterCounts(double milliamps, CurrentRange range);

} // namespace zor::sim
