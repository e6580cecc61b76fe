// SPDX-License-Identifier: MIT
#include "host/apart.h"

#include <gtest/gtest.h>

namespace zor {

TEST(RunApart, RefusesWorkThatItCannotTakeElsewhere) {
    bool worked = false;
    auto work = [&worked] {
        worked = true;
        return std::string("done");
    };
    EXPECT_EQ(runApart(work, std::chrono::seconds(10)), std::nullopt);
    EXPECT_FALSE(worked);
}

} // namespace zor
