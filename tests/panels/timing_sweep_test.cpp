// SPDX-License-Identifier: MIT
#include "chips.h"
#include "exact.h"
#include "panels/common/timing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zor {

namespace {

using exact::Fraction;

struct Shown {
    std::string text;
    std::string unit;
};

/// Thousandths of the first unit in, text and unit out: every division is exact and rounded on its own.
Shown exactUnits(long long thousandths, bool extended) {
    std::string unit = extended ? "ms" : "sec";
    auto divide = [&](long long by, const char* next) {
        thousandths = exact::nearest({thousandths, by});
        unit = next;
    };
    if (extended && thousandths > 999000) {
        divide(1000, "sec");
    }
    if (unit == "sec" && thousandths > 600000) {
        divide(60, "min");
    }
    if (unit == "min" && thousandths > 600000) {
        divide(60, "hrs");
    }
    if (unit == "hrs" && thousandths > 60000) {
        divide(24, "days");
    }
    return {exact::textOf(thousandths, 3), unit};
}

} // namespace

TEST(DataRateSweep, EveryDividerShowsTheExactRate) {
    for (float ratio : chips::crystalRatios) {
        for (int divider = 0; divider <= 255; ++divider) {
            for (int factor : {1, 8}) {
                Fraction rate =
                    exact::ofFloat(ratio) * exact::whole(10000) / exact::whole(29LL * (divider + 1) * factor);
                ASSERT_EQ(dataRate(divider, factor == 8 ? Prescaler::On : Prescaler::Off, ratio).text,
                          exact::textOf(exact::nearest(rate * exact::whole(1000)), 3))
                    << ratio << ", R " << divider << ", / " << factor;
            }
        }
    }
}

TEST(WakeUpSweep, EveryTimeOfTheShortTimerShowsExactlyInItsUnit) {
    for (float ratio : chips::crystalRatios) {
        for (int exponent = 0; exponent <= 29; ++exponent) {
            for (int mantissa = 0; mantissa <= 255; ++mantissa) {
                WakeUpTime time = wakeUpTime(WakeUpTimer::Seconds, {mantissa, exponent, 0}, ratio);
                Shown shown =
                    exactUnits(exact::nearest(exact::whole(static_cast<long long>(mantissa) << exponent) /
                                              exact::ofFloat(ratio)),
                               false);
                ASSERT_EQ(time.shown.text, shown.text) << ratio << ", M " << mantissa << ", R " << exponent;
                ASSERT_EQ(time.unit, shown.unit) << ratio << ", M " << mantissa << ", R " << exponent;
            }
        }
    }
}

TEST(WakeUpSweep, TheExtendedTimerShowsExactlyInItsUnit) {
    for (float ratio : {1.0F, 0.8F}) {
        for (int divisor = 0; divisor <= 3; ++divisor) {
            for (int exponent = 0; exponent <= 15; ++exponent) {
                for (int mantissa = 0; mantissa <= 16383; mantissa += mantissa < 300 ? 3 : 61) {
                    WakeUpTime time = wakeUpTime(WakeUpTimer::Extended, {mantissa, exponent, divisor}, ratio);
                    Fraction milliseconds = exact::whole(static_cast<long long>(mantissa) << exponent) /
                                            (exact::whole(1LL << divisor) * exact::ofFloat(ratio));
                    Shown shown = exactUnits(exact::nearest(milliseconds * exact::whole(1000)), true);
                    ASSERT_EQ(time.shown.text, shown.text)
                        << ratio << ", M " << mantissa << ", R " << exponent << ", D " << divisor;
                    ASSERT_EQ(time.unit, shown.unit)
                        << ratio << ", M " << mantissa << ", R " << exponent << ", D " << divisor;
                }
            }
        }
    }
}

TEST(DutySweep, EveryDutyOfEveryShortTimeShowsExactlyUpToAHundred) {
    for (int mantissa = 1; mantissa <= 16383; mantissa += mantissa < 256 ? 1 : 64) {
        for (int duty = 0; duty <= 127; ++duty) {
            long long hundredThousandths = (2LL * duty + 1) * 100000;
            long long thousandths = exact::nearest({hundredThousandths, mantissa});
            bool above = (2LL * duty + 1) > mantissa;
            ASSERT_EQ(dutyCycle(duty, mantissa).text, above ? "100" : exact::textOf(thousandths, 3))
                << "D " << duty << ", M " << mantissa;
        }
    }
}

} // namespace zor
