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
    EXPECT_FALSE(advice.offersDemo);
}

TEST(StartAdvice, OffersToConnectWhileThereIsNoBoard) {
    VirtualBench bench;
    bench.startAndSearch();
    EXPECT_EQ(startAdvice(bench.main()).headline, "No board is connected.");
    EXPECT_TRUE(startAdvice(bench.main()).offersConnect);
}

TEST(StartAdvice, OffersTheDemoWhereAConnectionCanBeMade) {
    VirtualBench bench;
    bench.start();
    EXPECT_EQ(bench.main().linkState(), LinkState::Searching);
    EXPECT_FALSE(startAdvice(bench.main()).offersDemo);
    bench.run(std::chrono::seconds(60));
    EXPECT_TRUE(startAdvice(bench.main()).offersDemo);
}

} // namespace zor
