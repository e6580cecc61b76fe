// SPDX-License-Identifier: MIT
#include "simulator/faulty_line.h"

#include "simulator/board.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zor::sim {

namespace {

using testing::ElementsAre;

struct FaultyBench {
    explicit FaultyBench(const FaultPlan& plan)
        : line(board, plan) {
        line.transmit = [this](const Transmission& transmission) {
            pieces.push_back(transmission.bytes);
            delays.push_back(transmission.delay.count());
        };
    }

    void write(std::string_view bytes) {
        for (char byte : bytes) {
            line.receive(byte);
        }
    }

    [[nodiscard]] std::string said() const {
        std::string all;
        for (const std::string& piece : pieces) {
            all += piece;
        }
        return all;
    }

    Board board{BoardKind::LoadBoard2};
    FaultyLine line;
    std::vector<std::string> pieces;
    std::vector<long> delays;
};

std::string hundredAnswers(const FaultPlan& plan) {
    FaultyBench bench(plan);
    for (int i = 0; i < 100; ++i) {
        bench.write("Z3\r");
    }
    return bench.said();
}

} // namespace

TEST(FaultyLine, WithoutFaultsPassesEverything) {
    FaultyBench bench({});
    bench.write("Z3\rRS\r");
    EXPECT_THAT(bench.pieces, ElementsAre("\n\rOK\n\r>", "00 \n\rOK\n\r>"));
    EXPECT_THAT(bench.delays, ElementsAre(0, 0));
}

TEST(FaultyLine, ASlowLineAddsToTheBoardsOwnDelay) {
    FaultyBench bench({.delay = std::chrono::milliseconds(300)});
    bench.board.setDelay(std::chrono::milliseconds(50));
    bench.write("Z3\r");
    EXPECT_THAT(bench.delays, ElementsAre(350));
}

TEST(FaultyLine, GoesMuteAfterSoManyAnswers) {
    FaultyBench bench({.muteAfter = 2});
    bench.write("Z3\rH2\rL2\r");
    EXPECT_EQ(bench.pieces.size(), 2u);
    EXPECT_EQ(bench.board.output(2), OutputState::low);
}

TEST(FaultyLine, TellsASuccessAsARefusal) {
    FaultyBench bench({.refusalRate = 1});
    bench.write("RS\r");
    EXPECT_EQ(bench.said(), "ERROR\n\r>");
}

TEST(FaultyLine, SplitsAnAnswerIntoPieces) {
    FaultyBench bench({.splitEvery = 3});
    bench.write("Z3\r");
    EXPECT_THAT(bench.pieces, ElementsAre("\n\rO", "K\n\r", ">"));
    EXPECT_THAT(bench.delays, ElementsAre(0, 20, 40));
}

TEST(FaultyLine, NoiseAtRateOneDoublesTheCharacters) {
    FaultyBench bench({.noiseRate = 1});
    bench.write("Z3\r");
    std::string noisy = bench.said();
    ASSERT_EQ(noisy.size(), 14u);
    std::string kept;
    for (std::size_t i = 1; i < noisy.size(); i += 2) {
        kept += noisy[i];
    }
    EXPECT_EQ(kept, "\n\rOK\n\r>");
}

TEST(FaultyLine, NoiseComesAtAboutItsRate) {
    std::size_t length = hundredAnswers({.noiseRate = 0.1}).size();
    EXPECT_GT(length, 735u);
    EXPECT_LT(length, 805u);
}

TEST(FaultyLine, TheSameSeedGivesTheSameFaultsAndAnotherSeedOthers) {
    FaultPlan plan{.refusalRate = 0.2, .noiseRate = 0.05, .splitEvery = 4, .seed = 7};
    std::string first = hundredAnswers(plan);
    EXPECT_EQ(first, hundredAnswers(plan));
    plan.seed = 8;
    EXPECT_NE(first, hundredAnswers(plan));
}

TEST(FaultyLine, PassesOpeningAndBreakToTheBoard) {
    FaultyBench bench({});
    bench.write("X2\r");
    bench.line.breakReceived();
    bench.write("X2\r");
    bench.line.lineOpened();
    bench.write("Z3\r");
    EXPECT_EQ(bench.said(), "\n\rOK\n\r>");
}

TEST(FaultyLine, TheTrailComesBehindEachAnswer) {
    FaultyBench bench({.trail = "\n"});
    bench.write("Z3\r");
    EXPECT_EQ(bench.said(), "\n\rOK\n\r>\n");
}

} // namespace zor::sim
