// SPDX-License-Identifier: MIT
#include "exact.h"
#include "panels/common/levels.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zor {

namespace {

constexpr ThresholdTraits common = {{0, 31}, 22, 22};
constexpr ThresholdTraits fromTwoVolts = {{0, 15}, 20, 20};
constexpr ThresholdTraits disagreeing = {{0, 15}, 20, 22};

/// The voltage that stays after a voltage was typed: the threshold is clamped and shown back.
std::string settled(const char* text, const ThresholdTraits& traits) {
    return thresholdVoltage(traits.range.clamp(commitThresholdVoltage(text, traits).threshold), traits).text;
}

} // namespace

TEST(Threshold, EveryThresholdShowsItsVoltage) {
    for (int threshold = 0; threshold <= 31; ++threshold) {
        EXPECT_EQ(thresholdVoltage(threshold, common).text, exact::textOf(threshold + 22, 1));
    }
    for (int threshold = 0; threshold <= 15; ++threshold) {
        EXPECT_EQ(thresholdVoltage(threshold, fromTwoVolts).text, exact::textOf(threshold + 20, 1));
        EXPECT_EQ(thresholdVoltage(threshold, disagreeing).text, exact::textOf(threshold + 20, 1));
    }
    EXPECT_EQ(thresholdVoltage(31, common).text, "5.3");
    EXPECT_EQ(thresholdVoltage(15, fromTwoVolts).text, "3.5");
}

TEST(Threshold, AShownVoltageTypedAgainGivesTheThreshold) {
    for (int threshold = 0; threshold <= 31; ++threshold) {
        std::string shown = thresholdVoltage(threshold, common).text;
        EXPECT_EQ(commitThresholdVoltage(shown, common).threshold, threshold);
        EXPECT_EQ(commitThresholdVoltage(shown, common).limit, Limit::None);
    }
    for (int threshold = 0; threshold <= 15; ++threshold) {
        std::string shown = thresholdVoltage(threshold, fromTwoVolts).text;
        EXPECT_EQ(commitThresholdVoltage(shown, fromTwoVolts).threshold, threshold);
    }
}

TEST(Threshold, TheTwoDirectionsOfTheExtendedReceiverDisagree) {
    EXPECT_EQ(commitThresholdVoltage("2.2", disagreeing).threshold, 0);
    EXPECT_EQ(settled("2.2", disagreeing), "2");
    EXPECT_EQ(settled("3", disagreeing), "2.8");
}

TEST(Threshold, ZeroVoltsEndAtTheLowestThreshold) {
    EXPECT_EQ(commitThresholdVoltage("0", common).threshold, -22);
    EXPECT_EQ(commitThresholdVoltage("0", common).limit, Limit::None);
    EXPECT_EQ(settled("0", common), "2.2");
    EXPECT_EQ(settled("abc", common), "2.2");
}

TEST(Threshold, TypedVoltagesStayBetween0And5Point3) {
    VoltageCommit low = commitThresholdVoltage("-.1", common);
    EXPECT_EQ(low.limitText, "0");
    EXPECT_EQ(low.limit, Limit::Minimum);
    EXPECT_EQ(low.threshold, -22);
    VoltageCommit high = commitThresholdVoltage("5.31", common);
    EXPECT_EQ(high.limitText, "5.3");
    EXPECT_EQ(high.limit, Limit::Maximum);
    EXPECT_EQ(high.threshold, 31);
    EXPECT_EQ(commitThresholdVoltage("5.3", common).limit, Limit::None);
    EXPECT_EQ(commitThresholdVoltage("5.3", common).limitText, "");
    EXPECT_EQ(commitThresholdVoltage(std::string(400, '9'), common).threshold, 31);
    EXPECT_EQ(commitThresholdVoltage("-" + std::string(400, '9'), common).threshold, -22);
}

TEST(Threshold, TenthsAreComputedInSinglePrecision) {
    EXPECT_EQ(commitThresholdVoltage("2.25", common).threshold, 0); // 22.5 to the even 22
    EXPECT_EQ(commitThresholdVoltage("2.35", common).threshold, 2); // 23.5 to the even 24
    // In double precision just above 22.5, in single precision the tie.
    EXPECT_EQ(commitThresholdVoltage("2.25000001", common).threshold, 0);
    // The voltage is narrowed before the multiplication: .34999998 becomes the .35 next above, its
    // tenths 3.5.
    EXPECT_EQ(commitThresholdVoltage(".34999998", common).threshold, 4 - 22);
    for (int thousandths = 0; thousandths <= 5300; ++thousandths) {
        float narrowed = exact::toFloat(exact::decimal(thousandths == 0 ? 1 : thousandths, 1000));
        float tenths = exact::toFloat(exact::ofFloat(narrowed) * exact::whole(10));
        long long reference = thousandths == 0 ? 0 : exact::nearest(exact::ofFloat(tenths));
        std::string text = exact::textOf(thousandths, 3);
        ASSERT_EQ(commitThresholdVoltage(text, common).threshold, reference - 22) << text;
        ASSERT_EQ(commitThresholdVoltage(text, fromTwoVolts).threshold, reference - 20) << text;
    }
}

TEST(Supply, OnlyThePlainFormOfANumberIsCanonical) {
    for (const char* text : {"2.5", "2", "0", ".5", "5.4", "12", "2.123456789"}) {
        EXPECT_TRUE(isCanonicalSupply(text)) << text;
    }
    for (const char* text : {"", "abc", "2,5", "2.50", "0.5", " 2.5", "2.5 ", "2.5 V", "+2.5", "-2.5", "-0",
                             "02.5", "2.", "1e3", "&H2"}) {
        EXPECT_FALSE(isCanonicalSupply(text)) << text;
    }
}

TEST(Supply, IsRoundedToATenthAndHeldBetween2And5Point4) {
    struct Row {
        const char* typed;
        const char* shown;
        Limit limit;
    };
    for (const Row& row : std::vector<Row>{
             {"2.5", "2.5", Limit::None},
             {"2,5", "2", Limit::None},
             {"2.45", "2.4", Limit::None},
             {"2.55", "2.6", Limit::None},
             {"2.449", "2.4", Limit::None},
             {"1.96", "2", Limit::None},
             {"1.95", "2", Limit::None},
             {"1.94", "2", Limit::Minimum},
             {"1", "2", Limit::Minimum},
             {"", "2", Limit::Minimum},
             {"-3", "2", Limit::Minimum},
             {"5.4", "5.4", Limit::None},
             {"5.45", "5.4", Limit::None},
             {"5.46", "5.4", Limit::Maximum},
             {"6", "5.4", Limit::Maximum},
         }) {
        SupplyCommit commit = commitSupply(row.typed);
        EXPECT_EQ(commit.volts.text, row.shown) << row.typed;
        EXPECT_EQ(commit.limit, row.limit) << row.typed;
    }
    EXPECT_EQ(commitSupply(std::string(400, '9')).volts.text, "5.4");
    EXPECT_EQ(commitSupply("-" + std::string(400, '9')).volts.text, "2");
}

TEST(Supply, EveryTenthKeepsItsText) {
    for (int tenths = 20; tenths <= 54; ++tenths) {
        std::string text = exact::textOf(tenths, 1);
        EXPECT_TRUE(isCanonicalSupply(text)) << text;
        EXPECT_EQ(commitSupply(text).volts.text, text);
        EXPECT_EQ(commitSupply(text).limit, Limit::None) << text;
    }
}

TEST(Current, EveryReadingShowsTheExactFigure) {
    for (int reading = 0; reading <= 1023; ++reading) {
        long long drawn = 1023 - reading;
        long long tenths = exact::nearest(exact::decimal(drawn * 244, 1000)); // of 24.4 / 1000 mA
        ASSERT_EQ(milliamperes(reading).text, exact::textOf(tenths, 1)) << reading;
        ASSERT_EQ(microamperes(reading).text, exact::textOf(drawn * 488, 1)) << reading;
        ASSERT_EQ(microamperes(reading).value, static_cast<double>(drawn * 488) / 10) << reading;
    }
    EXPECT_EQ(milliamperes(0).text, "25");
    EXPECT_EQ(milliamperes(1023).text, "0");
    EXPECT_EQ(milliamperes(898).text, "3"); // 3.05
    EXPECT_EQ(microamperes(1020).text, "146.4");
}

TEST(Current, ExactlyOnePointTwoMilliamperesStaysInTheHighRange) {
    EXPECT_EQ(milliamperes(974).value, 1.2); // 1.1956
    EXPECT_FALSE(milliamperes(974).value < 1.2);
    EXPECT_TRUE(milliamperes(976).value < 1.2); // 1.1468
}

TEST(PowerStep, IsTheTextInStepsOfThreeDecibel) {
    const std::vector<const char*> texts = {"Pmax",   "-3 dB",  "-6 dB",  "-9 dB",
                                            "-12 dB", "-15 dB", "-18 dB", "-21 dB"};
    for (std::size_t step = 0; step < texts.size(); ++step) {
        EXPECT_EQ(powerStep(texts[step]), static_cast<int>(step));
    }
    EXPECT_EQ(powerStep(""), 0);
}

} // namespace zor
