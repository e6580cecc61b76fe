// SPDX-License-Identifier: MIT
#include "support/wording.h"

#include <gtest/gtest.h>

namespace zor {

TEST(Wording, CountsThingsAndNamesRows) {
    EXPECT_EQ(counted(1, "word"), "1 word");
    EXPECT_EQ(counted(0, "word"), "0 words");
    EXPECT_EQ(indexed("Text1", 3), "Text1(3)");
}

TEST(Wording, QuotesNamesAndTruths) {
    EXPECT_EQ(inQuotes("Setting"), "\"Setting\"");
    EXPECT_EQ(truthText(true) + truthText(false), "TrueFalse");
}

} // namespace zor
