// SPDX-License-Identifier: MIT
#include "simulator/board_on_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace zor::sim {

using testing::ElementsAre;

TEST(Board, AnswersACommandWithThePromptLineFeedFirst) {
    BoardOnLine bench;
    EXPECT_EQ(bench.ask("Z3"), "\x0A\x0DOK\x0A\x0D>");
}

TEST(Board, RefusesAnUnknownCommandWithTheErrorPrompt) {
    BoardOnLine bench;
    EXPECT_EQ(bench.ask("Q"), "ERROR\x0A\x0D>");
}

TEST(Board, AnswersABareCarriageReturnWithThePrompt) {
    BoardOnLine bench;
    EXPECT_EQ(bench.ask(""), "\n\rOK\n\r>");
}

TEST(Board, ReportsALineWithoutItsCarriageReturn) {
    BoardOnLine bench;
    bench.write("Z3\rS2 8080\r");
    EXPECT_THAT(bench.lines, ElementsAre("Z3", "S2 8080"));
}

TEST(Board, ALineFeedBehindTheCarriageReturnBelongsToTheLineItEnds) {
    BoardOnLine bench;
    bench.write("ri\r\nZ3\r");
    EXPECT_THAT(bench.lines, ElementsAre("ri\n", "Z3"));
    EXPECT_EQ(bench.said, "1   1 \n\rOK\n\r>\n\rOK\n\r>");
}

TEST(Board, AnswersEachLineOfATextWithItsOwnPrompt) {
    BoardOnLine bench;
    bench.write("H2\r\nQ\r\nL2\r\n");
    EXPECT_EQ(bench.said, "\n\rOK\n\r>ERROR\n\r>\n\rOK\n\r>");
}

TEST(Board, ALineFeedElsewhereIsPartOfItsLine) {
    BoardOnLine bench;
    bench.write("\nZ3\r");
    EXPECT_THAT(bench.lines, ElementsAre("\nZ3"));
    EXPECT_EQ(bench.said, "ERROR\n\r>");
}

TEST(Board, OnlyTheFirstLineFeedBehindACarriageReturnIsDropped) {
    BoardOnLine bench;
    bench.write("Z3\r\n\n\r");
    EXPECT_THAT(bench.lines, ElementsAre("Z3\n", "\n"));
}

TEST(Board, OpeningOrABreakForgetsAHalfLine) {
    BoardOnLine bench;
    bench.write("S28");
    bench.board.lineOpened();
    bench.write("Z3\rS28");
    bench.board.breakReceived();
    bench.write("Z3\r");
    EXPECT_THAT(bench.lines, ElementsAre("Z3", "Z3"));
}

TEST(Board, AMuteBoardActsAndIsRecordedButSaysNothing) {
    BoardOnLine bench;
    bench.board.setMute(true);
    EXPECT_EQ(bench.ask("H2"), "");
    EXPECT_THAT(bench.lines, ElementsAre("H2"));
    EXPECT_EQ(bench.board.output(2), OutputState::high);
    bench.board.emit("OK");
    EXPECT_EQ(bench.said, "OK");
    bench.board.setMute(false);
    EXPECT_EQ(bench.ask("H2"), "\n\rOK\n\r>");
}

TEST(Board, ADelayGoesWithEachAnswer) {
    BoardOnLine bench;
    bench.ask("Z3");
    bench.board.setDelay(std::chrono::milliseconds(1500));
    bench.ask("Z3");
    bench.board.emit("x");
    EXPECT_THAT(bench.delays, ElementsAre(0, 1500, 0));
}

TEST(Board, RefusesTheNextSuchLineOnceAndWithoutEffect) {
    BoardOnLine bench;
    bench.board.refuseNext("H2");
    EXPECT_EQ(bench.ask("L2"), "\n\rOK\n\r>");
    EXPECT_EQ(bench.ask("H2"), "ERROR\n\r>");
    EXPECT_EQ(bench.board.output(2), OutputState::low);
    EXPECT_EQ(bench.ask("H2"), "\n\rOK\n\r>");
}

TEST(Board, RefusalsOfALineAddUp) {
    BoardOnLine bench;
    bench.board.refuseNext("y30");
    bench.board.refuseNext("y30");
    EXPECT_EQ(bench.ask("y30"), "ERROR\n\r>");
    EXPECT_EQ(bench.ask("y30"), "ERROR\n\r>");
    EXPECT_EQ(bench.ask("y30"), "\n\rOK\n\r>");
}

TEST(Board, AReplyStandsInFrontOfThePromptWheneverItsLineComes) {
    BoardOnLine bench;
    bench.board.setReply("S20500", "0002 ");
    bench.board.setReply("what", "ever ");
    EXPECT_EQ(bench.ask("S20500"), "0002 \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("S20500"), "0002 \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("what"), "ever \n\rOK\n\r>");
    bench.board.setReply("what", "");
    EXPECT_EQ(bench.ask("what"), "\n\rOK\n\r>");
}

TEST(Board, ARepliedLineStillTakesEffect) {
    BoardOnLine bench;
    bench.board.setReply("L2\n", "low ");
    EXPECT_EQ(bench.ask("L2"), "low \n\rOK\n\r>");
    EXPECT_EQ(bench.board.output(2), OutputState::low);
}

TEST(Board, AnotherChipOnTheBusAnswersInPlaceOfTheRadio) {
    struct Echo : SpiDevice {
        void select() override { before = 0xE0; }
        std::uint8_t exchange(std::uint8_t byte) override { return std::exchange(before, byte); }
        void deselect() override {}
        std::uint8_t before = 0;
    } echo;
    BoardOnLine bench;
    bench.board.circuits().mount(echo);
    EXPECT_EQ(bench.ask("S2A15B"), "E0A1 \n\rOK\n\r>");
    bench.write("H2\rL2\rWS03,04\r");
    EXPECT_EQ(bench.ask("RS"), "04 \n\rOK\n\r>");
}

TEST(Board, ALineWithoutEndIsCutAndRefused) {
    BoardOnLine bench;
    bench.write(std::string(1'000'000, 'A'));
    EXPECT_EQ(bench.ask(""), "ERROR\n\r>");
    ASSERT_EQ(bench.lines.size(), 1u);
    EXPECT_EQ(bench.lines[0].size(), 4096u);
    EXPECT_EQ(bench.ask("Z3"), "\n\rOK\n\r>");
}

TEST(Board, NoStreamOfBytesSilencesACommandBoardForGood) {
    for (BoardKind kind :
         {BoardKind::LoadBoard1, BoardKind::LoadBoard2, BoardKind::Loader, BoardKind::Monitor}) {
        BoardOnLine bench(kind);
        bench.board.setChip(Chip::KT3101);
        std::mt19937 random(42);
        // Mostly the letters that commands are made of, so that the stream gets past the first character.
        constexpr std::string_view likely = "HLZVASXWRFTiyd0123456789ABCDEF,\r\r\n ";
        for (int i = 0; i < 200'000; ++i) {
            auto draw = random();
            bench.board.receive((draw & 0x700) != 0 ? likely[(draw >> 16) % likely.size()]
                                                    : static_cast<char>(draw));
        }
        bench.board.breakReceived();
        EXPECT_EQ(bench.ask(""), "\n\rOK\n\r>");
    }
}

} // namespace zor::sim
