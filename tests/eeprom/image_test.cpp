// SPDX-License-Identifier: MIT
#include "eeprom/image.h"

#include "support/error.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

int errorOf(std::string_view bytes) {
    try {
        (void)readImageFile(bytes);
    } catch (const ToolError& error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST(EepromImage, CountsNothingButHexadecimalDigits) {
    EXPECT_EQ(hexDigits("c6 05\r\nG-AF\x02"), "c605AF");
    EXPECT_EQ(countHexDigits("c6 05\r\nG-AF\x02"), 6U);
    EXPECT_EQ(foldedHexDigits("C6 0a zF"), "c60af");
    EXPECT_EQ(hexDigits(""), "");
}

TEST(EepromImage, TellsHalfABytesSize) {
    EXPECT_EQ(dataSizeText(0), "0 byte");
    EXPECT_EQ(dataSizeText(1), "0.5 byte");
    EXPECT_EQ(dataSizeText(11), "5.5 byte");
    EXPECT_EQ(dataSizeText(2048), "1024 byte");
    EXPECT_EQ(dataSizeText(40'000), "20000 byte");
}

TEST(EepromImage, PageCountAndTailDoNotFitOneAnother) {
    struct Row {
        std::size_t digits;
        std::int32_t pages;
        int tail;
    };
    // A half goes to the even neighbour: 16 digits are no page, 48 are two, 80 are two.
    for (Row row : {Row{0, 0, 0}, Row{1, 0, 1}, Row{15, 0, 15}, Row{16, 0, 16}, Row{17, 1, 17}, Row{32, 1, 0},
                    Row{33, 1, 1}, Row{48, 2, 16}, Row{80, 2, 16}, Row{112, 4, 16}, Row{2048, 64, 0}}) {
        PageSplit split = splitIntoPages(row.digits);
        EXPECT_EQ(split.pages, row.pages) << row.digits;
        EXPECT_EQ(split.tailDigits, row.tail) << row.digits;
    }
}

TEST(EepromImage, AWriteCarriesItsDigitsAsTheyStandAndEmptyFieldsBehindThem) {
    EXPECT_EQ(pageWriteCommand("C60aFf", 0, 3), "SX02,00,00,C6,0a,Ff");
    EXPECT_EQ(pageWriteCommand("C60aF", 0, 4), "SX02,00,00,C6,0a,F,");
    EXPECT_EQ(pageWriteCommand(std::string(66, '1'), 32, 2), "SX02,00,20,11,");
    EXPECT_EQ(pageWriteCommand("", 1008, 2), "SX02,03,F0,,");
    EXPECT_EQ(pageWriteCommand("", 10, 0), "SX02,00,0A");
}

TEST(EepromImage, IsShownWithThirtyTwoBytesALine) {
    EXPECT_EQ(shownImage(""), "");
    EXPECT_EQ(shownImage("c605"), "c6 05 ");
    std::string line;
    for (int i = 0; i < 31; ++i) {
        line += "ff ";
    }
    line += "ff";
    EXPECT_EQ(shownImage(std::string(64, 'f')), line);
    EXPECT_EQ(shownImage(std::string(66, 'f')), line + "\r\nff ");
    EXPECT_EQ(shownImage(std::string(128, 'f')), line + "\r\n" + line);
}

TEST(EepromImage, ReportsEveryDifferenceOverTheBuffersLength) {
    EXPECT_EQ(differenceReport("c605", "c605ffff"), "");
    EXPECT_EQ(differenceReport("", "ff"), "");
    EXPECT_EQ(differenceReport("c6050", "c60600"),
              "difference in pos.: 2\r\nbuffer: 0x05\r\ndevice: 0x06\r\n"
              "difference in pos.: 3\r\nbuffer: 0x0\r\ndevice: 0x00\r\n");
    EXPECT_EQ(differenceReport("aa", ""), "difference in pos.: 1\r\nbuffer: 0xaa\r\ndevice: 0x\r\n");
    EXPECT_EQ(differenceReport("aa", "AA"), "difference in pos.: 1\r\nbuffer: 0xaa\r\ndevice: 0xAA\r\n");
}

TEST(EepromImage, AFileIsTakenApartBehindItsFirstComma) {
    ImageFile file = readImageFile("\x02 $A00000000,\r\nc6 05\r\nc4 00\r\n\x03");
    EXPECT_EQ(file.preamble, customaryPreamble);
    EXPECT_EQ(file.text, "c6 05\r\nc4 00");
    // Two further than the comma, whatever stands there.
    file = readImageFile("a,b,c6 05\r\n\x03");
    EXPECT_EQ(file.preamble, "a,b,");
    EXPECT_EQ(file.text, "c6 05");
}

TEST(EepromImage, FiveCharactersAreCutWithoutBeingLookedAt) {
    EXPECT_EQ(readImageFile("x,\r\nc6 05 c4 00\r\n").text, "c6 05 c4");
    EXPECT_EQ(readImageFile("x,\r\nc6 05\r\n\x03zzz\r\n").text, "c6 05\r\n\x03");
    EXPECT_EQ(readImageFile("x,\r\nabc").text, "");
}

TEST(EepromImage, WhatCannotBeTakenApartSaysWhy) {
    EXPECT_EQ(errorOf(""), emptyFile);
    EXPECT_EQ(errorOf("\r\n"), invalidCall);
    EXPECT_EQ(errorOf("c6 05 c4 00\r\n"), invalidCall);
    EXPECT_EQ(errorOf("x,\r\nab"), invalidCall);
    EXPECT_EQ(errorOf(","), invalidCall);
}

TEST(EepromImage, WhatIsWrittenReadsBack) {
    for (const char* text : {"c6 05\r\nc4 00", "", "\r\n", "odd 7", "a\r\n\r\nb"}) {
        ImageFile back = readImageFile(imageFileBytes(customaryPreamble, text));
        EXPECT_EQ(back.text, text);
        EXPECT_EQ(back.preamble, customaryPreamble);
    }
}

TEST(EepromImage, FindsWhereBytesStandInAText) {
    EXPECT_EQ(bytePlaces("c6 05\r\n-0 0 7", 9), (std::vector<std::size_t>{0, 3, 8, 12}));
    EXPECT_EQ(bytePlaces("c6 05 07", 2), (std::vector<std::size_t>{0, 3}));
    EXPECT_TRUE(bytePlaces("", 2).empty());
}

} // namespace zor
