// SPDX-License-Identifier: MIT
#include "shell/start_advice.h"

#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

namespace zor {

using testing::VirtualBench;

TEST(StartAdvice, NamesTheBoardOnceAndSaysWhatToDoNext) {
    VirtualBench bench;
    bench.ports.place(3, sim::BoardKind::LoadBoard2);
    bench.startAndSearch();
    StartAdvice advice = startAdvice(bench.main());
    EXPECT_EQ(advice.headline, "LoadBoard 2.x: Com3 is connected.");
    EXPECT_EQ(advice.hint, "Choose the chip on it.");
    EXPECT_TRUE(advice.connected);
    EXPECT_FALSE(advice.offersConnect);
}

TEST(StartAdvice, OffersToConnectWhileThereIsNoBoard) {
    VirtualBench bench;
    bench.startAndSearch();
    EXPECT_EQ(startAdvice(bench.main()).headline, "No board is connected.");
    EXPECT_TRUE(startAdvice(bench.main()).offersConnect);
}

} // namespace zor
