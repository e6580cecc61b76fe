// SPDX-License-Identifier: MIT
#include "support/lines.h"

#include <gtest/gtest.h>

namespace zor {

TEST(Lines, AreEndedAlikeWhateverEndedThem) {
    EXPECT_EQ(withLineEnds("a\r\nb\nc\rd"), "a\r\nb\r\nc\r\nd\r\n");
    EXPECT_EQ(withLineEnds("a\r\n"), "a\r\n");
    EXPECT_EQ(withLineEnds("a\n\rb"), "a\r\n\r\nb\r\n") << "the wrong way round these are two ends";
    EXPECT_EQ(withLineEnds("\r\r\n\n"), "\r\n\r\n\r\n");
    EXPECT_EQ(withLineEnds(""), "");
}

TEST(Lines, LoseTheirEndHoweverItIsWritten) {
    EXPECT_EQ(withoutLineEnd("S2A7D0\r"), "S2A7D0");
    EXPECT_EQ(withoutLineEnd("one\rtwo\r\n\n"), "one\rtwo");
    EXPECT_EQ(withoutLineEnd("\r\n"), "");
    EXPECT_EQ(withoutLineEnd(""), "");
}

TEST(Lines, LoseWhatStandsAroundThem) {
    EXPECT_EQ(trimmed(" \t one two\t "), "one two");
    EXPECT_EQ(trimmed("\r\none\r\n"), "\r\none\r\n");
    EXPECT_EQ(trimmed("\r\none\r\n", "\r\n"), "one");
    EXPECT_EQ(trimmed(" \t "), "");
    EXPECT_EQ(trimmed(""), "");
}

} // namespace zor
