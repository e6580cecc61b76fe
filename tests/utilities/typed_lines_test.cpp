// SPDX-License-Identifier: MIT
#include "utilities/typed_lines.h"

#include <gtest/gtest.h>

namespace zor {

TEST(TypedLines, GoBackToTheOldestAndForthToWhatWasBeingTyped) {
    TypedLines lines;
    lines.add("H2");
    lines.add("RS");
    EXPECT_EQ(lines.walk(-1, "L"), "RS");
    EXPECT_EQ(lines.walk(-1, "RS"), "H2");
    EXPECT_EQ(lines.walk(-1, "H2"), std::nullopt);
    EXPECT_EQ(lines.walk(1, "H2"), "RS");
    EXPECT_EQ(lines.walk(1, "RS"), "L");
    EXPECT_EQ(lines.walk(1, "L"), std::nullopt);
}

TEST(TypedLines, KeepNoEmptyLineAndNoneTwiceInARow) {
    TypedLines lines;
    lines.add("H2");
    lines.add("");
    lines.add("H2");
    EXPECT_EQ(lines.walk(-1, ""), "H2");
    EXPECT_EQ(lines.walk(-1, "H2"), std::nullopt);
}

TEST(TypedLines, AChangeByHandBeginsAtTheNewestAgain) {
    TypedLines lines;
    lines.add("H2");
    lines.add("RS");
    lines.walk(-1, "");
    lines.walk(-1, "RS");
    lines.endWalk();
    EXPECT_EQ(lines.walk(-1, "H2x"), "RS");
    EXPECT_EQ(lines.walk(1, "RS"), "H2x");
}

TEST(TypedLines, ForgetTheOldestBeyondTwoHundred) {
    TypedLines lines;
    for (int line = 0; line < 201; ++line) {
        lines.add(std::to_string(line));
    }
    std::string oldest;
    while (auto line = lines.walk(-1, oldest)) {
        oldest = *line;
    }
    EXPECT_EQ(oldest, "1");
}

} // namespace zor
