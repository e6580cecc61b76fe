// SPDX-License-Identifier: MIT
// What the product asks of a port as it opens it.
#include "link/connect.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using namespace std::chrono_literals;
using zor::testing::VirtualBench;
using zor::testing::VirtualSeat;

constexpr const char* lineFormat = "19200,N,8,1";

/// A generation 2 board on port 1, whose converter keeps what comes while nobody listens.
struct Listening : VirtualBench {
    Listening() {
        ports.place(1, sim::BoardKind::LoadBoard2);
        seat().keepsInputWhileClosed = true;
    }

    VirtualSeat& seat() { return ports.seat(1); }
    const LineSettings& lastOpening() { return seat().openings().back(); }
    void connectToBoard() {
        startAndSearch();
        run(1s);
    }
    void select(int entry) { ASSERT_TRUE(at("main", "CB_Mode").choosePosition(entry)); }
    void send(const char* line) {
        loop.perform([&] { channel().Send_To_LoadBoard(line); });
    }
};

void expectWorking(Listening& bench) {
    EXPECT_EQ(bench.lastOpening().format, lineFormat);
    EXPECT_EQ(bench.lastOpening().inputBuffer, 4096);
    EXPECT_FALSE(bench.lastOpening().clearInput);
    EXPECT_TRUE(bench.seat().dtr());
    EXPECT_TRUE(bench.seat().rts());
}

} // namespace

TEST(LineSettings, OfTheSearchAreTheDriversOwn) {
    Listening bench;
    bench.start();
    bench.run(150ms);
    ASSERT_EQ(bench.seat().openings().size(), 1u);
    EXPECT_EQ(bench.lastOpening().format, lineFormat);
    EXPECT_EQ(bench.lastOpening().inputBuffer, std::nullopt);
    EXPECT_FALSE(bench.lastOpening().clearInput);
    EXPECT_EQ(bench.lastOpening().dtr, std::nullopt);
    EXPECT_EQ(bench.lastOpening().rts, std::nullopt);
}

TEST(LineSettings, OfTheChosenBoardHaveBothModemLinesOnAndALargeBuffer) {
    Listening bench;
    bench.connectToBoard();
    ASSERT_EQ(bench.seat().openings().size(), 2u);
    expectWorking(bench);
}

TEST(LineSettings, StayInForceWhenATimeOutOpensThePortAgain) {
    Listening bench;
    bench.connectToBoard();
    bench.seat().board().setMute(true);
    bench.send("i\r");
    ASSERT_EQ(bench.seat().openings().size(), 3u);
    expectWorking(bench);
}

TEST(LineSettings, StayInForceWhenALineErrorOpensThePortAgain) {
    Listening bench;
    bench.connectToBoard();
    bench.seat().fault(SerialPort::frameError);
    ASSERT_EQ(bench.seat().openings().size(), 3u);
    expectWorking(bench);
}

TEST(LineSettings, OnTheWayBackFromDataModeClearTheInput) {
    Listening bench;
    bench.connectToBoard();
    bench.select(2);
    EXPECT_FALSE(bench.seat().dtr());
    bench.seat().board().emit("what the user's own equipment said");
    bench.run(1s);
    bench.select(0);
    bench.run(1s);
    EXPECT_EQ(bench.lastOpening().format, lineFormat);
    EXPECT_TRUE(bench.lastOpening().clearInput);
    EXPECT_TRUE(bench.seat().dtr());
    EXPECT_TRUE(bench.seat().rts());
    EXPECT_EQ(bench.shared().link.Last100.find("equipment"), std::string::npos);
    EXPECT_EQ(bench.at("main", "CommStatus").text(), "Comm. OK");
    // These are the settings in force from now on.
    std::size_t openings = bench.seat().openings().size();
    bench.seat().board().setMute(true);
    bench.send("i\r");
    ASSERT_EQ(bench.seat().openings().size(), openings + 1);
    EXPECT_TRUE(bench.lastOpening().clearInput);
    EXPECT_TRUE(bench.seat().dtr());
    EXPECT_TRUE(bench.seat().rts());
}

} // namespace zor
