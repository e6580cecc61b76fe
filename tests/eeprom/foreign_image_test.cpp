// SPDX-License-Identifier: MIT
#include "eeprom/foreign_image.h"

#include "support/error.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

std::string complaint(std::string_view bytes, std::string_view extension = ".hex") {
    try {
        (void)foreignImageDigits(bytes, extension);
    } catch (const ToolError& error) {
        return std::to_string(error.number()) + " " + error.what();
    }
    return {};
}

constexpr const char* end = ":00000001FF\r\n";

} // namespace

TEST(ForeignImage, ReadsIntelHexWithGapsErased) {
    EXPECT_EQ(foreignImageDigits(":02000000C60533\r\n:01000400AA51\n:00000001FF", ".hex"), "c605ffffaa");
    EXPECT_EQ(foreignImageDigits(end, ".hex"), "");
}

TEST(ForeignImage, ReadsAddressRecordsOfBothKinds) {
    // Both name address 0 after all; behind it the image would be too long.
    EXPECT_EQ(foreignImageDigits(":020000020000FC\r\n:01000000AA55\r\n:00000001FF\r\n", ".hex"), "aa");
    EXPECT_EQ(foreignImageDigits(":020000040000FA\r\n:01000000AA55\r\n:00000001FF\r\n", ".hex"), "aa");
    EXPECT_EQ(foreignImageDigits(":020000020001FB\r\n:01000000AA55\r\n:00000001FF\r\n", ".hex"),
              std::string(32, 'f') + "aa");
    EXPECT_EQ(complaint(":020000040001F9\r\n:01000000AA55\r\n:00000001FF\r\n"),
              "6 The image has 65537 bytes, the EEPROM 1024");
}

TEST(ForeignImage, TellsRecordErrorsWithTheirLine) {
    EXPECT_EQ(complaint(":02000000C60533\r\nC605\r\n"), "13 Line 2: a record begins with a colon");
    EXPECT_EQ(complaint(":02000000C6G533\r\n"), "13 Line 1: a record has hexadecimal digits only");
    EXPECT_EQ(complaint(":02000000C60534\r\n"), "13 Line 1: the checksum is 34, it should be 33");
    EXPECT_EQ(complaint(":03000000C60533\r\n"), "13 Line 1: the record is not as long as it says");
    EXPECT_EQ(complaint(":0000\r\n"), "13 Line 1: the record is not as long as it says");
    EXPECT_EQ(complaint(":00000009F7\r\n"), "13 Line 1: there is no record type 09");
    EXPECT_EQ(complaint(":010000020000FD\r\n"), "13 Line 1: the record is not as long as it says");
    EXPECT_EQ(complaint(":0100000200FD\r\n"), "13 Line 1: an address record has two bytes");
    EXPECT_EQ(complaint(":00000001FF\r\n\r\n:00000001FF\r\n"),
              "13 Line 3: there is a record behind the last one");
    EXPECT_EQ(complaint(":02000000C60533\r\n\r\n"), "13 Line 2: the record that ends the file is missing");
}

TEST(ForeignImage, KnowsAFileByItsNameAndItsContent) {
    EXPECT_EQ(foreignImageDigits(":00000001FF", ".bin"), "3a30303030303030314646");
    EXPECT_EQ(foreignImageDigits(":01000000AA55\n:00000001FF", ".rom"), "aa");
    EXPECT_EQ(foreignImageDigits(":not a record", ""), "3a6e6f742061207265636f7264");
    EXPECT_EQ(complaint("ELF"), "13 Line 1: a record begins with a colon");
    EXPECT_EQ(complaint("\x02 $A00000000,\r\nc6\r\n\x03", ".asc"),
              "13 This is an ASCII-hex image, which is loaded and not imported");
    EXPECT_EQ(complaint(""), "1222 This is an empty file!");
}

TEST(ForeignImage, RefusesMoreThanTheEepromHasWithTheCount) {
    EXPECT_EQ(foreignImageDigits(std::string(1024, '\xC6'), ".bin").size(), 2048U);
    EXPECT_EQ(complaint(std::string(1500, 'x'), ".bin"), "6 The image has 1500 bytes, the EEPROM 1024");
}

TEST(ForeignImage, WritesRecordsOfSixteenBytes) {
    EXPECT_EQ(foreignImageBytes("C605", ".hex"), ":02000000C60533\r\n:00000001FF\r\n");
    std::string digits;
    for (int i = 0; i < 17; ++i) {
        digits += "00";
    }
    EXPECT_EQ(foreignImageBytes(digits, ""),
              ":1000000000000000000000000000000000000000F0\r\n:0100100000EF\r\n:00000001FF\r\n");
    EXPECT_EQ(foreignImageBytes("C605ff", ".bin"), std::string("\xC6\x05\xFF"));
}

TEST(ForeignImage, WhatIsWrittenReadsBack) {
    std::string digits;
    for (int i = 0; i < 1024; ++i) {
        digits += "0123456789abcdef"[i * 7 % 16];
        digits += "0123456789abcdef"[i % 16];
    }
    for (const char* extension : {".hex", ".bin"}) {
        EXPECT_EQ(foreignImageDigits(foreignImageBytes(digits, extension), extension), digits);
    }
}

TEST(ForeignImage, ExportsWholeBytesOnly) {
    EXPECT_THROW((void)foreignImageBytes("", ".hex"), ToolError);
    EXPECT_THROW((void)foreignImageBytes("C60", ".hex"), ToolError);
    EXPECT_THROW((void)foreignImageBytes(std::string(2050, '0'), ".bin"), ToolError);
}

} // namespace zor
