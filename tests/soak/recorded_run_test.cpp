// SPDX-License-Identifier: MIT
#include "soak/recorded_run.h"

#include <gtest/gtest.h>

namespace zor::testing {

/// tools/soak can do it with thousands.
TEST(RecordedRun, PlayedOnAFreshBenchLeavesTheSameWordsAndFiles) {
    std::size_t gestures = 0;
    for (unsigned seed = 1; seed <= 8; ++seed) {
        RecordedRun run = recordAndPlay(seed, 80);
        EXPECT_EQ(run.difference, "") << "seed " << seed << "\n" << run.transcript;
        gestures += run.gestures;
    }
    EXPECT_GT(gestures, 200U);
}

} // namespace zor::testing
