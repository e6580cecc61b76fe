// SPDX-License-Identifier: MIT
#include "support/hex_text.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

TEST(HexText, GivesTwoUpperCaseDigitsACharacter) {
    EXPECT_EQ(hexOfText(""), "");
    EXPECT_EQ(hexOfText("Az\r\n\xFE"), "417A0D0AFE");
    EXPECT_EQ(hexOfText(std::string_view("\0", 1)), "00");
}

TEST(HexText, GivesTheCharacterOfEachPair) {
    EXPECT_EQ(textOfHex("417A0d0aFE"), "Az\r\n\xFE");
    EXPECT_EQ(textOfHex("00"), std::string(1, '\0'));
}

TEST(HexText, DropsALoneDigitAndReadsOddPairsFromTheFront) {
    EXPECT_EQ(textOfHex("414"), "A");
    EXPECT_EQ(textOfHex("4"), "");
    EXPECT_EQ(textOfHex("4xx4"), std::string("\x04\0", 2));
}

TEST(HexText, ComesBackAsItWas) {
    std::string all;
    for (int code = 0; code < 256; ++code) {
        all += static_cast<char>(code);
    }
    EXPECT_EQ(textOfHex(hexOfText(all)), all);
}

} // namespace

} // namespace zor
