// SPDX-License-Identifier: MIT
#pragma once

// The arithmetic of the chip panels: from what a person types to the fields of the control words and back.
// Pure functions of numbers over the small tables of each chip.
#include "panels/common/frequency.h"
#include "panels/common/levels.h"
#include "panels/common/timing.h"
#include "panels/common/values.h"

#include <span>

namespace zor {

/// The numbers in which one chip differs from the others. A list that a chip lacks is empty.
struct ChipTraits {
    FrequencyForm frequencyForm = FrequencyForm::TenThenMultiplier;
    BandTable bands = multiplierBands;
    int deviations = 0;
    double deviationStepKilohertz = 0;
    /// Receiver bandwidths in kHz at crystal ratio 1.
    std::span<const double> bandwidths;
    IntegerRange dataRateDivider = {0, 127};
    WakeUpTraits wakeUp;
    ThresholdTraits threshold;
};

/// Values of the low-duty field of every chip that has one.
inline constexpr IntegerRange dutyRange = {0, 127};

} // namespace zor
