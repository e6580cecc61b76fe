// SPDX-License-Identifier: MIT
#include "eeprom/routine_reader.h"

#include "panels/panel_bench.h"
#include "panels/transmitters/jade_v1.h"
#include "panels/transmitters/opal_v2.h"

#include <gtest/gtest.h>

#include <random>

namespace zor {

namespace {

using testing::PanelBench;
using Kind = RoutineCommand::Kind;

/// One line a command: "digits name: meaning".
std::string read(std::string_view routine, const ReadingBasis& basis = {}) {
    std::string lines;
    for (const RoutineCommand& command : readRoutine(routine, basis)) {
        lines += std::string(routine.substr(command.begin, command.count)) + " " + command.name + ": " +
                 command.meaning + "\n";
    }
    return lines;
}

} // namespace

TEST(RoutineReader, ReadsAWholeRoutineByThePanelsTables) {
    PanelBench<OpalV2> bench;
    ReadingBasis basis{&bench.open(), 10'000'000};
    EXPECT_EQ(read("8080B0C0F8C205A7D0C823CA40E5C8C603AA2DD4C400", basis),
              "8080 Configuration Setting: band 315 MHz, clock output 1 MHz, load capacitance 12.5 pF, "
              "polarity fo + "
              "df, deviation 30 kHz\n"
              "B0 Power Setting: output power and keying Pmax, FSK\n"
              "C0F8 Power Management: Xtal osc.+ synthesizer, Power amplifier:, Xtal osc., Synthesizer, "
              "Power amp.\n"
              "C205 Low Battery Detector: threshold 2.7 V\n"
              "A7D0 Frequency Setting: 315 MHz\n"
              "C823 Data Rate: 9579 bps\n"
              "CA40 Push-Button: de-bouncing 10 ms\n"
              "E5C8 Wake-Up Timer: 6.4 sec (R 5, M 200)\n"
              "C603AA2DD4 Data transmit: 3 bytes: AA 2D D4\n"
              "C400 Sleep: ends the routine\n");
}

TEST(RoutineReader, ReadsAFrequencyInTheBandThatTheRoutineChose) {
    PanelBench<OpalV2> bench;
    ReadingBasis basis{&bench.open(), 10'000'000};
    EXPECT_TRUE(read("A7D0", basis).ends_with("315 MHz\n"));
    EXPECT_TRUE(read("9080A7D0", basis).ends_with("870 MHz\n"));
    EXPECT_TRUE(read("9080A7D08880A7D0", basis).ends_with("435 MHz\n"));
}

TEST(RoutineReader, ReadsTheOtherTransmittersOwnWords) {
    PanelBench<JadeV1> bench;
    ReadingBasis basis{&bench.open(), 10'000'000};
    EXPECT_EQ(read("C823D280", basis), "C823 Data Rate: divider 9.579 kbps\n"
                                       "D280 PLL Setting: highest data rate 115.2 kbps\n");
    PanelBench<OpalV2> other;
    EXPECT_EQ(read("D280", {&other.open(), 10'000'000}), "D280 cannot be read: no command of the KT1100\n");
}

TEST(RoutineReader, KnowsTheCommandsWithoutAPanel) {
    EXPECT_EQ(read("A7D0B3D240C823"), "A7D0 Frequency Setting: open the transmitter's panel to read it\n"
                                      "B3 Power Setting: open the transmitter's panel to read it\n"
                                      "D240 PLL Setting: open the transmitter's panel to read it\n"
                                      "C823 Data Rate: 9579 bps\n");
    EXPECT_EQ(read("1234"), "1234 cannot be read: no command of the transmitters\n");
}

TEST(RoutineReader, SaysWhatThePushButtonByteSwitches) {
    EXPECT_EQ(read("CAFF"),
              "CAFF Push-Button: de-bouncing bypassed, continuous for button 1 2 3 4, fourth button "
              "emulated, pull-up off\n");
    EXPECT_EQ(read("CA24"), "CA24 Push-Button: de-bouncing 40 ms, continuous for button 2\n");
}

TEST(RoutineReader, ShowsWhatIsTransmittedAndTheTextInIt) {
    EXPECT_EQ(read("C600"), "C600 Data transmit: 0 bytes\n");
    EXPECT_EQ(read("C60141"), "C60141 Data transmit: 1 byte: 41\n");
    EXPECT_TRUE(
        read("C60AAAAA2DD4426561636F6E").ends_with("10 bytes: AA AA 2D D4 42 65 61 63 ... \"Beacon\"\n"));
}

TEST(RoutineReader, TakesZeroBytesToTheEndAsPadding) {
    EXPECT_EQ(read("C400000000"),
              "C400 Sleep: ends the routine\n000000 Zero bytes: 3 bytes without a command\n");
    EXPECT_TRUE(read("0000C400").starts_with("0000 cannot be read"))
        << "zeros in front of a command are none";
}

TEST(RoutineReader, MarksWhatCannotBeRead) {
    EXPECT_EQ(read("C4"), "C4 cannot be read: ends in the midst of a command\n");
    EXPECT_EQ(read("C401"), "C401 cannot be read: a sleep command ends in 00\n");
    EXPECT_EQ(read("C605AABB"), "C605AABB cannot be read: transmits 5 bytes, but only 2 bytes are there\n");
    EXPECT_EQ(read("C6"), "C6 cannot be read: a transmit command without a length\n");
    EXPECT_EQ(read("C601GG"), "C601GG cannot be read: data that are no digits\n");
    EXPECT_EQ(read("A7D"), "A7D cannot be read: ends in the midst of a command\n");
    EXPECT_EQ(read("A7D0C"), "A7D0 Frequency Setting: open the transmitter's panel to read it\n"
                             "C cannot be read: half a byte\n");
    EXPECT_EQ(read("xyC400"), "xy cannot be read: no digits\nC400 Sleep: ends the routine\n");
}

TEST(RoutineReader, ReadsOnBehindWhatItCouldNotRead) {
    EXPECT_EQ(read("1234C400"),
              "1234 cannot be read: no command of the transmitters\nC400 Sleep: ends the routine\n");
}

TEST(RoutineReader, CoversEveryDigitOfAnyRoutineOnce) {
    PanelBench<OpalV2> bench;
    const ReadingBasis bases[] = {{}, {&bench.open(), 10'000'000}};
    constexpr std::string_view characters = "0123456789ABCDEFabcdefC6C4C4A80 xG";
    std::minstd_rand random(7);
    for (int round = 0; round < 3000; ++round) {
        std::string routine;
        for (auto length = random() % 300; length > 0; --length) {
            routine += characters[random() % characters.size()];
        }
        for (const ReadingBasis& basis : bases) {
            std::size_t at = 0;
            for (const RoutineCommand& command : readRoutine(routine, basis)) {
                ASSERT_EQ(command.begin, at) << routine;
                ASSERT_GT(command.count, 0U) << routine;
                at += command.count;
            }
            ASSERT_EQ(at, routine.size()) << routine;
        }
    }
}

} // namespace zor
