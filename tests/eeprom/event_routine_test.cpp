// SPDX-License-Identifier: MIT
#include "eeprom/event_routine.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

std::string converted(std::string text, bool toHex) {
    Hex2Ascii2Hex(text, toHex);
    return text;
}

CaretText typed(std::string_view before, std::size_t caret, char key) {
    std::string after(before);
    after.insert(caret, 1, key);
    return filteredDigits(before, {after, caret + 1});
}

} // namespace

TEST(EventRoutine, ConvertsEachCharacterIntoTwoUpperCaseDigits) {
    EXPECT_EQ(converted("Hi\n", true), "48690A");
    EXPECT_EQ(converted(std::string("\0\xFF", 2), true), "00FF");
    EXPECT_EQ(converted("", true), "");
}

TEST(EventRoutine, ConvertsEachPairOfDigitsIntoItsCharacter) {
    EXPECT_EQ(converted("48690a", false), "Hi\n");
    EXPECT_EQ(converted("00FF", false), std::string("\0\xFF", 2));
    EXPECT_EQ(converted("4869A", false), "Hi") << "a lone last digit is dropped";
}

TEST(EventRoutine, BringsEveryByteBackThroughTheOtherView) {
    for (int code = 0; code < 256; ++code) {
        std::string byte(1, static_cast<char>(code));
        EXPECT_EQ(converted(converted(byte, true), false), byte);
    }
}

TEST(EventRoutine, TakesOutATypedCharacterThatIsNoDigit) {
    EXPECT_EQ(typed("AB", 1, 'g'), (CaretText{"AB", 1}));
    EXPECT_EQ(typed("AB", 1, 'c'), (CaretText{"ACB", 2}));
    EXPECT_EQ(typed("AB", 2, ' '), (CaretText{"AB", 2}));
    EXPECT_EQ(typed("ab", 0, '1'), (CaretText{"1AB", 1})) << "the whole text goes to upper case";
}

TEST(EventRoutine, TestsTheCharacterBeforeTheCaretAlone) {
    EXPECT_EQ(typed("XYZ", 1, '5'), (CaretText{"X5YZ", 2}));
    // A key that repeats its neighbour.
    EXPECT_EQ(typed("XX", 2, 'X'), (CaretText{"XX", 2}));
    // A deletion is a change too.
    EXPECT_EQ(filteredDigits("AXB", {"AX", 2}), (CaretText{"A", 1}));
    EXPECT_EQ(filteredDigits("AX", {"X", 0}), (CaretText{"X", 0}));
}

TEST(EventRoutine, FiltersAllOfWhatWasPasted) {
    EXPECT_EQ(filteredDigits("A7D0", {"A7 12 gh 34D0", 11}), (CaretText{"A71234D0", 6}));
    EXPECT_EQ(filteredDigits("", {"hello", 5}), (CaretText{"E", 1}));
}

TEST(EventRoutine, PutsTheLengthInFrontOfThePayload) {
    EXPECT_EQ(transmitCommand("AAAA2DD4"), "C604AAAA2DD4");
    EXPECT_EQ(transmitCommand(""), "C600");
    EXPECT_EQ(transmitCommand(std::string(124 * 2, 'A')).substr(0, 6), "C67CAA");
}

TEST(EventRoutine, IsCutBehindTheDataOfTheLastTransmitCommand) {
    EXPECT_EQ(withoutTail("9030C602AABBC400"), "9030C602AABB");
    EXPECT_EQ(withoutTail("C601AAC602BBCCC400"), "C601AAC602BBCC");
    EXPECT_EQ(withoutTail("9030C400"), "9030C400") << "without one nothing is cut";
    EXPECT_EQ(withoutTail("c601aaC400"), "c601aa");
}

TEST(EventRoutine, FindsATransmitCommandInItsDigitsWhereverTheyStand) {
    // 8C 60 12: the two digits of the code lie across two bytes; its length reads 01.
    EXPECT_EQ(withoutTail("8C60123456"), "8C60123");
    EXPECT_EQ(withoutTail("9030C6"), "9030C6");
    EXPECT_EQ(withoutTail("9030C605AA"), "9030C605AA") << "less data than the length says";
    EXPECT_EQ(withoutTail("C6ZZ1234"), "C6ZZ") << "a length that is none counts as 0";
}

TEST(EventRoutine, IsCutInFrontOfTheFirstTransmitCommand) {
    EXPECT_EQ(withoutTransmits("9030C601AAC602BBCC"), "9030");
    EXPECT_EQ(withoutTransmits("9030C400"), "9030C400");
    EXPECT_EQ(withoutTransmits("C600"), "");
}

TEST(EventRoutine, TakesSoManyFillBytes) {
    EXPECT_EQ(fillCount(0, 4), 126);
    EXPECT_EQ(fillCount(0, 0), 128);
    EXPECT_EQ(fillCount(248, 4), 2);
    EXPECT_EQ(fillCount(252, 4), 0);
    EXPECT_EQ(fillCount(256, 4), 0) << "no room adds nothing";
    // Halves go to the even neighbour.
    EXPECT_EQ(fillCount(251, 4), 0);
    EXPECT_EQ(fillCount(249, 4), 2);
}

TEST(EventRoutine, SleepsIfItsDigitsStandSomewhere) {
    EXPECT_TRUE(mentionsSleep("9030C400"));
    EXPECT_TRUE(mentionsSleep("9030c400"));
    EXPECT_TRUE(mentionsSleep("C602C40030")) << "as data too";
    EXPECT_TRUE(mentionsSleep("AC4009")) << "and across bytes";
    EXPECT_FALSE(mentionsSleep("9030C40"));
    EXPECT_FALSE(mentionsSleep(""));
}

TEST(EventRoutine, HasNoFunctionIfItIsEmptyOrSleepsAtOnce) {
    EXPECT_TRUE(hasNoFunction(""));
    EXPECT_TRUE(hasNoFunction("C400"));
    EXPECT_TRUE(hasNoFunction("c4"));
    EXPECT_TRUE(hasNoFunction("C4009030"));
    EXPECT_FALSE(hasNoFunction("9030C400"));
    EXPECT_FALSE(hasNoFunction("C"));
}

TEST(EventRoutine, FillsItsBlockWithZeroBytes) {
    std::string block = routineBlock("C400");
    EXPECT_EQ(block.size(), 256U);
    EXPECT_EQ(block.substr(0, 6), "C40000");
    EXPECT_EQ(block.find_first_not_of('0', 4), std::string::npos);
}

TEST(EventRoutine, IsTakenFromAnImageBlockByBlock) {
    std::string image(1792, '1');
    EXPECT_EQ(routinesOf(image).size(), 7U);
    EXPECT_EQ(routinesOf(image).back(), std::string(256, '1'));
    EXPECT_EQ(routinesOf(std::string(128, '1')).size(), 0U) << "half a block goes to the even neighbour";
    EXPECT_EQ(routinesOf(std::string(384, '1')).size(), 2U);
    EXPECT_EQ(routinesOf(std::string(384, '1')).back().size(), 128U);
    EXPECT_EQ(routinesOf(std::string(5000, '1')).size(), 7U);
    EXPECT_TRUE(routinesOf("").empty());
}

TEST(EventRoutine, GivesTheDigitsOfATextWithoutItsLineEndsAndBlanks) {
    EXPECT_EQ(imageDigitsOf("C4 00\r\n9x\t30 \n"), "C4009x\t30");
}

TEST(EventRoutine, IsFormattedByLinesOfBytes) {
    EXPECT_EQ(FormatEEPROMText("C4009030", 2), "C4 00\r\n90 30\r\n");
    EXPECT_EQ(FormatEEPROMText("C400903", 2), "C4 00\r\n90 3\r\n");
    EXPECT_EQ(FormatEEPROMText("C40090", 32), "C4 00 90 ");
    EXPECT_EQ(FormatEEPROMText("", 32), "");
    std::string whole = FormatEEPROMText(std::string(1792, 'A'), 32);
    EXPECT_EQ(whole.size(), 28U * (32 * 3 + 1));
    EXPECT_TRUE(whole.ends_with("AA\r\n"));
}

TEST(EventRoutine, HasAPn9SequenceThatObeysItsOwnRule) {
    std::string bytes = converted(std::string(pn9Sequence), false);
    ASSERT_EQ(bytes.size(), 64U);
    auto bit = [&bytes](std::size_t at) {
        return (static_cast<unsigned char>(bytes[at / 8]) >> (7 - at % 8)) & 1;
    };
    // The period is 511 bits, highest bit of a byte first; the last bit of the last byte is a filling 0.
    for (std::size_t at = 0; at < 9; ++at) {
        EXPECT_EQ(bit(at), 1);
    }
    for (std::size_t at = 9; at < 511; ++at) {
        EXPECT_EQ(bit(at), bit(at - 5) ^ bit(at - 9)) << at;
    }
    EXPECT_EQ(bit(511), 0);
}

} // namespace zor
