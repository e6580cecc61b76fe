// SPDX-License-Identifier: MIT
#include "headergen/header_block.h"

#include <gtest/gtest.h>

namespace zor {

TEST(HeaderText, EveryLineEndsWithCarriageReturnAndLineFeed) {
    HeaderText text;
    text.line("one");
    text.emptyLines(2);
    text.line("two");
    EXPECT_EQ(text.text(), "one\r\n\r\n\r\ntwo\r\n");
}

TEST(HeaderText, ABlockIsAMacroAndItsComment) {
    HeaderText text;
    text.block("P",
               {"X_CMD", 3, {"0xB0"}, "Title", {{"A:", 2, "1"}, {"B: ", 1, std::nullopt}, {"C", 4, ""}}});
    EXPECT_EQ(text.text(), "#define P_X_CMD\t\t\t0xB0\r\n"
                           "/*\r\n"
                           "\tTitle\r\n"
                           "\r\n"
                           "\tA:\t\t1\r\n"
                           "\tC\t\t\t\t\r\n"
                           "*/\r\n"
                           "\r\n");
}

TEST(HeaderText, ABlockWithoutDetailsKeepsTheEmptyLineBelowItsTitle) {
    HeaderText text;
    text.block("P", {"X_CMD", 2, {"0xC000"}, "Title", {}});
    EXPECT_EQ(text.text(), "#define P_X_CMD\t\t0xC000\r\n/*\r\n\tTitle\r\n\r\n*/\r\n\r\n");
}

TEST(HeaderBlock, FurtherLinesStandBehindItsOwn) {
    HeaderBlock block = with({"X", 2, {"0x0"}, "T", {{"A", 1, "1"}}}, {{"B", 1, "2"}, {"C", 1, "3"}});
    ASSERT_EQ(block.details.size(), 3U);
    EXPECT_STREQ(block.details[0].label, "A");
    EXPECT_STREQ(block.details[2].label, "C");
}

} // namespace zor
