// SPDX-License-Identifier: MIT
#include "rftools/received_packets.h"

#include "elements/list_box.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "host/files.h"
#include "rftools/amber_v1_rflink.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

constexpr const char* windowName = "AmberV1rflink_LB2";

class ReceiverLink : public ::testing::Test {
  protected:
    ReceiverLink() {
        bench.ports.place(1, sim::BoardKind::LoadBoard2);
        bench.startAndSearch();
        bench.main().menu.mnuViewRx.click();
        bench.main().menu.mnuToolsRFlink.click();
        bench.at(windowName, "EnRx").click();
        bench.takeSent();
    }

    AmberV1rflink& window() { return dynamic_cast<AmberV1rflink&>(*bench.desk.find(windowName)); }
    ReceivedPackets& packets() { return window().received; }
    sim::Board& board() { return bench.ports.seat(1).board(); }

    void receive(const std::string& payload) {
        std::string count = std::to_string(payload.size());
        board().emit("\n\rReceived packet: " + std::string(count.size() < 2 ? "0" : "") + count +
                     " bytes: " + payload + "\n\rOK\n\r>");
        bench.run(400ms);
    }
    std::string cell(std::size_t row, const char* column) {
        return packets().Packets.cell(row, *packets().Packets.column(column)).text;
    }

    VirtualBench bench;
};

/// So much at a time that the bound is met soon.
const std::string flood(std::size_t{1} << 20, 'z');

TEST_F(ReceiverLink, KeepsTheNewestOfABoardThatNeverPrompts) {
    std::vector<std::string> said;
    auto ear = bench.main().bench().noticed.subscribe([&](const std::string& text) { said.push_back(text); });
    for (int part = 0; part < 40; ++part) {
        window().Text1.append(flood);
        ASSERT_LE(window().Text1.contents().size(), KeptText::mostKept);
    }
    EXPECT_EQ(window().Text1.dropped() + window().Text1.contents().size(), 40 * flood.size());
    ASSERT_FALSE(said.empty());
    EXPECT_EQ(said.front(), "The oldest 4.0 MiB are gone; the newest 16 MiB are kept.");
    EXPECT_EQ(window().Text1.hint(), window().Text1.droppedNote());
    // What was dropped is no part of the packet, and the next one is whole.
    bench.run(400ms);
    EXPECT_EQ(window().PCnt.text(), "1");
    window().Clear.click();
    receive("hello");
    EXPECT_TRUE(window().Monitor.contents().find("hello") != std::string::npos);
    EXPECT_EQ(window().PCnt.text(), "2");
}

TEST_F(ReceiverLink, KeepsTheNewestPacketsInEitherViewAndSaysSo) {
    for (int part = 0; part < 12; ++part) {
        window().Text1.append(flood);
        bench.run(400ms);
    }
    EXPECT_EQ(window().Monitor.contents().size(), 12 * flood.size());
    EXPECT_EQ(window().Monitor.dropped(), 0U);
    window().OB_HexView.click();
    ASSERT_TRUE(window().OB_HexView.chosen());
    EXPECT_LE(window().Monitor.contents().size(), KeptText::mostKept);
    EXPECT_EQ(window().Monitor.contents().substr(0, 6), "7A7A7A");
    EXPECT_NE(window().Monitor.droppedNote(), "");
    window().Clear.click();
    EXPECT_EQ(window().Monitor.droppedNote(), "");
    EXPECT_EQ(window().Monitor.contents().capacity(), std::string().capacity());
}

TEST_F(ReceiverLink, ListsPacketsByteForByteTheNewestOnTop) {
    receive("hello");
    receive("a\r\n\x01z");
    Grid& grid = packets().Packets;
    ASSERT_EQ(grid.rowCount(), 2U);
    EXPECT_EQ(cell(1, "Text"), "hello");
    EXPECT_EQ(cell(1, "Length"), "5");
    EXPECT_EQ(cell(0, "Hex"), "61 0D 0A 01 7A");
    EXPECT_EQ(cell(0, "Text"), "a...z");
    EXPECT_EQ(cell(0, "Length"), "5");
    EXPECT_EQ(window().PCnt.text(), "2");
}

TEST_F(ReceiverLink, GivesALostNumberARowAndAGapOfItsOwn) {
    for (const char* payload : {"PKT 1", "PKT 2", "PKT 4", "PKT 7"}) {
        receive(payload);
    }
    ASSERT_EQ(packets().Packets.rowCount(), 6U);
    EXPECT_EQ(cell(0, "No."), "7");
    EXPECT_EQ(cell(1, ""), "!");
    EXPECT_EQ(cell(1, "Text"), "lost, 2 numbers missing");
    EXPECT_EQ(cell(3, "Text"), "lost, number missing");
    EXPECT_EQ(cell(3, "No."), "3");
    std::vector<PlotPoint> expected = {
        {1, 5}, {2, 5}, {3, std::nullopt}, {4, 5}, {5, std::nullopt}, {6, std::nullopt}, {7, 5}};
    const auto& points = packets().PacketLengths.points();
    EXPECT_EQ(std::vector<PlotPoint>(points.begin(), points.end()), expected);
    EXPECT_NE(packets().PacketFigures.text().find("4 received, 3 lost (42.9 %)"), std::string::npos)
        << packets().PacketFigures.text();
}

TEST_F(ReceiverLink, PlacesPacketsWithoutNumbersSideBySide) {
    for (const char* payload : {"a", "bb", "ccc"}) {
        receive(payload);
    }
    std::vector<PlotPoint> expected = {{1, 1}, {2, 2}, {3, 3}};
    const auto& points = packets().PacketLengths.points();
    EXPECT_EQ(std::vector<PlotPoint>(points.begin(), points.end()), expected);
}

TEST_F(ReceiverLink, MarksAReportThatBrokeOff) {
    board().emit("\n\rReceived packet: 20 bytes: short");
    bench.run(400ms);
    receive("whole");
    ASSERT_EQ(packets().Packets.rowCount(), 2U);
    EXPECT_EQ(cell(1, ""), "?");
    EXPECT_EQ(cell(0, "Text"), "whole");
    EXPECT_NE(packets().PacketFigures.text().find("1 broken off"), std::string::npos);
}

TEST_F(ReceiverLink, SavesTheTableOldestFirst) {
    receive("PKT 1");
    receive("a,\"b\"");
    std::filesystem::path file = bench.platform.programFolder / "packets.csv";
    bench.dialogs.files.emplace_back(file.string());
    packets().SavePackets.click();
    std::string content = readFile(file);
    EXPECT_TRUE(content.starts_with("Number,Time,Length,Offset (kHz),Text,Hex\r\n1,0:00:00.")) << content;
    EXPECT_NE(content.find(",5,,PKT 1,50 4B 54 20 31\r\n"), std::string::npos) << content;
    EXPECT_TRUE(content.ends_with(",5,,\"a,\"\"b\"\"\",61 2C 22 62 22\r\n")) << content;
}

TEST_F(ReceiverLink, CopiesThePickedPacketOrAll) {
    receive("one");
    receive("two");
    packets().CopyPackets.click();
    std::string all = bench.surroundings.clipboard;
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 2);
    packets().Packets.pickRow(1);
    packets().CopyPackets.click();
    EXPECT_TRUE(bench.surroundings.clipboard.ends_with("\t3\t\tone\t6F 6E 65\r\n"))
        << bench.surroundings.clipboard;
}

TEST_F(ReceiverLink, ClearsTheTableAndBeginsTheFiguresAnew) {
    receive("one");
    packets().ClearPackets.click();
    EXPECT_EQ(packets().Packets.rowCount(), 0U);
    EXPECT_TRUE(packets().PacketLengths.points().empty());
    EXPECT_TRUE(packets().PacketFigures.text().starts_with("0 received"));
    // The told monitor and counter are no part of it.
    EXPECT_EQ(window().PCnt.text(), "1");
    EXPECT_NE(window().Monitor.text(), "");
}

TEST_F(ReceiverLink, ShowsTheOffsetThatAStatusReadGave) {
    receive("before");
    EXPECT_EQ(cell(0, "Offset kHz"), "");
    dynamic_cast<TextField&>(bench.at("AmberV1", "Foffset")).setText("-12.5");
    receive("after");
    EXPECT_EQ(cell(0, "Offset kHz"), "-12.5");
}

/// As many packets as the line carries: the next is there as soon as the board is armed again.
class PacketStream : public ReceiverLink {
  protected:
    /// @return how many the board reported
    int stream(std::chrono::milliseconds time) {
        int reported = 0;
        bool stopped = false;
        board().lineReceived = [&, before = board().lineReceived](const std::string& line) {
            before(line);
            if (line.starts_with("S2CE87") && !stopped) {
                ++reported;
                bench.after(30ms, [this, number = reported] {
                    std::string payload = "PKT " + std::to_string(100'000 + number);
                    board().emit("\n\rReceived packet: 10 bytes: " + payload + "\n\rOK\n\r>");
                });
            }
        };
        // The first arming came before.
        board().lineReceived("S2CE87");
        bench.run(time);
        stopped = true;
        bench.run(2s);
        return reported;
    }
};

TEST_F(PacketStream, LosesNothingAndStaysBounded) {
    int reported = stream(10min);
    EXPECT_GT(reported, 2500);
    EXPECT_EQ(window().PCnt.text(), std::to_string(reported));
    EXPECT_EQ(cell(0, "Text"), "PKT " + std::to_string(100'000 + reported));
    EXPECT_EQ(packets().Packets.rowCount(),
              std::min<std::size_t>(static_cast<std::size_t>(reported), ReceivedPackets::capacity));
    EXPECT_EQ(packets().PacketLengths.points().size(), PacketLog::window);
    EXPECT_NE(packets().PacketFigures.text().find(" 0 lost"), std::string::npos);
    std::string monitor = window().Monitor.text();
    for (int number : {1, reported / 2, reported}) {
        EXPECT_NE(monitor.find("PKT " + std::to_string(100'000 + number)), std::string::npos) << number;
    }
}

} // namespace

} // namespace zor::testing
