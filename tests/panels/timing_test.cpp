// SPDX-License-Identifier: MIT
#include "panels/common/timing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zor {

namespace {

/// The text and unit of M = mantissa, R = exponent on the short timer, at the standard crystal.
std::string shortTime(int mantissa, int exponent, float ratio = 1.0F) {
    WakeUpTime time = wakeUpTime(WakeUpTimer::Seconds, {mantissa, exponent, 0}, ratio);
    return time.shown.text + " " + std::string(time.unit);
}

std::string extendedTime(int mantissa, int exponent, int divisor, float ratio = 1.0F) {
    WakeUpTime time = wakeUpTime(WakeUpTimer::Extended, {mantissa, exponent, divisor}, ratio);
    return time.shown.text + " " + std::string(time.unit);
}

} // namespace

TEST(WakeUp, SixHundredSecondsStayAndAThousandthMoreIsTenMinutes) {
    // 600000 = 9375 x 2^6 and 600001 is odd: mantissas no chip takes, but the rule is the function's.
    EXPECT_EQ(shortTime(9375, 6), "600 sec");
    EXPECT_EQ(shortTime(600001, 0), "10 min");
}

TEST(WakeUp, EachStepRoundsWhatTheStepBeforeWrote) {
    // 242221.056 sec, 4037.018 min, 67.284 hrs; in one division it would be 2.803 days.
    EXPECT_EQ(shortTime(231, 20), "2.804 days");
    EXPECT_EQ(shortTime(189, 21), "4.588 days"); // 6606.029 min, 110.1 hrs, 4.5875: a tie
    EXPECT_EQ(shortTime(255, 29), "1584.515 days");
    EXPECT_EQ(shortTime(255, 29, 0.8F), "1980.644 days");
}

TEST(WakeUp, EveryUnitHasItsLimit) {
    EXPECT_EQ(shortTime(0, 0), "0 sec");
    EXPECT_EQ(shortTime(1, 0), ".001 sec");
    EXPECT_EQ(shortTime(150, 1), ".3 sec");
    EXPECT_EQ(shortTime(36000000, 0), "600 min");
    EXPECT_EQ(shortTime(36000060, 0), "10 hrs");
    EXPECT_EQ(shortTime(216000000, 0), "60 hrs");
    EXPECT_EQ(shortTime(216003600, 0), "2.5 days");
}

TEST(WakeUp, NoMantissaIsNoTimeWhateverTheExponent) {
    for (int exponent = 0; exponent <= 29; ++exponent) {
        EXPECT_EQ(shortTime(0, exponent), "0 sec");
    }
    EXPECT_EQ(extendedTime(0, 15, 3), "0 ms");
}

TEST(WakeUp, TheExtendedTimerCountsMillisecondsUpTo999) {
    EXPECT_EQ(extendedTime(150, 1, 0), "300 ms");
    EXPECT_EQ(extendedTime(1, 0, 3), ".125 ms");
    EXPECT_EQ(extendedTime(999, 0, 0), "999 ms");
    EXPECT_EQ(extendedTime(7993, 0, 3), ".999 sec"); // 999.125 ms
    EXPECT_EQ(extendedTime(1000, 0, 0), "1 sec");
    EXPECT_EQ(extendedTime(9375, 6, 0), "600 sec");
    EXPECT_EQ(extendedTime(16383, 15, 0), "6.213 days");
    EXPECT_EQ(extendedTime(150, 1, 0, 1.2F), "250 ms");
}

TEST(WakeUp, CommittedSettingsAreRoundedAndHeldInTheirRanges) {
    WakeUpTraits transmitter = {WakeUpTimer::Seconds, {0, 255}, {0, 23}, {0, 0}};
    EXPECT_EQ(commitWakeUp(transmitter, "256", "24"), (WakeUpSetting{255, 23, 0}));
    EXPECT_EQ(commitWakeUp(transmitter, "-1", "-1"), (WakeUpSetting{0, 0, 0}));
    EXPECT_EQ(commitWakeUp(transmitter, "2.5", "3.5"), (WakeUpSetting{2, 4, 0}));
    EXPECT_EQ(commitWakeUp(transmitter, "abc", ""), (WakeUpSetting{0, 0, 0}));
    EXPECT_EQ(commitWakeUp(WakeUpTraits{}, "1e3", "30"), (WakeUpSetting{1, 29, 0}));
    EXPECT_EQ(commitWakeUp(extendedWakeUp, "16384", "16", "4"), (WakeUpSetting{16383, 15, 3}));
    EXPECT_EQ(commitWakeUp(extendedWakeUp, "&H13", std::string(400, '9'), "-" + std::string(400, '9')),
              (WakeUpSetting{19, 15, 0}));
}

TEST(WakeUp, AnExtendedMantissaIsSplitBetweenTwoWords) {
    EXPECT_EQ(wakeUpLowByte(300), 0x2C);
    EXPECT_EQ(wakeUpHighBits(300), 1);
    EXPECT_EQ(wakeUpLowByte(16383), 0xFF);
    EXPECT_EQ(wakeUpHighBits(16383), 63);
    EXPECT_EQ(wakeUpHighBitsBy255(16383), 63);
}

TEST(WakeUp, DividingBy255GivesTheHighBitsOfEveryMantissa) {
    for (int mantissa = 0; mantissa <= 16383; ++mantissa) {
        ASSERT_EQ(wakeUpHighBitsBy255(mantissa), mantissa >> 8) << mantissa;
        ASSERT_EQ(wakeUpHighBits(mantissa), mantissa >> 8) << mantissa;
        ASSERT_EQ(wakeUpLowByte(mantissa), mantissa % 256) << mantissa;
    }
}

TEST(Duty, IsTheShareOfTheWakeUpTimeInPercent) {
    EXPECT_EQ(dutyCycle(7, 150).text, "10");
    EXPECT_EQ(dutyCycle(0, 255).text, ".392");
    EXPECT_EQ(dutyCycle(1, 7).text, "42.857");
    EXPECT_EQ(dutyCycle(11, 320).text, "7.188"); // 7.1875
    EXPECT_EQ(dutyCycle(0, 64).text, "1.562");   // 1.5625
}

TEST(Duty, IsAHundredAboveTheTimeAndWithoutATime) {
    EXPECT_EQ(dutyCycle(7, 15), (ShownNumber{100, "100"}));
    EXPECT_EQ(dutyCycle(8, 15), (ShownNumber{100, "100"}));
    EXPECT_EQ(dutyCycle(0, 0), (ShownNumber{100, "100"}));
    EXPECT_EQ(dutyCycle(127, 0), (ShownNumber{100, "100"}));
}

TEST(DataRate, FallsWithTheDividerAndEightTimesWithThePrescaler) {
    EXPECT_EQ(dataRate(0, Prescaler::Off, 1.0F).text, "344.828");
    EXPECT_EQ(dataRate(35, Prescaler::Off, 1.0F).text, "9.579");
    EXPECT_EQ(dataRate(19, Prescaler::Off, 1.0F).text, "17.241");
    EXPECT_EQ(dataRate(19, Prescaler::On, 1.0F).text, "2.155");
    EXPECT_EQ(dataRate(255, Prescaler::On, 1.0F).text, ".168");
    EXPECT_EQ(dataRate(0, Prescaler::Off, 1.2F).text, "413.793");
}

TEST(CommittedInteger, RoundsTiesToEvenAndClamps) {
    constexpr IntegerRange range = {0, 127};
    const std::vector<std::pair<const char*, int>> rows = {
        {"", 0},
        {"35", 35},
        {"0.5", 0},
        {"1.5", 2},
        {"2.5", 2},
        {"126.5", 126},
        {"127.5", 127},
        {"128", 127},
        {"-.5", 0},
        {"-7", 0},
        {"&H13", 19},
        {"2,5", 2},
        {"abc", 0},
        {" 12x", 12},
        {"1e3", 1},
        {"99999999999", 127},
        {"-99999999999", 0},
        {"&HFFFFFFFFFF", 127},
    };
    for (const auto& [text, value] : rows) {
        EXPECT_EQ(committedInteger(text, range), value) << text;
    }
    EXPECT_EQ(committedInteger(std::string(10000, '9'), range), 127);
}

} // namespace zor
