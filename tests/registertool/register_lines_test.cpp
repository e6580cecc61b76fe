// SPDX-License-Identifier: MIT
#include "registertool/register_lines.h"

#include <gtest/gtest.h>

namespace zor {

TEST(RegisterLines, HexToBinaryMapsTwoCharactersOneByOne) {
    EXPECT_EQ(HexToBinary("A5"), "10100101");
    EXPECT_EQ(HexToBinary("a5"), "10100101");
    EXPECT_EQ(HexToBinary("0Ff"), "00001111");
    EXPECT_EQ(HexToBinary(""), "........");
    EXPECT_EQ(HexToBinary("5"), "0101....");
    EXPECT_EQ(HexToBinary("x7"), "....0111");
    EXPECT_EQ(binaryValue("80"), "1000 0000");
    EXPECT_EQ(binaryValue(""), ".... ....");
}

TEST(RegisterLines, AReadHasFourCharactersBehindTheWord) {
    EXPECT_EQ(readLine("0A"), "S2 0A00\r");
    EXPECT_EQ(readLine("5"), "S2 5000\r");
    EXPECT_EQ(readLine("12345"), "S2 1234\r");
    EXPECT_EQ(tableReadLine("0A"), "S2 0A00\r");
    EXPECT_EQ(tableReadLine("5"), "S2 500\r");
}

TEST(RegisterLines, AWriteAddsEightToTheFirstDigitOfTheAddress) {
    EXPECT_EQ(writeAddress("0A"), "8A");
    EXPECT_EQ(writeAddress("7f"), "Ff");
    EXPECT_EQ(writeAddress("5"), "D");
    EXPECT_EQ(writeAddress("C3"), "83");
    EXPECT_EQ(writeAddress(""), "8");
    EXPECT_EQ(writeAddress("123"), "92");
    EXPECT_EQ(writeLine("2A", "5F"), "S2 AA5F\r");
    EXPECT_EQ(writeLine("5", "123"), "S2 D123\r");
}

TEST(RegisterLines, TheAnswersBytesStandInFrontOfThePrompt) {
    EXPECT_EQ(answeredByte("xxx42A7 \n\rOK\n\r>"), "A7");
    EXPECT_EQ(answeredHighByte("xxx42A7 \n\rOK\n\r>"), "42");
    EXPECT_EQ(answeredByte(""), "");
    EXPECT_EQ(answeredByte("abcdef"), "f");
}

TEST(RegisterLines, TwoDigitsAreTheLastTwo) {
    EXPECT_EQ(twoDigits(""), "00");
    EXPECT_EQ(twoDigits("5"), "05");
    EXPECT_EQ(twoDigits("a5"), "a5");
    EXPECT_EQ(twoDigits("123"), "23");
}

} // namespace zor
