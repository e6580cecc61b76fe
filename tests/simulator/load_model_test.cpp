// SPDX-License-Identifier: MIT
#include "simulator/board_on_line.h"

#include <gtest/gtest.h>

namespace zor::sim {

namespace {

double currentAfter(Chip chip, std::string_view lines) {
    BoardOnLine bench;
    bench.board.setChip(chip);
    bench.write(lines);
    return supplyCurrent(activityOf(bench.board.radio()));
}

} // namespace

TEST(LoadModel, AChipWithoutAWordSleeps) {
    EXPECT_DOUBLE_EQ(supplyCurrent({}), 0.0003);
    EXPECT_DOUBLE_EQ(currentAfter(Chip::KT3100, ""), 0.0003);
    BoardOnLine unknown;
    unknown.ask("S282FF");
    EXPECT_DOUBLE_EQ(supplyCurrent(activityOf(unknown.board.radio())), 0.0003);
}

TEST(LoadModel, EachPartAddsItsCurrent) {
    struct Row {
        Chip chip;
        const char* lines;
        double milliamps;
    };
    const Row rows[] = {
        {Chip::KT1100, "S2C020\r", 0.5003},          // oscillator
        {Chip::KT1100, "S2C080\r", 3.5003},          // oscillator and synthesizer, automatic
        {Chip::KT1100, "S2C038\rS1B0\r", 15.5003},   // all on, full power
        {Chip::KT1100, "S2C0C0\rS1B7\r", 6.5003},    // automatic, least power
        {Chip::KT1101, "S2C038\rS1BB\r", 9.0003},    // -9 dB, OOK
        {Chip::KT1102, "S29788\rS2C038\r", 6.5003},  // least power in the configuration word
        {Chip::KT1102, "S2C0C0\r", 0.0003},          // no automatic power control on this chip
        {Chip::KT1100, "S2C006\r", 0.0023},          // battery detector and wake-up timer
        {Chip::KT2100, "S2893A\r", 0.5003},          // oscillator
        {Chip::KT2100, "S2893A\rS2C0C1\r", 11.5003}, // receiving
        {Chip::KT2102, "S28E3A\rS2C0C0\r", 0.0023},  // detector and timer, oscillator off
        {Chip::KT3100, "S28208\r", 0.5003},          // oscillator
        {Chip::KT3100, "S28218\r", 3.5003},          // and synthesizer
        {Chip::KT3100, "S282C8\r", 11.5003},         // receiving
        {Chip::KT3101, "S28228\rS29800\r", 15.5003}, // transmitting at full power
        {Chip::KT3101, "S28228\rS29807\r", 6.5003},  // and at the least
    };
    for (const Row& row : rows) {
        EXPECT_NEAR(currentAfter(row.chip, row.lines), row.milliamps, 1e-9)
            << chipName(row.chip) << " " << row.lines;
    }
}

TEST(Converter, FallsOneCountEach24MicroampsInTheHighAnd48InTheLowRange) {
    EXPECT_EQ(converterCounts(0, CurrentRange::high), 1023);
    EXPECT_EQ(converterCounts(0.0003, CurrentRange::low), 1023);
    EXPECT_EQ(converterCounts(2.44, CurrentRange::high), 923);
    EXPECT_EQ(converterCounts(0.488, CurrentRange::low), 1013);
    EXPECT_EQ(converterCounts(11.5003, CurrentRange::high), 552);
    EXPECT_EQ(converterCounts(100, CurrentRange::high), 0);
}

TEST(Converter, IsReadByTheBoardInTheChosenRange) {
    BoardOnLine bench;
    bench.board.setChip(Chip::KT3100);
    bench.write("S282C8\rA1\r");
    EXPECT_EQ(bench.ask("AD"), "ADC high byte 02h, low byte = 28h, done \n\rOK\n\r>"); // 552
    bench.ask("A0");
    EXPECT_EQ(bench.ask("AD"), "ADC high byte 03h, low byte = 13h, done \n\rOK\n\r>"); // 787
}

TEST(Converter, ABenchsFiguresStandOverTheModelAndAreHeldIn10Bits) {
    BoardOnLine bench;
    bench.board.setCurrentCounts(1500, -3);
    EXPECT_EQ(bench.ask("AD"), "ADC high byte 03h, low byte = FFh, done \n\rOK\n\r>");
    bench.ask("A0");
    EXPECT_EQ(bench.ask("AD"), "ADC high byte 00h, low byte = 00h, done \n\rOK\n\r>");
}

} // namespace zor::sim
