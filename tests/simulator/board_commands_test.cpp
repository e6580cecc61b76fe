// SPDX-License-Identifier: MIT
#include "simulator/board_on_line.h"
#include "simulator/loader_firmware.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor::sim {

namespace {

constexpr std::string_view good = "\n\rOK\n\r>";
constexpr std::string_view refused = "ERROR\n\r>";

} // namespace

TEST(LoadBoard, RefusalEndsInTheTailThatThePcLooksFor) {
    BoardOnLine bench;
    EXPECT_TRUE(bench.ask("nonsense").ends_with("\x52\x52\x4F\x52\x0A\x0D\x3E"));
}

TEST(LoadBoard, CommandsWithoutAValueGiveTheBarePrompt) {
    for (const char* line :
         {"V83",  "A1",         "A0",           "H0",          "H7",        "L2",
          "Z3",   "X0",         "X1",           "y00",         "y01",       "y10",
          "y20",  "y31",        "d2",           "d0",          "S1B0",      "SX02,00,10,aa,BB",
          "WSCC", "WS03,00,00", "WS CC",        "F11,13,10,1", "F12,13,10", "F13,13,10",
          "F15",  "F0",         "T14,31,32,0D", "T0"}) {
        BoardOnLine bench;
        EXPECT_EQ(bench.ask(line), good) << line;
    }
}

TEST(LoadBoard, RefusesArgumentsOfTheWrongForm) {
    for (const char* line :
         {"S1",    "S1B",   "S1B00", "S1GG",  "S2",        "S280", "S2808", "S280800", "S2xyzw", "H",
          "H8",    "H22",   "L-",    "Z9",    "V",         "VG",   "V123",  "VFF",     "WS",     "WSXX",
          "WS,CC", "SX123", "RS0",   "RS256", "RSx",       "X3",   "y4",    "y0",      "y02",    "A2",
          "i1",    "I",     "rI",    "F11,",  "F11,256,1", "T14,", "T14,G", "s28080"}) {
        BoardOnLine bench;
        EXPECT_EQ(bench.ask(line), refused) << line;
    }
}

TEST(LoadBoard, GenerationOneRefusesSelectorConverterAndLaterPacketCommands) {
    for (const char* line :
         {"X0", "X1", "X2", "A0", "A1", "AD", "F11,13,10", "F12,13,10", "F13,13,10", "F15", "T14,31", "T0"}) {
        BoardOnLine bench(BoardKind::LoadBoard1);
        EXPECT_EQ(bench.ask(line), refused) << line;
    }
}

TEST(LoadBoard, PacketReceptionHasAFormForEachGeneration) {
    BoardOnLine first(BoardKind::LoadBoard1);
    BoardOnLine second(BoardKind::LoadBoard2);
    EXPECT_EQ(first.ask("F1,13,10,1"), good);
    EXPECT_EQ(first.ask("F2,13,10"), good);
    EXPECT_EQ(first.ask("F3,13,10"), good);
    EXPECT_EQ(second.ask("F1,13,10,1"), refused);
    EXPECT_EQ(second.ask("F11,13,10,1"), good);
}

TEST(LoadBoard, ABlankMayStandBetweenWordAndArgument) {
    BoardOnLine bench;
    bench.board.setChip(Chip::KT3100);
    EXPECT_EQ(bench.ask("S2 8080"), "0000 \n\rOK\n\r>");
    EXPECT_EQ(bench.board.radio().latched(WordRole::configuration), 0x8080);
    EXPECT_EQ(bench.ask("RS "), "00 \n\rOK\n\r>");
    EXPECT_EQ(bench.ask("V 83"), good);
}

TEST(LoadBoard, TakesLowerCaseDigits) {
    BoardOnLine bench;
    bench.board.setChip(Chip::KT3100);
    EXPECT_EQ(bench.ask("S2c039"), "0000 \n\rOK\n\r>");
    EXPECT_EQ(bench.board.radio().latched(WordRole::lowBattery), 0xC039);
}

TEST(LoadBoard, SupplyFollowsItsCodeByGeneration) {
    BoardOnLine first(BoardKind::LoadBoard1);
    BoardOnLine second(BoardKind::LoadBoard2);
    EXPECT_EQ(first.board.supplyVoltage(), 0);
    first.ask("V83");
    second.ask("V83");
    EXPECT_NEAR(first.board.supplyVoltage(), 2.508, 0.0005);  // 311 / 124
    EXPECT_NEAR(second.board.supplyVoltage(), 2.492, 0.0005); // 309 / 124
    second.ask("VF");
    EXPECT_NEAR(second.board.supplyVoltage(), 1.2875, 0.00005); // 309 / 240
}

TEST(LoadBoard, DrivesEachLineHighLowAndReleased) {
    BoardOnLine bench;
    for (char line = '0'; line <= '7'; ++line) {
        auto number = static_cast<std::size_t>(line - '0');
        EXPECT_EQ(bench.board.output(number), OutputState::released);
        bench.ask(std::string("H") + line);
        EXPECT_EQ(bench.board.output(number), OutputState::high);
        bench.ask(std::string("L") + line);
        EXPECT_EQ(bench.board.output(number), OutputState::low);
        bench.ask(std::string("Z") + line);
        EXPECT_EQ(bench.board.output(number), OutputState::released);
    }
}

TEST(LoadBoard, ReadsAByteAtPositions6And7OfTheLast15) {
    BoardOnLine bench;
    bench.board.setStatus(0x5F, 0xA0);
    bench.ask("H2");
    bench.ask("L2");
    std::string tail = "padding" + bench.ask("RS");
    EXPECT_EQ(bench.said, "5F \n\rOK\n\r>");
    EXPECT_EQ(at(tail, 15, 6, 2), "5F");
}

TEST(LoadBoard, StatusReadsGiveTheFirstByteThenTheSecondAfterEachSelect) {
    BoardOnLine bench;
    bench.board.setStatus(0x5F, 0xA0);
    for (int round = 0; round < 2; ++round) {
        bench.ask("H2");
        bench.ask("L2");
        bench.ask("L0");
        EXPECT_EQ(bench.ask("RS"), "5F \n\rOK\n\r>");
        EXPECT_EQ(bench.ask("RS"), "A0 \n\rOK\n\r>");
        EXPECT_EQ(bench.ask("RS"), "00 \n\rOK\n\r>");
    }
}

TEST(LoadBoard, TransmitterStatusComesBehindItsReadCommand) {
    BoardOnLine bench;
    bench.board.setChip(Chip::KT1100);
    bench.board.setStatus(0x81);
    bench.write("H2\rL2\rWSCC\rL0\r");
    EXPECT_EQ(bench.ask("RS"), "81 \n\rOK\n\r>");
}

TEST(LoadBoard, ADeselectedBusFloatsHigh) {
    BoardOnLine bench;
    bench.board.setStatus(0x5F);
    bench.ask("H2");
    EXPECT_EQ(bench.ask("RS"), "FF \n\rOK\n\r>");
}

TEST(LoadBoard, ATransferGivesTheClockedBackBitsAtPositions4To7) {
    BoardOnLine bench;
    bench.board.setStatus(0x5F, 0xA0);
    std::string tail = "padding" + bench.ask("S20000");
    EXPECT_EQ(bench.said, "5FA0 \n\rOK\n\r>");
    EXPECT_EQ(at(tail, 15, 4, 4), "5FA0");
    EXPECT_EQ(at(tail, 15, 6, 2), "A0");
    EXPECT_EQ(bench.ask("S28080"), "0000 \n\rOK\n\r>");
}

TEST(LoadBoard, ACountedReadGivesThreeCharactersAByteInLowerCase) {
    BoardOnLine bench;
    bench.board.setStatus(0x5F, 0xA0);
    bench.ask("L2");
    EXPECT_EQ(bench.ask("RS16"), "5f a0 00 00 00 00 00 00 00 00 00 00 00 00 00 00 \n\rOK\n\r>");
    EXPECT_EQ(bench.said.size(), 55u);
    EXPECT_EQ(bench.ask("RS1"), "00 \n\rOK\n\r>");
}

TEST(LoadBoard, InterruptLineStandsAtPositions3And7OfTheLast15) {
    BoardOnLine bench;
    for (const char* line : {"RI", "ri"}) {
        bench.board.setInterruptLine(false);
        std::string tail = "padding" + bench.ask(line);
        EXPECT_EQ(bench.said, "0   0 \n\rOK\n\r>");
        EXPECT_EQ(at(tail, 15, 3, 1) + at(tail, 15, 7, 1), "00");
        bench.board.setInterruptLine(true);
        tail = "padding" + bench.ask(line);
        EXPECT_EQ(at(tail, 15, 3, 1) + at(tail, 15, 7, 1), "11");
    }
}

TEST(LoadBoard, DataLineStandsAtPosition5OfTheLast15) {
    BoardOnLine bench;
    std::string tail = "padding" + bench.ask("RO");
    EXPECT_EQ(bench.said, "0   \n\rOK\n\r>");
    EXPECT_EQ(at(tail, 15, 5, 1), "0");
    bench.board.setDataLine(true);
    tail = "padding" + bench.ask("RO");
    EXPECT_EQ(at(tail, 15, 5, 1), "1");
}

TEST(LoadBoard, ConverterBytesStandAtPositions68And84OfTheLast100) {
    BoardOnLine bench;
    bench.board.setCurrentCounts(0x2A7, 0x013);
    std::string tail = std::string(100, '.') + bench.ask("AD");
    EXPECT_EQ(bench.said, "ADC high byte 02h, low byte = A7h, done \n\rOK\n\r>");
    EXPECT_EQ(at(tail, 100, 68, 2), "02");
    EXPECT_EQ(at(tail, 100, 84, 2), "A7");
    bench.ask("A0");
    tail = std::string(100, '.') + bench.ask("AD");
    EXPECT_EQ(at(tail, 100, 68, 2) + at(tail, 100, 84, 2), "0013");
    bench.ask("A1");
    tail = std::string(100, '.') + bench.ask("AD");
    EXPECT_EQ(at(tail, 100, 68, 2) + at(tail, 100, 84, 2), "02A7");
}

TEST(LoadBoard, BannersAnswerTheWindowOfTheSearch) {
    struct Row {
        BoardKind kind;
        std::size_t position;
        std::string text;
        std::size_t versionPosition;
        std::string version;
    };
    const Row rows[] = {
        {BoardKind::LoadBoard1, 3, "Ortolan Radio Bench System", 34, "1."},
        {BoardKind::LoadBoard2, 3, "Ortolan Radio Bench System", 34, "2."},
        {BoardKind::Loader, 5, "LoadBoard Loader", 5, "LoadBoard Loader"},
        {BoardKind::Monitor, 5, "Vireo Demo Monitor", 27, "1."},
    };
    for (const Row& row : rows) {
        BoardOnLine bench(row.kind);
        std::string banner = bench.ask("i");
        ASSERT_EQ(banner.size(), 94u);
        EXPECT_EQ(at(banner, 94, row.position, row.text.size()), row.text);
        EXPECT_EQ(at(banner, 94, row.versionPosition, row.version.size()), row.version);
        EXPECT_TRUE(banner.ends_with(good));
    }
}

TEST(LoadBoard, SelectorKeepsWhatWasSent) {
    BoardOnLine bench;
    EXPECT_EQ(bench.board.dataSelector(), DataSelector::internal);
    bench.ask("X0");
    EXPECT_EQ(bench.board.dataSelector(), DataSelector::external);
    bench.ask("X1");
    EXPECT_EQ(bench.board.dataSelector(), DataSelector::internal);
}

TEST(LoadBoard, DataModeAnswersNothingUntilABreak) {
    BoardOnLine bench;
    EXPECT_EQ(bench.ask("X2"), "");
    EXPECT_EQ(bench.board.dataSelector(), DataSelector::dataMode);
    EXPECT_EQ(bench.ask("Z3"), "");
    EXPECT_THAT(bench.lines, testing::ElementsAre("X2"));
    bench.board.breakReceived();
    EXPECT_EQ(bench.board.dataSelector(), DataSelector::internal);
    EXPECT_EQ(bench.ask(""), good);
}

TEST(LoadBoard, OpeningTheLineLeavesDataMode) {
    BoardOnLine bench;
    bench.write("X2\rhalf");
    bench.board.lineOpened();
    EXPECT_EQ(bench.ask("Z3"), good);
}

TEST(LoadBoard, ALineFeedBehindTheLineThatEntersDataModeStillBelongsToIt) {
    BoardOnLine bench;
    bench.write("X2\r\ndata");
    EXPECT_THAT(bench.lines, testing::ElementsAre("X2\n"));
}

TEST(LoadBoard, KeepsTheStateOfTheModulationLine) {
    BoardOnLine bench;
    bench.ask("y20");
    EXPECT_EQ(bench.board.modulation(), Modulation::pseudoRandom);
    bench.ask("y31");
    EXPECT_EQ(bench.board.modulation(), Modulation::stopped);
    bench.ask("y11");
    EXPECT_EQ(bench.board.modulation(), Modulation::high);
    bench.ask("y01");
    EXPECT_EQ(bench.board.modulation(), Modulation::low);
}

TEST(Loader, KnowsItsSpeedsAndRefusesTheRest) {
    BoardOnLine bench(BoardKind::Loader);
    EXPECT_EQ(bench.ask("C192"), good);
    EXPECT_EQ(bench.ask("C384"), good);
    EXPECT_EQ(bench.ask("C576"), good);
    EXPECT_EQ(bench.ask(""), good);
    EXPECT_EQ(bench.ask("Z3"), refused);
    EXPECT_EQ(bench.ask("C115"), refused);
}

TEST(Loader, AcknowledgesEachRecordByXoffAndXonUntilTheLast) {
    BoardOnLine bench(BoardKind::Loader);
    EXPECT_EQ(bench.ask("C"), "");
    bench.said.clear();
    bench.write("L:0300300002337A1E\r\n");
    EXPECT_EQ(bench.said, "\x13\x11");
    bench.said.clear();
    bench.write(":00000001FF\r\n");
    EXPECT_EQ(bench.said, "\x13\x11");
    EXPECT_EQ(bench.ask("i").size(), 94u);
}

TEST(Loader, DoesNotAcknowledgeABadRecord) {
    for (const char* record : {":0300300002337A1F", ":0300300002337A1", ":0400300002337A1E",
                               ":03x0300002337A1E", "L:0300300002337A1F", ":00000006FA"}) {
        BoardOnLine bench(BoardKind::Loader);
        bench.ask("C");
        EXPECT_EQ(bench.ask(record), "") << record;
        EXPECT_TRUE(bench.board.loader()->image().bytes().empty()) << record;
    }
}

TEST(Loader, PassesOverWhatHoldsNoRecord) {
    BoardOnLine bench(BoardKind::Loader);
    bench.ask("C");
    EXPECT_EQ(bench.ask("L"), "\x13\x11");
    EXPECT_EQ(bench.ask(""), "\x13\x11");
    EXPECT_EQ(bench.ask("0300300002337A1E"), "\x13\x11");
    EXPECT_TRUE(bench.board.loader()->image().bytes().empty());
    EXPECT_EQ(bench.ask("anything :0300300002337A1E"), "\x13\x11");
    EXPECT_EQ(bench.board.loader()->image().bytes().size(), 3u);
    EXPECT_EQ(bench.board.loader()->lineCount(), 4u);
    EXPECT_FALSE(bench.board.loader()->complete());
}

TEST(Loader, KeepsWhatItWasGivenUntilTheNextDownload) {
    BoardOnLine bench(BoardKind::Loader);
    bench.ask("C");
    bench.ask("L:0300300002337A1E");
    bench.ask(":00000001FF");
    EXPECT_TRUE(bench.board.loader()->complete());
    EXPECT_EQ(imageText(bench.board.loader()->image()), "000030: 02 33 7A\n");
    bench.ask("C");
    EXPECT_TRUE(bench.board.loader()->image().bytes().empty());
    EXPECT_FALSE(bench.board.loader()->complete());
}

TEST(Loader, TakesItsTimeForEachFlowControlCharacter) {
    BoardOnLine bench(BoardKind::Loader);
    bench.board.setFlowTime(std::chrono::milliseconds(40));
    bench.board.setDelay(std::chrono::milliseconds(5));
    bench.ask("C");
    bench.delays.clear();
    EXPECT_EQ(bench.ask("L:0300300002337A1E"), "\x13\x11");
    EXPECT_THAT(bench.delays, testing::ElementsAre(45, 85));
}

TEST(Loader, FallsSilentAtALineUntilTheNextDownload) {
    BoardOnLine bench(BoardKind::Loader);
    bench.board.stallAt(2);
    bench.ask("C");
    EXPECT_EQ(bench.ask("L:0300300002337A1E"), "\x13\x11");
    EXPECT_EQ(bench.ask(":0300300002337A1E"), "");
    EXPECT_EQ(bench.ask(":0300300002337A1E"), "");
    bench.board.stallAt(0);
    EXPECT_EQ(bench.ask(":0300300002337A1E"), "");
    bench.board.lineSpeedChanged(19200);
    bench.ask("C");
    EXPECT_EQ(bench.ask("L:0300300002337A1E"), "\x13\x11");
    EXPECT_EQ(bench.ask(":0300300002337A1E"), "\x13\x11");
}

TEST(Loader, ALineAtTheSpeedOfCommandsEndsADownload) {
    BoardOnLine bench(BoardKind::Loader);
    bench.ask("C");
    bench.board.lineSpeedChanged(57600);
    EXPECT_EQ(bench.ask("C384"), "");
    EXPECT_EQ(bench.ask("L:0300300002337A1E"), "\x13\x11");
    bench.board.lineSpeedChanged(19200);
    EXPECT_EQ(bench.ask(""), good);
    EXPECT_EQ(bench.ask(":0300300002337A1E"), refused);
    EXPECT_EQ(bench.board.loader()->image().bytes().size(), 3u);
}

TEST(Loader, TheDownloadCommandBeginsAnewAlsoInADownload) {
    BoardOnLine bench(BoardKind::Loader);
    bench.board.stallAt(2);
    bench.ask("C");
    bench.ask("L:0300300002337A1E");
    EXPECT_EQ(bench.ask(":0300300002337A1E"), "");
    bench.board.stallAt(0);
    EXPECT_EQ(bench.ask("C"), "");
    EXPECT_TRUE(bench.board.loader()->image().bytes().empty());
    EXPECT_EQ(bench.ask("L:0300300002337A1E"), "\x13\x11");
}

TEST(Loader, OtherBoardsHaveNone) {
    BoardOnLine bench;
    EXPECT_EQ(bench.board.loader(), nullptr);
    bench.board.stallAt(1);
    bench.board.setFlowTime(std::chrono::milliseconds(1));
    bench.board.reportPacket();
    EXPECT_EQ(bench.said, "");
    EXPECT_EQ(bench.ask("Z3"), good);
}

TEST(Loader, ABreakEndsADownload) {
    BoardOnLine bench(BoardKind::Loader);
    bench.ask("C");
    bench.board.breakReceived();
    EXPECT_EQ(bench.ask(""), good);
}

TEST(Monitor, KnowsOnlyItsBanner) {
    BoardOnLine bench(BoardKind::Monitor);
    EXPECT_EQ(bench.ask("Z3"), refused);
    EXPECT_EQ(bench.ask(""), good);
}

TEST(Monitor, PrintsPacketAfterPacketTheSameOnesEachTime) {
    BoardOnLine bench(BoardKind::Monitor);
    bench.board.reportPacket();
    std::string first = bench.said;
    EXPECT_TRUE(first.starts_with("00001 CID ")) << first;
    EXPECT_TRUE(first.ends_with("\n\r")) << first;
    for (int packet = 2; packet <= 300; ++packet) {
        bench.said.clear();
        bench.board.reportPacket();
        EXPECT_LE(bench.said.size(), 80u);
    }
    EXPECT_TRUE(bench.said.starts_with("00300 CID ")) << bench.said;
    BoardOnLine again(BoardKind::Monitor);
    again.board.reportPacket();
    EXPECT_EQ(again.said, first);
}

TEST(SilentPort, NeverAnswers) {
    BoardOnLine bench(BoardKind::Silent);
    EXPECT_EQ(bench.ask("i"), "");
    EXPECT_EQ(bench.ask(""), "");
    EXPECT_THAT(bench.lines, testing::ElementsAre("i", ""));
}

} // namespace zor::sim
