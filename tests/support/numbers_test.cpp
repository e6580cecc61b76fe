// SPDX-License-Identifier: MIT
#include "support/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace zor {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// True for digits with at most one sign, one point and no zero that says nothing.
bool isPlain(const std::string& text) {
    std::string digits = text.starts_with('-') ? text.substr(1) : text;
    auto point = digits.find('.');
    if (digits.empty() || digits.find_first_not_of("0123456789.") != std::string::npos ||
        point != digits.rfind('.')) {
        return false;
    }
    bool leadingZero = digits.front() == '0' && digits != "0";
    bool emptyFraction = point != std::string::npos && (digits.back() == '0' || digits.back() == '.');
    return !leadingZero && !emptyFraction && text != "-0";
}

} // namespace

TEST(RoundTiesEven, EveryHalfGoesToTheEvenNeighbour) {
    for (int whole = -10000; whole <= 10000; ++whole) {
        int even = whole % 2 == 0 ? whole : whole + 1;
        ASSERT_EQ(roundTiesEven(whole + 0.5), even) << whole;
        ASSERT_EQ(roundTiesEven(whole), whole);
        ASSERT_EQ(roundTiesEven(whole + 0.499999999), whole);
        ASSERT_EQ(roundTiesEven(whole + 0.500000001), whole + 1);
    }
}

TEST(RoundTiesEven, NeighboursOfAHalfAndLargeNumbersAreExact) {
    EXPECT_EQ(roundTiesEven(0.49999999999999994), 0);
    EXPECT_EQ(roundTiesEven(0.50000000000000011), 1);
    EXPECT_EQ(roundTiesEven(-0.49999999999999994), 0);
    EXPECT_EQ(roundTiesEven(4503599627370495.5), 4503599627370496.0);
    EXPECT_EQ(roundTiesEven(4503599627370494.5), 4503599627370494.0);
    EXPECT_EQ(roundTiesEven(9007199254740993.0), 9007199254740993.0);
    EXPECT_EQ(roundTiesEven(1e300), 1e300);
    EXPECT_EQ(roundTiesEven(infinity), infinity);
    EXPECT_EQ(roundTiesEven(-infinity), -infinity);
    EXPECT_TRUE(std::isnan(roundTiesEven(std::nan(""))));
}

TEST(RoundToDecimals, EveryTieOfFourDecimalsGoesToTheEvenNeighbour) {
    // Read from its text, as a field is: most of these ties are no doubles.
    for (int counted = 0; counted <= 200000; ++counted) {
        double tie = (counted * 10 + 5) / 1e5;
        int even = counted % 2 == 0 ? counted : counted + 1;
        ASSERT_EQ(roundToDecimals(tie, 4), even / 1e4) << tie;
        ASSERT_EQ(roundToDecimals(-tie, 4), -even / 1e4) << tie;
        ASSERT_EQ(roundToDecimals((counted * 10 + 4) / 1e5, 4), counted / 1e4);
        ASSERT_EQ(roundToDecimals((counted * 10 + 6) / 1e5, 4), (counted + 1) / 1e4);
    }
}

TEST(RoundToDecimals, ATieIsWhatReadsAsOneInFifteenDigits) {
    EXPECT_EQ(roundToDecimals(349.68375, 4), 349.6838);
    EXPECT_EQ(roundToDecimals(23.0 / 320 * 100, 3), 7.188);
    EXPECT_EQ(roundToDecimals(2.00050000000001, 3), 2.001);
    EXPECT_EQ(roundToDecimals(2.00049999999999, 3), 2.0);
    EXPECT_EQ(roundToDecimals(2.0005, 3), 2.0);
    EXPECT_EQ(roundToDecimals(2.5, 0), 2);
    EXPECT_EQ(roundToDecimals(3.5, 0), 4);
}

TEST(RoundToDecimals, NumbersTooLargeForTheirDecimalsStayAsTheyAre) {
    for (double value :
         {123456789012345678.0, 4503599627370497.0, 1e300, -1e300, infinity, -infinity, 1213396282906.0579}) {
        EXPECT_EQ(roundToDecimals(value, 15), value);
        EXPECT_EQ(roundToDecimals(value, 6), value);
    }
    EXPECT_TRUE(std::isnan(roundToDecimals(std::nan(""), 3)));
    EXPECT_EQ(roundToDecimals(1234567890123.0, 0), 1234567890123.0);
    EXPECT_EQ(roundToDecimals(1125899906842625.0, 0), 1125899906842625.0);
    EXPECT_EQ(roundToDecimals(1e-300, 15), 0);
}

TEST(RoundToInt, HoldsEveryNumberInsideAnInt) {
    EXPECT_EQ(roundToInt(2.5), 2);
    EXPECT_EQ(roundToInt(-2.5), -2);
    EXPECT_EQ(roundToInt(-3.5), -4);
    EXPECT_EQ(roundToInt(2147483646.5), 2147483646);
    EXPECT_EQ(roundToInt(2147483647.0), 2147483647);
    EXPECT_EQ(roundToInt(2147483648.0), 2147483647);
    EXPECT_EQ(roundToInt(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(roundToInt(-2147483649.0), -2147483647 - 1);
    EXPECT_EQ(roundToInt(infinity), 2147483647);
    EXPECT_EQ(roundToInt(-infinity), -2147483647 - 1);
    EXPECT_EQ(roundToInt(std::nan("")), 0);
}

TEST(NumberText, ADoubleShowsUpToFifteenDigits) {
    const std::vector<std::pair<double, const char*>> rows = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-1, "-1"},
        {0.5, ".5"},
        {-0.5, "-.5"},
        {100, "100"},
        {-100.25, "-100.25"},
        {0.05, ".05"},
        {868.3, "868.3"},
        {0.1 + 0.2, ".3"},
        {1.0 / 3, ".333333333333333"},
        {2.0 / 3, ".666666666666667"},
        {1234567.891011121, "1234567.89101112"},
        {999999999999999.0, "999999999999999"},
        {9999999999999999.0, "10000000000000000"},
        {0.9999999999999999, "1"},
        {-0.9999999999999999, "-1"},
        {123456789012345678.0, "123456789012346000"},
        {1e21, "1000000000000000000000"},
        {1e-7, ".0000001"},
        {1.5e-10, ".00000000015"},
        {infinity, "9999999999999999"},
        {-infinity, "-9999999999999999"},
    };
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(numberText(value), text) << value;
    }
    EXPECT_EQ(numberText(std::nan("")), "0");
}

TEST(NumberText, ASinglePrecisionNumberShowsUpToSevenDigits) {
    const std::vector<std::pair<float, const char*>> rows = {
        {0.0F, "0"},
        {-0.0F, "0"},
        {0.8F, ".8"},
        {-0.8F, "-.8"},
        {1.66F, "1.66"},
        {3.7462F, "3.7462"},
        {1.0F / 3, ".3333333"},
        {16777216.0F, "16777220"},
        {339.9956F, "339.9956"},
        {1234567.0F, "1234567"},
        {0.99999999F, "1"},
        {1e10F, "10000000000"},
        {std::numeric_limits<float>::infinity(), "9999999999999999"},
    };
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(numberText(value), text) << value;
    }
}

TEST(NumberText, EveryMagnitudeIsPlainAndReadsBackToFifteenDigits) {
    for (int exponent = -320; exponent <= 307; ++exponent) {
        for (double mantissa : {1.0, 1.23456789012345678, 9.99999999999999944, -7.0, -2.5}) {
            double value = mantissa * std::pow(10.0, exponent);
            std::string text = numberText(value);
            ASSERT_TRUE(isPlain(text)) << text;
            ASSERT_NEAR(std::strtod(text.c_str(), nullptr) / value, 1.0, exponent < -305 ? 1.0 : 1e-14)
                << text;
        }
    }
    EXPECT_EQ(numberText(std::numeric_limits<double>::max()).size(), 309U);
}

TEST(NumberText, EveryFourDecimalNumberReadsBackAsItself) {
    for (int counted = -300000; counted <= 300000; counted += 7) {
        double value = counted / 1e4;
        std::string text = numberText(value);
        ASSERT_TRUE(isPlain(text)) << text;
        ASSERT_EQ(numericPrefix(text), value) << text;
    }
}

TEST(NumericPrefix, ReadsWhatATextBeginsWith) {
    const std::vector<std::pair<std::string, std::optional<double>>> rows = {
        {"315", 315.0},
        {"  315", 315.0},
        {"\t7", 7.0},
        {"+4", 4.0},
        {"-4", -4.0},
        {" -4.5 V", -4.5},
        {".5", .5},
        {"-.5", -.5},
        {"5.", 5.0},
        {"007", 7.0},
        {"2,5", 2.0},
        {"1e3", 1.0},
        {"1.2.3", 1.2},
        {"12 34", 12.0},
        {"-9 dB", -9.0},
        {"&H13", 19.0},
        {"&hff", 255.0},
        {"&H1G", 1.0},
        {" &HA", 10.0},
        {"", std::nullopt},
        {" ", std::nullopt},
        {"abc", std::nullopt},
        {"Pmax", std::nullopt},
        {"-", std::nullopt},
        {"+", std::nullopt},
        {".", std::nullopt},
        {"-.", std::nullopt},
        {"..5", std::nullopt},
        {"--5", std::nullopt},
        {"+-5", std::nullopt},
        {"- 5", std::nullopt},
        {"&", std::nullopt},
        {"&H", std::nullopt},
        {"&HG", std::nullopt},
        {"-&H1", std::nullopt},
        {"nan", std::nullopt},
        {"inf", std::nullopt},
        {"-inf", std::nullopt},
        {"infinity", std::nullopt},
        {"0x10", 0.0},
        {"\n5", std::nullopt},
        {"\xb5"
         "5",
         std::nullopt},
        {"5\xff\x80", 5.0},
        {"\xc2\xa0"
         "5",
         std::nullopt},
        {std::string("5\0006", 3), 5.0},
        {std::string("\0005", 2), std::nullopt},
    };
    for (const auto& [text, value] : rows) {
        EXPECT_EQ(readNumericPrefix(text), value) << "\"" << text << "\"";
        EXPECT_EQ(numericPrefix(text), value.value_or(0)) << "\"" << text << "\"";
    }
}

TEST(NumericPrefix, TenThousandCharactersAreANumberOrBeyondEveryNumber) {
    EXPECT_EQ(numericPrefix(std::string(10000, '9')), infinity);
    EXPECT_EQ(numericPrefix("-" + std::string(10000, '9')), -infinity);
    EXPECT_EQ(numericPrefix(std::string(10000, '0') + "7"), 7);
    EXPECT_EQ(numericPrefix("." + std::string(10000, '0') + "7"), 0);
    EXPECT_EQ(numericPrefix("-0." + std::string(10000, '0') + "7"), 0);
    EXPECT_EQ(numericPrefix("3." + std::string(10000, '0') + "7"), 3);
    EXPECT_EQ(numericPrefix(std::string(10000, ' ') + "8"), 8);
    EXPECT_EQ(numericPrefix("&H" + std::string(10000, 'F')), infinity);
    EXPECT_EQ(numericPrefix(std::string(10000, '-')), 0);
}

TEST(NumericPrefix, NoByteOrPairOfBytesIsTooMuch) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            std::string text = {static_cast<char>(first), static_cast<char>(second)};
            double value = numericPrefix(text);
            ASSERT_TRUE(value > -10 && value < 100) << first << ", " << second;
            bool beginsWithDigit = first >= '0' && first <= '9';
            ASSERT_TRUE(!beginsWithDigit || readNumericPrefix(text).has_value()) << first << ", " << second;
        }
    }
}

TEST(HexText, EverySixteenBitWordReadsBack) {
    for (std::uint32_t word = 0; word <= 0xFFFF; ++word) {
        std::string text = hexText(word);
        ASSERT_EQ(text.find_first_not_of("0123456789ABCDEF"), std::string::npos) << text;
        ASSERT_TRUE(text.front() != '0' || text == "0") << text;
        ASSERT_EQ(readHex(text), word);
        ASSERT_EQ(hexText(word, 4).size(), 4U);
        ASSERT_EQ(readHex(hexText(word, 4)), word);
    }
}

TEST(HexText, IsUpperCaseWithoutPrefixOrPadding) {
    EXPECT_EQ(hexText(0), "0");
    EXPECT_EQ(hexText(0xA7D0), "A7D0");
    EXPECT_EQ(hexText(0xFFFFFFFF), "FFFFFFFF");
    EXPECT_EQ(hexText(0x5, 2), "05");
    EXPECT_EQ(hexText(0, 2), "00");
    EXPECT_EQ(hexText(0x123, 2), "123");
    EXPECT_EQ(hexText(0xAB, 0), "AB");
}

TEST(ReadHex, TakesOnlyHexadecimalFromEndToEnd) {
    EXPECT_EQ(readHex("d4"), 0xD4U);
    EXPECT_EQ(readHex("D4"), 0xD4U);
    EXPECT_EQ(readHex("00000000"), 0U);
    EXPECT_EQ(readHex("ffffffff"), 0xFFFFFFFFU);
    for (const char* text : {"", " ", "D4 ", " D4", "G", "0x1", "-1", "+1", "1.0", "&H1", "000000000",
                             "\xc4\xb4", "123456789"}) {
        EXPECT_EQ(readHex(text), std::nullopt) << text;
    }
    EXPECT_EQ(readHex(std::string(10000, 'F')), std::nullopt);
}

TEST(Numbers, ATextThatIsOnlyLookedAtHasItsDecimalsAndAPoint) {
    EXPECT_EQ(decimalsText(13.4, 1), "13.4");
    EXPECT_EQ(decimalsText(13, 2), "13.00");
    EXPECT_EQ(decimalsText(0.04, 1), "0.0");
    EXPECT_EQ(decimalsText(-2.5, 0), "-2");
    EXPECT_EQ(decimalsText(1e300, 0).size(), 301U);
    EXPECT_EQ(decimalsText(std::numeric_limits<double>::infinity(), 3), "inf");
    EXPECT_EQ(decimalsText(1.0 / 3, 99), "0.333333333333333");
}

TEST(Numbers, AShortTextTakesThePowerOfTenWhereThatIsShorter) {
    EXPECT_EQ(shortText(1.5e12, 6), "1.5e+12");
    EXPECT_EQ(shortText(0.00001234567, 3), "1.23e-05");
    EXPECT_EQ(shortText(433.92, 6), "433.92");
    EXPECT_EQ(shortText(0, 6), "0");
}

} // namespace zor
