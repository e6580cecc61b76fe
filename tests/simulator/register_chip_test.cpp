// SPDX-License-Identifier: MIT
#include "simulator/register_chip.h"

#include "simulator/board_on_line.h"

#include <gtest/gtest.h>

#include <bit>

namespace zor::sim {

namespace {

/// A generation 2 board with a register chip on its bus.
struct Registers : BoardOnLine {
    RegisterChip& chip = board.circuits().fitRegisters();
};

using Fifo = std::deque<std::uint8_t>;

} // namespace

TEST(RegisterChip, GivesAValueInTheSecondByteAndTakesOneUnderTheWriteBit) {
    Registers bench;
    EXPECT_EQ(bench.ask("S2 0A00"), "0000 \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("S2 8A5F"), "0000 \n\rOK\n\r>");
    EXPECT_EQ(bench.chip.registerAt(0x0A), 0x5F);
    EXPECT_EQ(bench.ask("S2 0A00"), "005F \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("S2FF01"), "0000 \n\rOK\n\r>");
    EXPECT_EQ(bench.chip.registerAt(0x7F), 0x01);
}

TEST(RegisterChip, AStatusRegisterGivesSixteenBitsAndTakesNoWrite) {
    Registers bench;
    bench.chip.setStatus(0x30, 0x4225);
    EXPECT_EQ(bench.ask("S2 3000"), "4225 \n\rOK\n\r>");
    bench.ask("S2 B0FF");
    EXPECT_EQ(bench.ask("S2 3000"), "4225 \n\rOK\n\r>");
}

TEST(RegisterChip, AHalfTransferWritesNothing) {
    Registers bench;
    bench.ask("S18A");
    EXPECT_EQ(bench.chip.registerAt(0x0A), 0);
}

TEST(RegisterChip, FillsAndEmptiesItsFifosUnderTheFifoSelect) {
    Registers bench;
    bench.chip.receive(0x4F);
    bench.write("L3\r");
    bench.ask("WS 41");
    bench.ask("WS 42,43");
    EXPECT_EQ(bench.chip.transmitFifo(), (Fifo{0x41, 0x42, 0x43}));
    EXPECT_EQ(bench.ask("RS "), "4F \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("RS "), "00 \n\rOK\n\r>");
    bench.write("H3\r");
    bench.ask("WS 44");
    EXPECT_EQ(bench.chip.transmitFifo().size(), 3u);
}

TEST(RegisterChip, FillsAndEmptiesItsFifosThroughTwoRegisters) {
    Registers bench;
    bench.chip.setFifoAddresses(0x3E, 0x3F);
    bench.chip.receive(0x4F);
    bench.ask("S2 BE41");
    EXPECT_EQ(bench.chip.transmitFifo(), Fifo{0x41});
    EXPECT_EQ(bench.chip.registerAt(0x3E), 0);
    EXPECT_EQ(bench.ask("S2 3F00"), "004F \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("S2 3F00"), "0000 \n\rOK\n\r>");
}

TEST(RegisterChip, TheLoopCarriesEveryByteAndTurnsAsManyBitsAsItSays) {
    for (double rate : {0.0, 0.001, 0.05}) {
        RegisterChip chip;
        chip.closeLoop(rate, 7);
        std::uint64_t wrong = 0;
        for (int i = 0; i < 10'000; ++i) {
            auto byte = static_cast<std::uint8_t>(i * 31);
            chip.writeFifo(byte);
            wrong += static_cast<std::uint64_t>(std::popcount(static_cast<unsigned>(chip.readFifo() ^ byte)));
        }
        EXPECT_EQ(wrong, chip.turnedBits());
        EXPECT_NEAR(static_cast<double>(wrong), 80'000 * rate, 80'000 * rate * 0.25) << rate;
        EXPECT_TRUE(chip.transmitFifo().empty());
    }
}

TEST(RegisterChip, TheSameSeedTurnsTheSameBits) {
    auto heard = [](std::uint32_t seed) {
        RegisterChip chip;
        chip.closeLoop(0.1, seed);
        for (int i = 0; i < 100; ++i) {
            chip.writeFifo(0);
        }
        return chip.receiveFifo();
    };
    EXPECT_EQ(heard(1), heard(1));
    EXPECT_NE(heard(1), heard(2));
}

TEST(RegisterChip, ANewChipBeginsWithZeros) {
    Registers bench;
    bench.chip.setRegister(5, 0x5F);
    EXPECT_EQ(bench.board.circuits().fitRegisters().registerAt(5), 0);
    EXPECT_EQ(bench.ask("S2 0500"), "0000 \n\rOK\n\r>");
}

} // namespace zor::sim
