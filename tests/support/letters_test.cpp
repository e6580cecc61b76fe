// SPDX-License-Identifier: MIT
#include "support/letters.h"

#include <gtest/gtest.h>

#include <clocale>

namespace zor {

namespace {

/// Every byte that a question says yes to, in order.
std::string bytesThat(bool (*is)(char c)) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        if (is(static_cast<char>(byte))) {
            bytes += static_cast<char>(byte);
        }
    }
    return bytes;
}

} // namespace

TEST(Letters, AreThoseOfAsciiAlone) {
    EXPECT_EQ(bytesThat(isDigit), "0123456789");
    EXPECT_EQ(bytesThat(isHexDigit), "0123456789ABCDEFabcdef");
    EXPECT_EQ(bytesThat(isLetter), "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(bytesThat(isSpace), "\t\n\v\f\r ");
}

TEST(Letters, HexadecimalDigitsAreWorthTheSameInEitherCase) {
    const std::string upperDigits = "0123456789ABCDEF";
    for (int value = 0; value < 16; ++value) {
        char digit = upperDigits[static_cast<std::size_t>(value)];
        EXPECT_EQ(hexDigit(digit), value);
        EXPECT_EQ(hexDigit(lower(digit)), value);
    }
    for (char other : {'G', 'g', '@', '`', '/', ':', '\0', '\xE4'}) {
        EXPECT_EQ(hexDigit(other), -1) << other;
    }
}

TEST(Letters, OfAnotherLanguageStayAsTheyAreInEveryLocale) {
    const std::string umlauts = "\xC3\x84\xC3\xA4 \xC4 \xE4";
    for (const char* locale : {"C", "C.UTF-8", "de_DE.ISO-8859-1", "tr_TR.UTF-8"}) {
        // One that the machine does not have leaves the one before.
        std::setlocale(LC_ALL, locale);
        EXPECT_EQ(lowerCase("File.TC " + umlauts), "file.tc " + umlauts);
        EXPECT_EQ(upperCase("File.tc " + umlauts), "FILE.TC " + umlauts);
    }
    std::setlocale(LC_ALL, "C");
}

TEST(Letters, AreTheSameInEitherCaseAndWholeTextsToo) {
    EXPECT_TRUE(sameText("nFFS_Control", "NFFS_control"));
    EXPECT_FALSE(sameText("R", "RW"));
    EXPECT_FALSE(sameText("\xC3\x84", "\xC3\xA4"));
    EXPECT_FALSE(sameLetter('@', '`')) << "a bit apart, as letters are, but no letters";
}

} // namespace zor
