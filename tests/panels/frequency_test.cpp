// SPDX-License-Identifier: MIT
#include "panels/common/arithmetic.h"

#include <gtest/gtest.h>

namespace zor {

TEST(Frequency, The315BandReachesFrom310Point24To319Point7575) {
    FrequencyScale scale;
    EXPECT_EQ(shownFrequency(96, scale).megahertz.text, "310.24");
    EXPECT_EQ(shownFrequency(3903, scale).megahertz.text, "319.7575");
    EXPECT_EQ(commitFrequency("315", scale).code, 2000.0F);
    EXPECT_EQ(frequencyField(commitFrequency("315", scale).code) + 0xA000, 0xA7D0);
}

} // namespace zor
