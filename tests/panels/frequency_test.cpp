// SPDX-License-Identifier: MIT
#include "chips.h"
#include "exact.h"
#include "panels/common/code_list.h"
#include "panels/common/frequency.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace zor {

namespace {

constexpr FrequencyScale band315 = {FrequencyForm::TenThenMultiplier, 1, 31, 1.0F};

FrequencyScale bandOf(Band band, float ratio = 1.0F) {
    const BandConstants& constants = bandConstants(multiplierBands, band);
    return {FrequencyForm::TenThenMultiplier, constants.multiplier, constants.base.value_or(0), ratio};
}

std::vector<std::string> textsOf(const std::vector<ScaledEntry>& entries) {
    std::vector<std::string> texts;
    texts.reserve(entries.size());
    for (const ScaledEntry& entry : entries) {
        texts.push_back(entry.text);
    }
    return texts;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(Frequency, The315BandReachesFrom310Point24To319Point7575) {
    EXPECT_EQ(shownFrequency(96, band315).megahertz.text, "310.24");
    EXPECT_EQ(shownFrequency(3903, band315).megahertz.text, "319.7575");
}

TEST(Frequency, ThreeHundredAndFifteenMegahertzIsStep2000) {
    FrequencyCommit commit = commitFrequency("315", band315);
    EXPECT_EQ(commit.code, 2000.0F);
    EXPECT_EQ(commit.limit, Limit::None);
    EXPECT_EQ(commit.shown.megahertz.text, "315");
    EXPECT_EQ(0xA000 + frequencyField(commit.code), 0xA7D0);
}

TEST(Frequency, AFrequencyBetweenTwoStepsIsPulledOntoTheNearest) {
    EXPECT_EQ(commitFrequency("315.001", band315).shown.megahertz.text, "315");
    EXPECT_EQ(commitFrequency("315.0012", band315).shown.megahertz.text, "315");
    EXPECT_EQ(commitFrequency("315.0013", band315).shown.megahertz.text, "315.0025");
    EXPECT_EQ(commitFrequency("314.9999", band315).shown.megahertz.text, "315");
}

TEST(Frequency, ExactlyBetweenTwoStepsTheDoubleQuotientDecides) {
    // The quotients come out at 2000.50000000002 and 96.4999999999918.
    EXPECT_EQ(frequencyParameter(315.00125, band315), 2001.0F);
    EXPECT_EQ(frequencyParameter(310.24125, band315), 96.0F);
}

TEST(Frequency, TheNoticeGoesWithTheLimitThatIsPassed) {
    EXPECT_EQ(commitFrequency("310.24", band315).limit, Limit::None);
    EXPECT_EQ(commitFrequency("310.2375", band315).limit, Limit::Minimum);
    EXPECT_EQ(commitFrequency("310.2375", band315).code, 96.0F);
    EXPECT_EQ(commitFrequency("319.7575", band315).limit, Limit::None);
    EXPECT_EQ(commitFrequency("319.76", band315).limit, Limit::Maximum);
    EXPECT_EQ(commitFrequency("319.76", band315).code, 3903.0F);
}

TEST(Frequency, TextWithoutANumberIsZeroAndEndsAtTheMinimum) {
    for (const char* text : {"", "abc", "-", ".", "0", "-315"}) {
        FrequencyCommit commit = commitFrequency(text, band315);
        EXPECT_EQ(commit.code, 96.0F) << text;
        EXPECT_EQ(commit.limit, Limit::Minimum) << text;
        EXPECT_EQ(commit.shown.megahertz.text, "310.24") << text;
    }
}

TEST(Frequency, NumbersBeyondEveryMeasureEndAtTheLimits) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (double ratio : {0.8, 1.0, 1.2}) {
        FrequencyScale scale = bandOf(Band::Band915, static_cast<float>(ratio));
        EXPECT_EQ(frequencyParameter(infinity, scale), 1e9F);
        EXPECT_EQ(frequencyParameter(-infinity, scale), -1e9F);
        EXPECT_EQ(frequencyParameter(std::numeric_limits<double>::max(), scale), 1e9F);
        EXPECT_EQ(frequencyParameter(std::numeric_limits<double>::lowest(), scale), -1e9F);
        EXPECT_EQ(commitFrequency(std::string(400, '9'), scale).code, 3903.0F);
        EXPECT_EQ(commitFrequency("-" + std::string(400, '9'), scale).code, 96.0F);
    }
}

TEST(Frequency, TheFullTextComesBeforeTheRoundedOne) {
    FrequencyScale scale = {FrequencyForm::TenThenMultiplier, 1, 31, 1.125F};
    ShownFrequency shown = shownFrequency(332, scale);
    EXPECT_EQ(shown.fullText, "349.68375");
    EXPECT_EQ(shown.megahertz.text, "349.6838");
    shown = shownFrequency(2000, bandOf(Band::Band315, 0.8F));
    EXPECT_EQ(shown.fullText, "252.000003755093"); // single precision keeps 0.8 as 0.800000011920929
    EXPECT_EQ(shown.megahertz.text, "252");
}

TEST(Frequency, ABandChangeKeepsTheStepAndMovesTheFrequency) {
    EXPECT_EQ(shownFrequency(2000, bandOf(Band::Band315)).megahertz.text, "315");
    EXPECT_EQ(shownFrequency(2000, bandOf(Band::Band433)).megahertz.text, "435");
    EXPECT_EQ(shownFrequency(2000, bandOf(Band::Band868)).megahertz.text, "870");
    EXPECT_EQ(shownFrequency(2000, bandOf(Band::Band915)).megahertz.text, "915");
}

TEST(Frequency, TheReceiverWithoutMultiplierStandsOnEightyMegahertz) {
    FrequencyScale scale = {FrequencyForm::EightThenTen, 8, 10, 1.0F};
    FrequencyCommit commit = commitFrequency("868.3", scale);
    EXPECT_EQ(commit.code, 3415.0F);
    EXPECT_EQ(commit.shown.megahertz.text, "868.3");
    EXPECT_EQ(0xA000 + frequencyField(commit.code), 0xAD57);
    EXPECT_EQ(shownFrequency(96, scale).megahertz.text, "801.92");
    EXPECT_EQ(shownFrequency(3903, scale).megahertz.text, "878.06");
}

TEST(Frequency, BothOrdersOfDivisionGiveTheSameStepHalfwayBetweenTwo) {
    for (float ratio : chips::crystalRatios) {
        for (int base : {9, 10, 11}) {
            for (int code = 96; code < 3903; ++code) {
                double between = (base + (code + 0.5) / 4000) * 80 * static_cast<double>(ratio);
                float ten = frequencyParameter(between, {FrequencyForm::TenThenMultiplier, 8, base, ratio});
                float eight = frequencyParameter(between, {FrequencyForm::EightThenTen, 8, base, ratio});
                ASSERT_EQ(ten, eight) << between;
                ASSERT_TRUE(ten == static_cast<float>(code) || ten == static_cast<float>(code + 1))
                    << between;
            }
        }
    }
}

TEST(Frequency, ACrystalChangeKeepsTheFrequencyAndMovesTheStep) {
    FrequencyCommit commit = commitFrequency("315", bandOf(Band::Band315, 1.01F));
    EXPECT_EQ(commit.code, 752.0F); // (31.5 / 1.01 - 31) x 4000 = 752.475
    EXPECT_EQ(commit.shown.megahertz.text, "314.9988");
}

TEST(FrequencyStep, ScalesWithTheCrystal) {
    EXPECT_EQ(frequencyStep(2.5, 1.0F).text, "2.5");
    EXPECT_EQ(frequencyStep(5, 1.2F).text, "6");
    EXPECT_EQ(frequencyStep(7.5, 0.8F).text, "6");
    EXPECT_EQ(frequencyStep(20, 1.2F).text, "24");
    EXPECT_EQ(frequencyStep(2.5, 0.9999871F).text, "2.5");
    EXPECT_EQ(frequencyStep(7.5, 0.9999871F).text, "7.4999");
    EXPECT_EQ(frequencyStep(2.5, 0.9999871F).value, 2.5);
}

TEST(FrequencyStep, TheSharedBandsCarryTheirStepsAndCodes) {
    ASSERT_EQ(multiplierBands.size(), 4U);
    for (std::size_t row = 0; row < 4; ++row) {
        EXPECT_EQ(multiplierBands[row].multiplier, chips::bands[row].multiplier);
        EXPECT_EQ(multiplierBands[row].base, chips::bands[row].base);
        EXPECT_EQ(multiplierBands[row].stepKilohertz, chips::bands[row].stepKilohertz);
        EXPECT_EQ(multiplierBands[row].code, static_cast<int>(row));
    }
}

TEST(FrequencyOffset, ReadsTheLowBitsAsTwosComplement) {
    EXPECT_EQ(frequencyOffset(0x3F, 6, 2.5).text, "-2.5");
    EXPECT_EQ(frequencyOffset(0x1F, 6, 2.5).text, "77.5");
    EXPECT_EQ(frequencyOffset(0x20, 6, 2.5).text, "-80");
    EXPECT_EQ(frequencyOffset(0x1F, 5, 2.5).text, "-2.5");
    EXPECT_EQ(frequencyOffset(0x0F, 5, 2.5).text, "37.5");
    EXPECT_EQ(frequencyOffset(0x10, 5, 2.5).text, "-40");
    EXPECT_EQ(frequencyOffset(0xE0, 5, 2.5).text, "0");
    EXPECT_EQ(frequencyOffset(0xC0, 6, 2.5).text, "0");
    EXPECT_EQ(frequencyOffset(0x03, 5, 2.5613).text, "7.6839");
}

TEST(Crystal, StaysBetween8And12AndIsKeptAsATenth) {
    struct Row {
        double typed;
        const char* shown;
        Limit limit;
        float ratio;
    };
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const Row& row : std::vector<Row>{
             {10, "10", Limit::None, 1.0F},
             {8, "8", Limit::None, 0.8F},
             {12, "12", Limit::None, 1.2F},
             {7.9999994, "8", Limit::Minimum, 0.8F}, // 7.999999 once rounded
             {7.9999996, "8", Limit::None, 0.8F},
             {12.0000004, "12", Limit::None, 1.2F},
             {12.000001, "12", Limit::Maximum, 1.2F},
             {9.8765432, "9.876543", Limit::None, 0.9876543F},
             {9.8765435, "9.876544", Limit::None, 0.9876544F},
             {9.8765425, "9.876542", Limit::None, 0.9876542F},
             {0, "8", Limit::Minimum, 0.8F},
             {-10, "8", Limit::Minimum, 0.8F},
             {infinity, "12", Limit::Maximum, 1.2F},
             {-infinity, "8", Limit::Minimum, 0.8F},
         }) {
        CrystalCommit commit = commitCrystal(row.typed);
        EXPECT_EQ(commit.megahertz.text, row.shown) << row.typed;
        EXPECT_EQ(commit.limit, row.limit) << row.typed;
        EXPECT_EQ(commit.ratio, row.ratio) << row.typed;
    }
}

TEST(Crystal, ItsHertzAreTheSinglePrecisionRatioTimesTenMillion) {
    EXPECT_EQ(crystalHertz(1.0F), 10000000);
    EXPECT_EQ(crystalHertz(0.8F), 8000000);
    EXPECT_EQ(crystalHertz(1.2F), 12000000);
    EXPECT_EQ(crystalHertz(commitCrystal(9.876543).ratio), 9876543);
}

TEST(ScaledLists, TheStandardCrystalShowsTheRoundFigures) {
    EXPECT_EQ(textsOf(scaledList(clockOutputs, 1.0F)),
              (Texts{"1", "1.25", "1.66", "2", "2.5", "3.33", "5", "10"}));
    EXPECT_EQ(textsOf(scaledList(deviations(8, 30), 1.0F)),
              (Texts{"30", "60", "90", "120", "150", "180", "210", "240"}));
    EXPECT_EQ(textsOf(scaledList(deviations(8, 20), 1.0F)),
              (Texts{"20", "40", "60", "80", "100", "120", "140", "160"}));
    EXPECT_EQ(textsOf(scaledList(deviations(16, 15), 1.0F)),
              (Texts{"15", "30", "45", "60", "75", "90", "105", "120", "135", "150", "165", "180", "195",
                     "210", "225", "240"}));
    EXPECT_TRUE(scaledList(deviations(0, 15), 1.0F).empty());
}

TEST(ScaledLists, EntriesAreKeptInSinglePrecisionToFourDecimals) {
    std::vector<ScaledEntry> entries = scaledList(clockOutputs, 0.8F);
    EXPECT_EQ(textsOf(entries), (Texts{".8", "1", "1.328", "1.6", "2", "2.664", "4", "8"}));
    EXPECT_EQ(entries[2].value, 1.328F);
    // 3.33 x 1.125 = 3.74625, a tie.
    EXPECT_EQ(scaledList(clockOutputs, 1.125F)[5], (ScaledEntry{3.7462F, "3.7462"}));
    constexpr std::array<double, 2> bandwidths = {67, 340};
    EXPECT_EQ(textsOf(scaledList(bandwidths, 1.2F)), (Texts{"80.4", "408"}));
    EXPECT_EQ(textsOf(scaledList(bandwidths, 0.9999871F)), (Texts{"66.9991", "339.9956"}));
}

TEST(ScaledListSweep, EveryEntryShowsItsExactProduct) {
    constexpr std::array<int, 21> hundredths = {100,   125,  166,   200,   250,   333,   500,
                                                1000,  6700, 13400, 13500, 20000, 27000, 34000,
                                                40000, 3000, 24000, 1500,  22500, 2000,  16000};
    // Crystals from 8 to 12 MHz; the odd step brings every last digit.
    for (int hertz = 8000000; hertz <= 12000000; hertz += 1237) {
        float ratio = commitCrystal(hertz / 1e6).ratio;
        for (int value : hundredths) {
            std::array<double, 1> one = {value / 100.0};
            exact::Fraction product = exact::decimal(value, 100) * exact::ofFloat(ratio);
            long long counted = exact::nearest(product * exact::whole(10000));
            ScaledEntry entry = scaledList(one, ratio).front();
            ASSERT_EQ(entry.text, exact::textOf(counted, 4)) << value << " x " << ratio;
            ASSERT_EQ(entry.value, exact::toFloat(exact::decimal(counted, 10000))) << value << " x " << ratio;
        }
    }
}

} // namespace zor
