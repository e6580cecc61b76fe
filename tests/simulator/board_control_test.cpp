// SPDX-License-Identifier: MIT
#include "simulator/board_control.h"

#include "host/files.h"
#include "simulator/board_on_line.h"
#include "simulator/trace_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace zor::sim {

namespace {

ControlOutcome say(BoardOnLine& bench, std::string_view statement) {
    return control(bench.board, statement).outcome;
}

} // namespace

TEST(BoardControl, SetsWhatABenchCanSet) {
    BoardOnLine bench;
    EXPECT_EQ(say(bench, "chip kt3100"), ControlOutcome::done);
    EXPECT_EQ(say(bench, "status 5F A0"), ControlOutcome::done);
    EXPECT_EQ(say(bench, "offset -1"), ControlOutcome::done);
    EXPECT_EQ(bench.ask("S20000"), "5FBF \n\rOK\n\r>");
    EXPECT_EQ(say(bench, "irq low"), ControlOutcome::done);
    EXPECT_EQ(bench.ask("RI"), "0   0 \n\rOK\n\r>");
    EXPECT_EQ(say(bench, "irq high\r"), ControlOutcome::done);
    EXPECT_EQ(bench.ask("RI"), "1   1 \n\rOK\n\r>");
    EXPECT_EQ(say(bench, "data 1"), ControlOutcome::done);
    EXPECT_EQ(bench.ask("RO"), "1   \n\rOK\n\r>");
    EXPECT_EQ(say(bench, "current 256 2"), ControlOutcome::done);
    EXPECT_EQ(bench.ask("AD"), "ADC high byte 01h, low byte = 00h, done \n\rOK\n\r>");
    EXPECT_EQ(say(bench, "refuse S2 8080"), ControlOutcome::done);
    EXPECT_EQ(bench.ask("S2 8080"), "ERROR\n\r>");
    EXPECT_EQ(say(bench, "delay 30"), ControlOutcome::done);
    bench.ask("Z3");
    EXPECT_EQ(bench.delays.back(), 30);
    EXPECT_EQ(say(bench, "mute"), ControlOutcome::done);
    EXPECT_EQ(bench.ask("Z3"), "");
    EXPECT_EQ(say(bench, "emit \\x41B\\r\\n\\q"), ControlOutcome::done);
    EXPECT_EQ(bench.said, "AB\r\n\\q");
    EXPECT_EQ(say(bench, "unmute"), ControlOutcome::done);
    bench.ask("F11,13,100,1");
    EXPECT_EQ(say(bench, "packet A\\x42 C"), ControlOutcome::done);
    EXPECT_EQ(bench.said, "\n\rOK\n\r>\n\rReceived packet: 04 bytes: AB C\n\rOK\n\r>");
    EXPECT_EQ(bench.ask("Z3"), "\n\rOK\n\r>");
    EXPECT_EQ(say(bench, ""), ControlOutcome::done);
    EXPECT_EQ(say(bench, "quit"), ControlOutcome::quit);
}

TEST(BoardControl, BytesFromTheAirReachAReceivingChip) {
    BoardOnLine bench;
    EXPECT_EQ(say(bench, "chip KT3101"), ControlOutcome::done);
    bench.write("S28048\rS282C8\r");
    EXPECT_EQ(say(bench, "air 31 32 FF"), ControlOutcome::done);
    EXPECT_EQ(bench.board.radio().fifoFill(), 3u);
}

TEST(BoardControl, SetsWhatALoaderDoesAndKeepsWhatItWasGiven) {
    BoardOnLine bench(BoardKind::Loader);
    EXPECT_EQ(say(bench, "slow 20"), ControlOutcome::done);
    EXPECT_EQ(say(bench, "stall 2"), ControlOutcome::done);
    bench.ask("C");
    bench.delays.clear();
    EXPECT_EQ(bench.ask("L:0300300002337A1E"), "\x13\x11");
    EXPECT_THAT(bench.delays, testing::ElementsAre(20, 40));
    EXPECT_EQ(bench.ask(":0300300002337A1E"), "");
    std::string path = testing::TempDir() + "zor_image_test.txt";
    EXPECT_EQ(say(bench, "image " + path), ControlOutcome::done);
    EXPECT_EQ(readFile(path), "000030: 02 33 7A\n");
    std::filesystem::remove(path);
    EXPECT_EQ(say(bench, "image /no such folder/image"), ControlOutcome::failed);
    EXPECT_EQ(say(bench, "image"), ControlOutcome::failed);
    BoardOnLine other;
    EXPECT_EQ(say(other, "image " + path), ControlOutcome::failed);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(BoardControl, PutsAChipOfRegistersOnTheBus) {
    BoardOnLine bench;
    EXPECT_EQ(say(bench, "registers"), ControlOutcome::done);
    EXPECT_EQ(say(bench, "register 0A 5F"), ControlOutcome::done);
    EXPECT_EQ(bench.ask("S2 0A00"), "005F \n\rOK\n\r>");
    EXPECT_EQ(say(bench, "register 30 4225"), ControlOutcome::done);
    EXPECT_EQ(bench.ask("S2 3000"), "4225 \n\rOK\n\r>");
    EXPECT_EQ(say(bench, "fifo 41 42"), ControlOutcome::done);
    EXPECT_EQ(bench.board.circuits().registers()->receiveFifo().size(), 2u);
    EXPECT_EQ(say(bench, "loop 0.001 7"), ControlOutcome::done);
    EXPECT_EQ(say(bench, "loop off"), ControlOutcome::done);
    for (const char* bad : {"registers /no/such/file", "register 80 00", "register 0A", "register 0A 123456",
                            "fifo", "fifo 4", "loop", "loop 2", "loop 0.1 x"}) {
        EXPECT_EQ(say(bench, bad), ControlOutcome::failed) << bad;
    }
}

TEST(BoardControl, TheDemonstrationChipHasItsValuesAfterReset) {
    BoardOnLine bench;
    EXPECT_EQ(say(bench, "registers " ZOR_REGISTERS_FILE), ControlOutcome::done);
    EXPECT_EQ(bench.ask("S2 0000"), "0024 \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("S2 3000"), "4225 \n\rOK\n\r>");
    bench.ask("S2 BE41");
    EXPECT_EQ(bench.board.circuits().registers()->transmitFifo().size(), 1u);
}

TEST(BoardControl, RefusesWhatItCannotReadAndChangesNothing) {
    BoardOnLine bench;
    bench.board.setStatus(0x12, 0x34);
    for (const char* statement :
         {"status", "status 123", "status 1 2 3",   "status 5F zz", "irq",       "irq up",
          "data 2", "mute now",   "unmute now",     "delay",        "delay -1",  "delay 5x",
          "emit",   "current 1",  "current 1 1024", "offset",       "offset 33", "offset --1",
          "air",    "air 100",    "air 1 x",        "chip kt9",     "nothing",   "Status 5F",
          "slow",   "slow x",     "stall",          "stall -1"}) {
        EXPECT_EQ(say(bench, statement), ControlOutcome::failed) << statement;
    }
    EXPECT_EQ(bench.ask("S20000"), "1234 \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("RI"), "1   1 \n\rOK\n\r>");
    EXPECT_EQ(bench.delays.back(), 0);
}

TEST(BoardControl, SaysWhatItExpected) {
    BoardOnLine bench;
    EXPECT_EQ(control(bench.board, "status").message, "expected: status XX [YY]");
    EXPECT_EQ(control(bench.board, "jump 3").message, "unknown statement \"jump\"");
}

TEST(TraceText, QuotesWhatDoesNotPrint) {
    EXPECT_EQ(quotedBytes("\n\rOK\"\\\x13\xFF"), "\"\\n\\rOK\\\"\\\\\\x13\\xFF\"");
}

TEST(TraceText, UnescapesWhatItQuotes) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    std::string text = quotedBytes(all);
    EXPECT_EQ(unescaped(text.substr(1, text.size() - 2)), all);
    EXPECT_EQ(unescaped("\\x4"), "\\x4");
    EXPECT_EQ(unescaped("end\\"), "end\\");
}

TEST(TraceText, NamesTheCommandOfATransfer) {
    EXPECT_EQ(lineMeaning("S2 8080", Chip::KT3100), "Configuration Setting");
    EXPECT_EQ(lineMeaning("S1B3", Chip::KT1100), "Power Setting");
    EXPECT_EQ(lineMeaning("S2c039", Chip::KT1100), "Power Management");
    EXPECT_EQ(lineMeaning("S2c03", Chip::KT1100), "");
    EXPECT_EQ(lineMeaning("Z3", Chip::KT1100), "release line 3");
}

} // namespace zor::sim
