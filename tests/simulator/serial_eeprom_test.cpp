// SPDX-License-Identifier: MIT
#include "simulator/serial_eeprom.h"

#include "simulator/board_control.h"
#include "simulator/board_on_line.h"

#include <gtest/gtest.h>

namespace zor::sim {

namespace {

constexpr const char* ok = "\n\rOK\n\r>";

/// A board with an EEPROM and a clock that stands until it is moved.
struct EepromBench : BoardOnLine {
    EepromBench() {
        board.circuits().time = [this] { return time; };
        board.circuits().mountEeprom();
    }

    SerialEeprom& chip() { return *board.circuits().eeprom(); }
    std::string status() { return ask("S20500").substr(2, 2); }
    std::string read(const std::string& address, int count) {
        ask("H2");
        ask("L2");
        ask("WS03," + address);
        std::string answer = ask("RS" + std::to_string(count));
        ask("H2");
        return answer.substr(0, answer.size() - std::string_view(ok).size());
    }
    void write(const std::string& bytes) {
        ask("S106");
        ask("SX02," + bytes);
        pass(5);
    }
    void pass(int milliseconds) { time += std::chrono::milliseconds(milliseconds); }

    std::chrono::microseconds time{0};
};

} // namespace

TEST(SerialEeprom, HoldsFfAtFirst) {
    EepromBench bench;
    EXPECT_EQ(bench.status(), "00");
    EXPECT_EQ(bench.read("03,FE", 2), "ff ff ");
}

TEST(SerialEeprom, WritesOnlyBehindTheLatch) {
    EepromBench bench;
    bench.ask("SX02,00,00,11");
    EXPECT_EQ(bench.status(), "00");
    EXPECT_EQ(bench.read("00,00", 1), "ff ");
    bench.ask("S106");
    EXPECT_EQ(bench.status(), "02");
    bench.ask("S104");
    EXPECT_EQ(bench.status(), "00");
    bench.ask("SX02,00,00,11");
    EXPECT_EQ(bench.read("00,00", 1), "ff ");
    bench.write("00,00,11");
    EXPECT_EQ(bench.read("00,00", 2), "11 ff ");
    EXPECT_EQ(bench.status(), "00") << "a write clears the latch";
}

TEST(SerialEeprom, IsBusyAfterAWriteAndHearsNothingButTheStatus) {
    EepromBench bench;
    bench.ask("S106");
    bench.ask("SX02,00,10,22");
    EXPECT_EQ(bench.status(), "03");
    bench.ask("S104");
    bench.ask("SX02,00,10,33");
    EXPECT_EQ(bench.read("00,10", 1), "00 ");
    bench.pass(4);
    EXPECT_EQ(bench.status(), "03");
    bench.pass(1);
    EXPECT_EQ(bench.status(), "00");
    EXPECT_EQ(bench.read("00,10", 1), "22 ");
}

TEST(SerialEeprom, WrapsAWriteWithinItsPage) {
    EepromBench bench;
    bench.write("00,1E,A0,A1,A2,A3");
    EXPECT_EQ(bench.read("00,1E", 3), "a0 a1 ff ");
    EXPECT_EQ(bench.read("00,10", 3), "a2 a3 ff ");
    // Seventeen bytes: the last takes the place of the first.
    bench.write("00,20,0,1,2,3,4,5,6,7,8,9,A,B,C,D,E,F,10");
    EXPECT_EQ(bench.read("00,20", 16), "10 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f ");
    EXPECT_EQ(bench.read("00,30", 1), "ff ");
}

TEST(SerialEeprom, ReadsOnWhileItIsSelectedAndFromTheLastByteToTheFirst) {
    EepromBench bench;
    bench.chip().put(1022, std::vector<std::uint8_t>{0xA1, 0xA2});
    bench.chip().put(0, std::vector<std::uint8_t>{0xB1});
    EXPECT_EQ(bench.read("03,FE", 4), "a1 a2 b1 ff ");
    bench.ask("L2");
    bench.ask("WS03,03,FE");
    EXPECT_EQ(bench.ask("RS1"), std::string("a1 ") + ok);
    EXPECT_EQ(bench.ask("RS2"), std::string("a2 b1 ") + ok);
    bench.ask("H2");
    bench.ask("L2");
    EXPECT_EQ(bench.ask("RS1"), std::string("00 ") + ok) << "a new selection waits for an instruction";
}

TEST(SerialEeprom, AWriteWithoutDataDoesNothing) {
    EepromBench bench;
    bench.ask("S106");
    bench.ask("SX02,00,20,,,,,,,,");
    EXPECT_EQ(bench.status(), "02");
    EXPECT_EQ(bench.read("00,20", 1), "ff ");
}

TEST(SerialEeprom, AnEmptyFieldClocksNothingAndADigitAloneIsItsValue) {
    EepromBench bench;
    bench.write("00,40,11,,2,,33");
    EXPECT_EQ(bench.read("00,40", 4), "11 02 33 ff ");
}

TEST(SerialEeprom, AWriteBehindTheLastByteDoesNothing) {
    EepromBench bench;
    bench.write("04,00,11");
    EXPECT_EQ(bench.read("00,00", 1), "ff ");
}

TEST(SerialEeprom, CanBeStuckBusy) {
    EepromBench bench;
    bench.chip().setStuckBusy();
    bench.ask("S106");
    EXPECT_EQ(bench.status(), "01");
    bench.write("00,00,11");
    bench.chip().setWriteTime(std::chrono::milliseconds(1));
    EXPECT_EQ(bench.status(), "00");
    EXPECT_EQ(bench.read("00,00", 1), "ff ");
}

TEST(SerialEeprom, TellsOfEachWrite) {
    EepromBench bench;
    int writes = 0;
    bench.chip().written = [&] { ++writes; };
    bench.write("00,00,11");
    bench.ask("SX02,00,00,12");
    EXPECT_EQ(writes, 1);
}

TEST(SerialEeprom, AnEmptySocketReadsAsZeros) {
    EepromBench bench;
    bench.board.circuits().removeEeprom();
    EXPECT_EQ(bench.status(), "00");
    EXPECT_EQ(bench.read("00,00", 2), "00 00 ");
    EXPECT_EQ(bench.board.circuits().eeprom(), nullptr);
}

TEST(SerialEeprom, ARefusedLineIsNotCarriedOutAndAMuteBoardsIs) {
    EepromBench bench;
    bench.board.refuseNext("SX02,00,00,11");
    bench.write("00,00,11");
    EXPECT_EQ(bench.read("00,00", 1), "ff ");
    bench.board.setMute(true);
    bench.write("00,00,11");
    bench.board.setMute(false);
    EXPECT_EQ(bench.read("00,00", 1), "11 ");
}

TEST(BoardControl, SetsTheEeprom) {
    BoardOnLine bench;
    auto say = [&](std::string_view statement) { return control(bench.board, statement).outcome; };
    EXPECT_EQ(say("eeprom"), ControlOutcome::done);
    EXPECT_EQ(say("eeprom 16 C4 00 c605"), ControlOutcome::done);
    SerialEeprom& chip = *bench.board.circuits().eeprom();
    EXPECT_EQ(chip.bytes()[16], 0xC4);
    EXPECT_EQ(chip.bytes()[19], 0x05);
    EXPECT_EQ(say("eeprom busy always"), ControlOutcome::done);
    EXPECT_EQ(bench.ask("S20500"), std::string("0001 ") + ok);
    EXPECT_EQ(say("eeprom busy 20"), ControlOutcome::done);
    for (const char* wrong : {"eeprom 1024 00", "eeprom 1023 0000", "eeprom 0", "eeprom 0 0", "eeprom 0 XX",
                              "eeprom busy", "eeprom busy long", "eeprom gone"}) {
        EXPECT_EQ(say(wrong), ControlOutcome::failed) << wrong;
    }
    EXPECT_EQ(say("chip kt1100"), ControlOutcome::done);
    bench.ask("WSCC");
    EXPECT_EQ(bench.ask("S20500"), std::string("0000 ") + ok) << "the radio is back";
    EXPECT_EQ(say("eeprom again"), ControlOutcome::done);
    bench.ask("S106");
    EXPECT_EQ(bench.ask("S20500"), std::string("0002 ") + ok);
    EXPECT_EQ(bench.board.circuits().eeprom()->bytes()[16], 0xC4);
    EXPECT_EQ(say("eeprom none"), ControlOutcome::done);
    EXPECT_EQ(say("eeprom again"), ControlOutcome::failed);
    EXPECT_EQ(bench.board.circuits().eeprom(), nullptr);
}

} // namespace zor::sim
