// SPDX-License-Identifier: MIT
#include "simulator/chip_commands.h"

#include <gtest/gtest.h>

namespace zor::sim {

namespace {

struct Row {
    Chip chip;
    std::uint16_t word;
    int bits;
    WordRole role;
};

using enum WordRole;

// clang-format off
constexpr Row words[] = {
    {Chip::KT1100, 0x8080, 16, configuration},   {Chip::KT1100, 0x9FFF, 16, configuration},
    {Chip::KT1100, 0xA7D0, 16, frequency},       {Chip::KT1100, 0xB0,    8, outputPower},
    {Chip::KT1100, 0xBB,    8, outputPower},     {Chip::KT1100, 0xC0FF, 16, powerManagement},
    {Chip::KT1100, 0xC21F, 16, lowBattery},      {Chip::KT1100, 0xF7FF, 16, wakeUpTimer},
    {Chip::KT1100, 0xCC,    8, statusRead},
    {Chip::KT1101, 0xC2A0, 16, lowBattery},      {Chip::KT1101, 0xC8FF, 16, dataRate},
    {Chip::KT1101, 0xD240, 16, pll},             {Chip::KT1101, 0xD2C0, 16, pll},
    {Chip::KT1102, 0x9788, 16, configuration},   {Chip::KT1102, 0xCE83, 16, fifo},
    {Chip::KT1102, 0xC813, 16, dataRate},        {Chip::KT1102, 0xC3C1, 16, extendedWakeUpTimer},
    {Chip::KT1102, 0xB0DF, 16, extendedFeatures},{Chip::KT1102, 0xE12C, 16, wakeUpTimer},
    {Chip::KT2100, 0x893A, 16, configuration},   {Chip::KT2100, 0xC0C1, 16, receiver},
    {Chip::KT2100, 0xCC0E, 16, lowDutyCycle},    {Chip::KT2100, 0xC200, 16, lowBattery},
    {Chip::KT2100, 0xC6F7, 16, frequencyControl},{Chip::KT2100, 0xC823, 16, dataRate},
    {Chip::KT2100, 0xC42C, 16, dataFilter},      {Chip::KT2100, 0xCE85, 16, fifo},
    {Chip::KT2100, 0xE196, 16, wakeUpTimer},     {Chip::KT2100, 0x0000, 16, statusRead},
    {Chip::KT2102, 0xC1D4, 16, synchronPattern}, {Chip::KT2102, 0xC33F, 16, extendedWakeUpTimer},
    {Chip::KT2102, 0xB008, 16, extendedFeatures},
    {Chip::KT3100, 0x8008, 16, configuration},   {Chip::KT3100, 0xA7D0, 16, frequency},
    {Chip::KT3100, 0x8208, 16, powerManagement}, {Chip::KT3100, 0x9080, 16, receiver},
    {Chip::KT3100, 0x97FF, 16, receiver},        {Chip::KT3100, 0x9800, 16, transmitter},
    {Chip::KT3100, 0x99F7, 16, transmitter},     {Chip::KT3100, 0xE196, 16, wakeUpTimer},
    {Chip::KT3100, 0xC80E, 16, lowDutyCycle},    {Chip::KT3100, 0xC000, 16, lowBattery},
    {Chip::KT3100, 0xC4F7, 16, frequencyControl},{Chip::KT3100, 0xC623, 16, dataRate},
    {Chip::KT3100, 0xC22C, 16, dataFilter},      {Chip::KT3100, 0xCA80, 16, fifo},
    {Chip::KT3101, 0xCC67, 16, pll},             {Chip::KT3101, 0xCED4, 16, synchronPattern},
};
// clang-format on

} // namespace

TEST(ChipCommands, EveryWordReachesItsCommand) {
    for (const Row& row : words) {
        const ChipCommand* command = decode(row.chip, row.word, row.bits);
        ASSERT_NE(command, nullptr) << chipName(row.chip) << " " << std::hex << row.word;
        EXPECT_EQ(command->role, row.role) << chipName(row.chip) << " " << std::hex << row.word;
    }
}

TEST(ChipCommands, NoWordBelongsToTwoCommandsOfAChip) {
    for (Chip chip :
         {Chip::KT1100, Chip::KT1101, Chip::KT1102, Chip::KT2100, Chip::KT2102, Chip::KT3100, Chip::KT3101}) {
        for (unsigned word = 0; word <= 0xFFFF; ++word) {
            int matches = 0;
            for (const ChipCommand& command : commandsOf(chip)) {
                matches += command.bits == 16 && (word & command.mask) == command.base ? 1 : 0;
            }
            ASSERT_LE(matches, 1) << chipName(chip) << " " << std::hex << word;
        }
    }
}

TEST(ChipCommands, AWordOfAnotherWidthOrChipIsUnknown) {
    EXPECT_EQ(decode(Chip::KT1100, 0xB0, 16), nullptr);
    EXPECT_EQ(decode(Chip::KT1100, 0xC800, 16), nullptr);
    EXPECT_EQ(decode(Chip::KT1102, 0xB3, 8), nullptr);
    EXPECT_EQ(decode(Chip::KT3100, 0xCC67, 16), nullptr);
    EXPECT_EQ(decode(Chip::KT3100, 0x8300, 16), nullptr);
}

TEST(ChipCommands, TheSameBaseHasTheNameOfItsChip) {
    EXPECT_EQ(commandName(Chip::KT1100, 0xC200, 16), "Low Battery Detector");
    EXPECT_EQ(commandName(Chip::KT3100, 0xC200, 16), "Data Filter");
    EXPECT_EQ(commandName(Chip::KT3100, 0xCC67, 16), "");
}

TEST(ChipCommands, WithoutAChipANameIsTheOneThatAllAgreeOnOrAllThatMayBe) {
    EXPECT_EQ(commandName(std::nullopt, 0xA7D0, 16), "Frequency Setting");
    EXPECT_EQ(commandName(std::nullopt, 0xC200, 16), "Low Battery Detector or Data Filter");
    EXPECT_EQ(commandName(std::nullopt, 0x0600, 16), "");
}

TEST(ChipCommands, ChipsAreFoundByNameInEitherCase) {
    EXPECT_EQ(chipOfName("kt3100"), Chip::KT3100);
    EXPECT_EQ(chipOfName("KT2102"), Chip::KT2102);
    EXPECT_EQ(chipOfName("kt31"), std::nullopt);
    EXPECT_EQ(chipName(Chip::KT1101), "KT1101");
}

} // namespace zor::sim
