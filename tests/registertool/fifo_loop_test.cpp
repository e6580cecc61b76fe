// SPDX-License-Identifier: MIT
// The FIFO test over a chip whose transmit FIFO comes back to its receive FIFO with bits turned on the way:
// the counters say what was put in.
#include "registertool/spi.h"

#include "store/register_list_store.h"
#include "support/numbers.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace zor::testing {

namespace {

constexpr const char* chip = R"(
chip 1 "Loop" "P1" 50 50 3E 3F registers
register 1 00 "A" R,W,RF 11 8 "" ""
)";
constexpr int bytesOfAPacket = 50;

/// The register tool with a chip in a closed loop, and what was sent is what is expected.
class LoopBench : public VirtualBench {
  public:
    explicit LoopBench(double bitErrorRate)
        : circuit(ports.place(1, sim::BoardKind::LoadBoard2).circuits().fitRegisters()) {
        circuit.setFifoAddresses(0x3E, 0x3F);
        circuit.closeLoop(bitErrorRate, 7);
        store::SqliteRegisterStores maker;
        store::makeDatabase(maker, platform.programFolder / "ZOR.db", readRegisterList(chip));
        startAndSearch();
        loop.perform([this] { shared().tools.open(Tool::SPI); });
        tool().ChipSelect.choosePosition(0);
        for (std::size_t row = 0; row < bytesOfAPacket; ++row) {
            std::string byte = hexText(static_cast<std::uint32_t>(row * 37 % 256), 2);
            tool().fifo.TXFIFO.editCell(row, 1, byte);
            tool().fifo.RXFIFO.editCell(row, 3, byte);
        }
    }

    SPI& tool() { return dynamic_cast<SPI&>(*desk.find("SPI")); }

    sim::RegisterChip& circuit;
};

} // namespace

TEST(FifoLoop, CountsOver10000BytesAreWhatTheLoopTurned) {
    constexpr int packets = 200;
    constexpr int bits = packets * bytesOfAPacket * 8;
    for (double rate : {0.0, 0.001, 0.05}) {
        LoopBench bench(rate);
        FifoTest& test = bench.tool().fifoTest;
        int lost = 0;
        for (int packet = 0; packet < packets; ++packet) {
            std::uint64_t before = bench.circuit.turnedBits();
            test.WriteTXff.click();
            test.ReadRXff.click();
            lost += bench.circuit.turnedBits() != before ? 1 : 0;
        }
        double turned = static_cast<double>(bench.circuit.turnedBits());
        EXPECT_NEAR(turned, bits * rate, bits * rate * 0.25) << rate;
        EXPECT_EQ(test.Packets.text(), std::to_string(packets));
        EXPECT_EQ(test.Databits.text(), std::to_string(bits));
        EXPECT_EQ(test.Errors.text(), std::to_string(bench.circuit.turnedBits()));
        EXPECT_EQ(test.PacketLost.text(), std::to_string(lost));
        EXPECT_EQ(test.BER.text(), rateText(turned / bits));
        EXPECT_EQ(test.PER.text(), rateText(static_cast<double>(lost) / packets));
        EXPECT_TRUE(bench.dialogs.boxes.empty());
    }
}

TEST(FifoLoop, ARatesTieGoesToTheEvenDigit) {
    struct Row {
        double part;
        double whole;
        const char* text;
    };
    const Row rows[] = {
        {0, 5, "0.00E+00"},         {1, 1, "1.00E+00"},        {1, 8, "1.25E-01"},
        {1, 32, "3.12E-02"},        {1, 320, "3.12E-03"},      {3, 320, "9.38E-03"},
        {3, 32, "9.38E-02"},        {1, 3, "3.33E-01"},        {2, 3, "6.67E-01"},
        {9994, 10000, "9.99E-01"},  {9996, 10000, "1.00E+00"}, {1, 80'000, "1.25E-05"},
        {1, 1'000'000, "1.00E-06"}, {7, 1, "7.00E+00"},        {123456, 1, "1.23E+05"},
        {-1, 8, "-1.25E-01"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(rateText(row.part / row.whole), row.text) << row.part << " / " << row.whole;
    }
}

} // namespace zor::testing
