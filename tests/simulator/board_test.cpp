// SPDX-License-Identifier: MIT
#include "simulator/bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor::sim {

using testing::ElementsAre;

TEST(Board, AnswersACommandWithThePromptLineFeedFirst) {
    Bench bench;
    EXPECT_EQ(bench.ask("Z3"), "\x0A\x0DOK\x0A\x0D>");
}

TEST(Board, RefusesAnUnknownCommandWithTheErrorPrompt) {
    Bench bench;
    EXPECT_EQ(bench.ask("Q"), "ERROR\x0A\x0D>");
}

TEST(Board, AnswersABareCarriageReturnWithThePrompt) {
    Bench bench;
    EXPECT_EQ(bench.ask(""), "\n\rOK\n\r>");
}

TEST(Board, ReportsALineWithoutItsCarriageReturn) {
    Bench bench;
    bench.write("Z3\rS2 8080\r");
    EXPECT_THAT(bench.lines, ElementsAre("Z3", "S2 8080"));
}

TEST(Board, ALineFeedBehindTheCarriageReturnBelongsToTheLineItEnds) {
    Bench bench;
    bench.write("ri\r\nZ3\r");
    EXPECT_THAT(bench.lines, ElementsAre("ri\n", "Z3"));
    EXPECT_EQ(bench.said, "1   1 \n\rOK\n\r>\n\rOK\n\r>");
}

TEST(Board, AnswersEachLineOfATextWithItsOwnPrompt) {
    Bench bench;
    bench.write("H2\r\nQ\r\nL2\r\n");
    EXPECT_EQ(bench.said, "\n\rOK\n\r>ERROR\n\r>\n\rOK\n\r>");
}

} // namespace zor::sim
