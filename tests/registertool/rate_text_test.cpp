// SPDX-License-Identifier: MIT
#include "registertool/fifo_test.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zor {

namespace {

struct Row {
    double rate;
    const char* text;
};

// clang-format off
constexpr Row rows[] = {
    {0,            "0.00E+00"},
    {1,            "1.00E+00"},
    {0.5,          "5.00E-01"},
    {0.25,         "2.50E-01"},
    {0.00125,      "1.25E-03"},
    {0.0489,       "4.89E-02"},
    {1.0 / 3,      "3.33E-01"},
    {2.0 / 3,      "6.67E-01"},
    {17.0 / 94208, "1.80E-04"},
    // Rounded up into the next power of ten.
    {0.9999,       "1.00E+00"},
    {0.0099996,    "1.00E-02"},
    {0.9994,       "9.99E-01"},
    {9.996,        "1.00E+01"},
    // A tie goes to the even digit.
    {0.01125,      "1.12E-02"},
    {0.01135,      "1.14E-02"},
    {1.005,        "1.00E+00"},
    // Counters that the user has edited.
    {64,           "6.40E+01"},
    {123456,       "1.23E+05"},
    {1e12,         "1.00E+12"},
    {1e100,        "1.00E+100"},
    {1e-12,        "1.00E-12"},
    {-0.5,         "-5.00E-01"},
};
// clang-format on

} // namespace

TEST(RateText, HasTwoDecimalsAndASignedExponentOfTwoDigits) {
    for (const Row& row : rows) {
        EXPECT_EQ(rateText(row.rate), row.text) << row.rate;
    }
}

TEST(RateText, WritesEachPowerOfTenAsOne) {
    for (int exponent = -99; exponent <= 99; ++exponent) {
        std::string digits = std::to_string(std::abs(exponent));
        std::string expected =
            std::string("1.00E") + (exponent < 0 ? "-" : "+") + (digits.size() < 2 ? "0" : "") + digits;
        EXPECT_EQ(rateText(std::stod("1e" + std::to_string(exponent))), expected);
    }
}

TEST(RateText, GivesZeroForWhatIsNoNumber) {
    EXPECT_EQ(rateText(std::numeric_limits<double>::infinity()), "0.00E+00");
    EXPECT_EQ(rateText(std::numeric_limits<double>::quiet_NaN()), "0.00E+00");
}

} // namespace zor
