// SPDX-License-Identifier: MIT
#include "simulator/board_on_line.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor::sim {

namespace {

using Status = std::array<std::uint8_t, 2>;

/// A transceiver that receives into its FIFO, interrupt at four bytes.
struct ReceivingBench : BoardOnLine {
    ReceivingBench() {
        board.setChip(Chip::KT3100);
        ask("S28048");
        ask("S282C8");
        ask("S2CA43");
    }

    void hear(int bytes) {
        for (int i = 0; i < bytes; ++i) {
            board.radio().receiveFromAir(static_cast<std::uint8_t>(0x30 + i));
        }
    }
};

} // namespace

TEST(RadioChip, LatchesEachWordUnderItsRole) {
    BoardOnLine bench;
    bench.board.setChip(Chip::KT1100);
    bench.write("S28080\rS2A7D0\rS1B3\rS2C038\rS2C205\rS2E196\r");
    const RadioChip& radio = bench.board.radio();
    EXPECT_EQ(radio.latched(WordRole::configuration), 0x8080);
    EXPECT_EQ(radio.latched(WordRole::frequency), 0xA7D0);
    EXPECT_EQ(radio.latched(WordRole::outputPower), 0xB3);
    EXPECT_EQ(radio.latched(WordRole::powerManagement), 0xC038);
    EXPECT_EQ(radio.latched(WordRole::lowBattery), 0xC205);
    EXPECT_EQ(radio.latched(WordRole::wakeUpTimer), 0xE196);
    EXPECT_EQ(radio.latched(WordRole::dataRate), std::nullopt);
}

TEST(RadioChip, KeepsWordsAsTheyCameWhileNoChipIsTold) {
    BoardOnLine bench;
    bench.write("S28080\rS1B3\r");
    EXPECT_THAT(bench.board.radio().words(), testing::ElementsAre(0x8080, 0xB3));
    EXPECT_EQ(bench.board.radio().latched(WordRole::configuration), std::nullopt);
}

TEST(RadioChip, RemembersTheLast256Words) {
    BoardOnLine bench;
    for (int i = 0; i < 300; ++i) {
        bench.ask(i < 44 ? "S2A000" : "S2A001");
    }
    EXPECT_EQ(bench.board.radio().words().size(), 256u);
    EXPECT_EQ(bench.board.radio().words().front(), 0xA001);
}

TEST(RadioChip, LatchesAWordThatWasWrittenUnderTheSelectLine) {
    BoardOnLine bench;
    bench.board.setChip(Chip::KT3100);
    bench.write("H2\rL2\rWS82,08\r");
    EXPECT_EQ(bench.board.radio().latched(WordRole::powerManagement), std::nullopt);
    bench.write("H2\r");
    EXPECT_EQ(bench.board.radio().latched(WordRole::powerManagement), 0x8208);
}

TEST(RadioChip, AStatusReadLatchesNothing) {
    BoardOnLine bench;
    bench.board.setChip(Chip::KT2100);
    bench.write("H2\rL2\rL0\rRS\rRS\rH2\r");
    EXPECT_EQ(bench.board.radio().latched(WordRole::lowDutyCycle), std::nullopt);
    EXPECT_EQ(bench.board.radio().latched(WordRole::receiver), std::nullopt);
}

TEST(RadioChip, OffsetFillsFiveBitsOnTransceiversAndSixOnReceivers) {
    struct Row {
        Chip chip;
        int steps;
        std::uint8_t second;
    };
    const Row rows[] = {
        {Chip::KT3100, -1, 0xDF},  {Chip::KT3100, 15, 0xCF},  {Chip::KT3100, -16, 0xD0},
        {Chip::KT3100, 99, 0xCF},  {Chip::KT2100, -1, 0xFF},  {Chip::KT2100, 31, 0xDF},
        {Chip::KT2100, -32, 0xE0}, {Chip::KT2100, -99, 0xE0}, {Chip::KT3101, -99, 0xD0},
    };
    for (const Row& row : rows) {
        RadioChip radio;
        radio.setChip(row.chip);
        radio.setStatus(0, 0xC0);
        radio.setFrequencyOffset(row.steps);
        EXPECT_EQ(radio.status(), (Status{0x00, row.second})) << chipName(row.chip) << " " << row.steps;
    }
}

TEST(ReceiveFifo, TakesNothingWhileReceiverOrFifoIsOff) {
    for (const char* word : {"S28048", "S282C8"}) {
        BoardOnLine bench;
        bench.board.setChip(Chip::KT3100);
        bench.ask(word);
        bench.board.radio().receiveFromAir(0x55);
        EXPECT_EQ(bench.board.radio().fifoFill(), 0u) << word;
        EXPECT_EQ(bench.board.radio().status(), (Status{0, 0})) << word;
    }
}

TEST(ReceiveFifo, MarksEmptyThenItsLevelAndPullsTheInterruptLine) {
    ReceivingBench bench;
    EXPECT_EQ(bench.board.radio().status(), (Status{0x02, 0}));
    bench.hear(3);
    EXPECT_EQ(bench.board.radio().status(), (Status{0x00, 0}));
    EXPECT_EQ(bench.ask("RI").front(), '1');
    bench.hear(1);
    EXPECT_EQ(bench.board.radio().status(), (Status{0x80, 0}));
    EXPECT_EQ(bench.ask("RI").front(), '0');
}

TEST(ReceiveFifo, HoldsSixteenBytesAndMarksTheOverflowUntilItIsRead) {
    ReceivingBench bench;
    bench.hear(16);
    EXPECT_EQ(bench.board.radio().status(), (Status{0x80, 0}));
    bench.hear(1);
    EXPECT_EQ(bench.board.radio().fifoFill(), 16u);
    bench.write("H2\rL2\rL0\r");
    EXPECT_EQ(bench.ask("RS"), "A0 \n\rOK\n\r>");
    EXPECT_EQ(bench.board.radio().status(), (Status{0x80, 0}));
}

TEST(ReceiveFifo, IsReadUnderItsOwnSelectLine) {
    ReceivingBench bench;
    bench.hear(2);
    bench.write("H2\rL3\r");
    EXPECT_EQ(bench.ask("RS"), "30 \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("RS"), "31 \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("RS"), "00 \n\rOK\n\r>");
}

TEST(ReceiveFifo, IsEmptiedWhenTheReceiverIsSwitchedOff) {
    ReceivingBench bench;
    bench.hear(2);
    bench.ask("S28208");
    EXPECT_EQ(bench.board.radio().fifoFill(), 0u);
}

} // namespace zor::sim
