// SPDX-License-Identifier: MIT
#include "chips.h"
#include "exact.h"
#include "panels/common/frequency.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using exact::Fraction;

FrequencyScale scaleOf(const chips::BandRow& band, float ratio) {
    return {band.form, band.multiplier, band.base, ratio};
}

/// 10 x multiplier x ratio x (base + F / 4000), without any rounding.
Fraction exactFrequency(const chips::BandRow& band, float ratio, int code) {
    return exact::whole(10LL * band.multiplier * (4000LL * band.base + code)) * exact::ofFloat(ratio) /
           exact::whole(4000);
}

} // namespace

TEST(FrequencySweep, EveryStepShowsTheExactFrequencyWhichTypedAgainGivesTheStep) {
    for (const chips::BandRow& band : chips::bands) {
        for (float ratio : chips::crystalRatios) {
            FrequencyScale scale = scaleOf(band, ratio);
            for (int code = 96; code <= 3903; ++code) {
                ShownNumber shown = shownFrequency(static_cast<float>(code), scale).megahertz;
                long long reference = exact::nearest(exactFrequency(band, ratio, code) * exact::whole(10000));
                ASSERT_EQ(shown.text, exact::textOf(reference, 4))
                    << band.name << ", " << ratio << ", F " << code;
                ASSERT_EQ(shown.value, static_cast<double>(reference) / 10000)
                    << band.name << ", " << ratio << ", F " << code;
                ASSERT_EQ(frequencyParameter(shown.value, scale), static_cast<float>(code))
                    << band.name << ", " << ratio << ", " << shown.text;
            }
        }
    }
}

} // namespace zor
