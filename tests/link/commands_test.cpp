// SPDX-License-Identifier: MIT
#include "link/commands.h"
#include "panels/exact.h"
#include "support/error.h"

#include <gtest/gtest.h>

#include <limits>

namespace zor {

namespace {

constexpr double generation1 = 311;
constexpr double generation2 = 309;

int errorOf(double volts) {
    try {
        (void)supplyCommand(volts, generation2);
    } catch (const ToolError& error) {
        return error.number();
    }
    return 0;
}

/// Two digits, or one of a small code, behind the "V".
long long codeOf(const std::string& command) {
    return std::stoll(command.substr(1), nullptr, 16);
}

} // namespace

TEST(SupplyCode, TwoAndAHalfVoltsAre83OnBothGenerations) {
    EXPECT_EQ(supplyCommand(2.5, generation1), "V83\r"); // 130.6
    EXPECT_EQ(supplyCommand(2.5, generation2), "V83\r"); // 131.4
}

TEST(SupplyCode, TiesGoToTheEvenNeighbour) {
    EXPECT_EQ(supplyCommand(2, generation2), "V64\r"); // 100.5
    EXPECT_EQ(supplyCommand(2, generation1), "V64\r"); // 99.5
    EXPECT_EQ(supplyCommand(6, generation2), "VCC\r"); // 203.5
}

TEST(SupplyCode, EveryHundredthOfAVoltGivesTheExactCode) {
    for (int hundredths = 130; hundredths <= 10000; ++hundredths) {
        for (int numerator : {309, 311}) {
            exact::Fraction code =
                exact::whole(255) - exact::whole(numerator) / exact::decimal(hundredths, 100);
            ASSERT_EQ(codeOf(supplyCommand(hundredths / 100.0, numerator)), exact::nearest(code))
                << hundredths << ", " << numerator;
        }
    }
}

TEST(SupplyCode, IsWrittenWithoutPadding) {
    EXPECT_EQ(supplyCommand(1.25, generation2), "V8\r"); // 7.8
    EXPECT_EQ(supplyCommand(1.212, generation2), "V0\r");
}

TEST(SupplyCode, EndsAt255ForAVoltageWithoutEnd) {
    EXPECT_EQ(supplyCommand(std::numeric_limits<double>::infinity(), generation1), "VFF\r");
    EXPECT_EQ(supplyCommand(1e300, generation1), "VFF\r");
}

TEST(SupplyCode, ZeroVoltsAreADivisionByZero) {
    EXPECT_EQ(errorOf(0), 11);
    EXPECT_EQ(errorOf(-0.0), 11);
}

TEST(SupplyCode, AVoltageThatNoByteStandsForOverflows) {
    for (double volts : {1.2, 0.5, 1e-300, -2.5}) {
        EXPECT_EQ(errorOf(volts), 6) << volts;
    }
}

TEST(SupplyCode, OnlyTheFirstGenerationHasAConstantOfItsOwn) {
    EXPECT_EQ(supplyConstant(1), 311);
    for (int revision : {0, 2, 40, 50}) {
        EXPECT_EQ(supplyConstant(revision), 309) << revision;
    }
}

} // namespace zor
