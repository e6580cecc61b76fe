// SPDX-License-Identifier: MIT
#include "host/apart.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <thread>

namespace zor {

using namespace std::chrono_literals;

TEST(RunApart, BringsBackWhatTheWorkFound) {
    std::string large(300'000, 'x');
    EXPECT_EQ(runApart([&large] { return large + "end"; }, 10s), large + "end");
    EXPECT_EQ(runApart([] { return std::string(); }, 10s), "");
}

TEST(RunApart, LeavesOurMemoryAlone) {
    int value = 1;
    EXPECT_EQ(runApart(
                  [&value] {
                      value = 2;
                      return std::string("done");
                  },
                  10s),
              "done");
    EXPECT_EQ(value, 1);
}

TEST(RunApart, SurvivesWorkThatCrashes) {
    EXPECT_EQ(runApart(
                  []() -> std::string {
                      std::raise(SIGSEGV);
                      return "not reached";
                  },
                  10s),
              std::nullopt);
}

TEST(RunApart, EndsWorkThatNeverEnds) {
    EXPECT_EQ(runApart(
                  []() -> std::string {
                      for (;;) {
                          std::this_thread::sleep_for(1h);
                      }
                  },
                  20ms),
              std::nullopt);
}

} // namespace zor
