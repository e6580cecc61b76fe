// SPDX-License-Identifier: MIT
#include "simulator/board_on_line.h"
#include "simulator/packet_receiver.h"

#include <gtest/gtest.h>

namespace zor::sim {

namespace {

std::string heard(BoardOnLine& bench, std::string_view packet) {
    bench.said.clear();
    bench.board.hearPacket(packet);
    return bench.said;
}

} // namespace

TEST(PacketReceiver, AnArmedBoardOfEitherGenerationReportsOnePacketWhole) {
    for (auto [kind, line] : {std::pair{BoardKind::LoadBoard1, "F1,13,100"},
                              {BoardKind::LoadBoard1, "F3,13,2,1"},
                              {BoardKind::LoadBoard2, "F12,13,100,1"}}) {
        BoardOnLine bench(kind);
        bench.ask(line);
        EXPECT_EQ(heard(bench, "HELLO"), "\n\rReceived packet: 05 bytes: HELLO\n\rOK\n\r>") << line;
        EXPECT_EQ(heard(bench, "AGAIN"), "") << line;
    }
}

TEST(PacketReceiver, ItsReportStandsWhereTheToolsLook) {
    BoardOnLine bench;
    bench.ask("F11,13,100,1");
    std::string report = heard(bench, std::string("a\r\n\0z", 5));
    EXPECT_EQ(report.substr(2, 15), "Received packet");
    EXPECT_EQ(report.substr(19, 2), "05");
    EXPECT_EQ(report.substr(29, 5), std::string("a\r\n\0z", 5));
}

TEST(PacketReceiver, ABoardThatIsNotArmedLosesAPacket) {
    BoardOnLine bench;
    EXPECT_EQ(heard(bench, "early"), "");
    bench.ask("F11,13,100,1");
    bench.ask("F0");
    EXPECT_EQ(heard(bench, "late"), "");
    EXPECT_EQ(bench.ask("F15"), "\n\rOK\n\r>");
}

TEST(PacketReceiver, AnEmptyPacketIsReportedAndALongOneIsCut) {
    BoardOnLine bench;
    bench.ask("F11,13,100,1");
    EXPECT_EQ(heard(bench, ""), "\n\rReceived packet: 00 bytes: \n\rOK\n\r>");
    bench.ask("F11,13,255,1");
    EXPECT_EQ(heard(bench, std::string(120, 'x')),
              "\n\rReceived packet: 99 bytes: " + std::string(99, 'x') + "\n\rOK\n\r>");
}

TEST(PacketReceiver, ARefusedArmingDoesNotArmAMuteOneDoes) {
    BoardOnLine bench;
    bench.board.refuseNext("F11,13,100,1");
    bench.ask("F11,13,100,1");
    EXPECT_EQ(heard(bench, "x"), "");
    bench.board.setMute(true);
    bench.ask("F11,13,100,1");
    bench.board.setMute(false);
    EXPECT_EQ(heard(bench, "x"), "\n\rReceived packet: 01 bytes: x\n\rOK\n\r>");
}

TEST(PacketReceiver, TheReportOfAMuteBoardWaitsUntilItIsAskedFor) {
    BoardOnLine bench;
    bench.ask("F11,13,100,1");
    bench.board.setMute(true);
    EXPECT_EQ(heard(bench, "kept"), "");
    bench.board.setMute(false);
    EXPECT_EQ(bench.ask("F15"), "\n\rReceived packet: 04 bytes: kept\n\rOK\n\r>");
    EXPECT_EQ(bench.ask("F15"), "\n\rOK\n\r>");
}

TEST(PacketReceiver, ABoardInDataModeReportsNothing) {
    BoardOnLine bench;
    bench.ask("F11,13,100,1");
    bench.ask("X2");
    EXPECT_EQ(heard(bench, "x"), "");
}

TEST(PacketReceiver, BytesGatherUntilTheirEnd) {
    PacketReceiver receiver;
    receiver.arm(PacketEnd::characterOrLength, '!', 4);
    EXPECT_EQ(receiver.takeBytes("ab"), "");
    EXPECT_EQ(receiver.takeBytes("!cd"), "\n\rReceived packet: 03 bytes: ab!\n\rOK\n\r>");
    EXPECT_FALSE(receiver.armed());
    receiver.arm(PacketEnd::characterOrLength, '!', 4);
    EXPECT_EQ(receiver.takeBytes("abcdef"), "\n\rReceived packet: 04 bytes: abcd\n\rOK\n\r>");
    receiver.arm(PacketEnd::character, '!', 2);
    EXPECT_EQ(receiver.takeBytes("abc!"), "\n\rReceived packet: 04 bytes: abc!\n\rOK\n\r>");
    receiver.arm(PacketEnd::length, '!', 3);
    EXPECT_EQ(receiver.takeBytes("!!!"), "\n\rReceived packet: 03 bytes: !!!\n\rOK\n\r>");
}

TEST(PacketReceiver, AnEndThatNeverComesIsTheFullReport) {
    PacketReceiver receiver;
    receiver.arm(PacketEnd::length, '!', 0);
    EXPECT_EQ(receiver.takeBytes(std::string(98, 'x')), "");
    EXPECT_TRUE(receiver.takeBytes("xx").starts_with("\n\rReceived packet: 99 bytes: x"));
}

} // namespace zor::sim
