// SPDX-License-Identifier: MIT
#include "panels/common/values.h"

#include "support/numbers.h"

#include <gtest/gtest.h>

namespace zor {

TEST(ShownNumber, IsRoundedAsItsDigitsRead) {
    EXPECT_EQ(shownNumber(349.68375, 4).text, "349.6838");
    EXPECT_EQ(shownNumber(252.000003755093, 4).text, "252");
    EXPECT_EQ(shownNumber(0.00004, 4).text, "0");
    EXPECT_EQ(shownNumber(-0.00004, 4).text, "0");
    EXPECT_EQ(shownNumber(0.125, 2).text, ".12");
}

TEST(ShownNumber, ItsValueIsThatOfItsText) {
    for (double value : {349.68375, 0.00004, 0.125, 5.05, -3.5}) {
        ShownNumber shown = shownNumber(value, 3);
        EXPECT_EQ(numericPrefix(shown.text), shown.value) << value;
    }
}

} // namespace zor
