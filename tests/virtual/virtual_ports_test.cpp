// SPDX-License-Identifier: MIT
#include "virtual/virtual_machine.h"

#include <gtest/gtest.h>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

struct Line : VirtualMachine {
    std::unique_ptr<SerialPort> port = ports.create();
    std::string heard;
    std::chrono::microseconds lastHeard{0};

    void open(int number, const LineSettings& settings = {}) {
        port->received = [this](char c) {
            heard += c;
            lastHeard = loop.now();
            acted = loop.acting();
            // One turn of the loop hands on one read.
            if (reads.empty() || turn != loop.eventCount()) {
                reads.emplace_back();
            }
            turn = loop.eventCount();
            reads.back() += c;
        };
        port->open(number, settings);
    }
    bool acted = false;
    std::vector<std::string> reads;
    std::uint64_t turn = 0;

    /// What a board's answer to the line comes in.
    std::vector<std::string> readsOf(const std::string& line) {
        reads.clear();
        port->write(line);
        loop.runFor(std::chrono::seconds(1));
        return reads;
    }
};

int errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const ToolError& error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST(VirtualPort, PacesBothWaysAtTenBitsACharacter) {
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard1);
    line.open(1);
    line.port->write("Z3\r");
    line.loop.runFor(1562us);
    EXPECT_EQ(line.ports.sent.size(), 0u);
    line.loop.runFor(1us);
    ASSERT_EQ(line.ports.sent.size(), 1u);
    EXPECT_EQ(line.ports.sent[0].text, "Z3");
    line.loop.runFor(1s);
    EXPECT_EQ(line.heard, "\n\rOK\n\r>");
    EXPECT_NEAR(static_cast<double>(line.lastHeard.count()), 5208.3, 2);
    EXPECT_TRUE(line.acted);
}

TEST(VirtualPort, IsPacedBySpeedOfItsSettings) {
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard1);
    line.open(1, {.format = "38400,N,8,1"});
    line.port->write("Z3\r");
    line.loop.runFor(1s);
    EXPECT_NEAR(static_cast<double>(line.lastHeard.count()), 2604.2, 2);
}

TEST(VirtualPort, IsPacedByParityAndStopBitsToo) {
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard1);
    line.open(1, {.format = "19200,E,8,2"});
    line.port->write("Z3\r");
    line.loop.runFor(1s);
    EXPECT_NEAR(static_cast<double>(line.lastHeard.count()), 5208.3 * 1.2, 2);
}

TEST(VirtualPort, RefusesSettingsThatNoLineHas) {
    for (const char* format : {"", "19200", "19200,N,8", "fast,N,8,1", "0,N,8,1", "19200,X,8,1",
                               "19200,N,9,1", "19200,N,8,3", "19200,N,8,1,", "19200;N;8;1"}) {
        Line line;
        line.ports.place(1, sim::BoardKind::LoadBoard1);
        EXPECT_EQ(errorOf([&] { line.open(1, {.format = format}); }), 57) << format;
        EXPECT_FALSE(line.port->isOpen());
        EXPECT_FALSE(line.ports.seat(1).heldByPort());
    }
}

TEST(VirtualPort, SetsTheModemLinesAsAskedAndDropsThemAsItCloses) {
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard1);
    VirtualSeat& seat = line.ports.seat(1);
    line.open(1);
    EXPECT_FALSE(seat.dtr());
    EXPECT_FALSE(seat.rts());
    line.port->close();
    line.open(1, {.dtr = true});
    EXPECT_TRUE(seat.dtr());
    EXPECT_FALSE(seat.rts());
    line.port->close();
    EXPECT_FALSE(seat.dtr());
    line.open(1, {.dtr = false, .rts = true});
    EXPECT_FALSE(seat.dtr());
    EXPECT_TRUE(seat.rts());
    seat.unplug();
    EXPECT_FALSE(seat.rts());
    ASSERT_EQ(seat.openings().size(), 3u);
    EXPECT_EQ(seat.openings()[1].dtr, true);
    EXPECT_EQ(seat.openings()[1].rts, std::nullopt);
}

TEST(VirtualPort, HandsOnOneCharacterOrTwoOrAllThatWaitInOneRead) {
    using Reads = std::vector<std::string>;
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard1);
    line.open(1);
    EXPECT_EQ(line.readsOf("Z3\r"), (Reads{"\n", "\r", "O", "K", "\n", "\r", ">"}));
    line.ports.delivery = 2;
    EXPECT_EQ(line.readsOf("Z3\r"), (Reads{"\n\r", "OK", "\n\r", ">"}));
    line.ports.delivery = allWaiting;
    EXPECT_EQ(line.readsOf("Z3\r"), (Reads{"\n\rOK\n\r>"}));
    // The read ends with the last character that comes without a pause.
    EXPECT_NEAR(static_cast<double>((line.loop.now() - line.lastHeard).count()), 1e6 - 5208.3, 2);
    // As large a driver's buffer as asked for, and no larger.
    line.port->close();
    line.open(1, {.inputBuffer = 3});
    EXPECT_EQ(line.readsOf("Z3\r"), (Reads{"\n\rO", "K\n\r", ">"}));
}

TEST(VirtualPort, EndsAReadAtAPause) {
    Line line;
    sim::Board& board = line.ports.place(1, sim::BoardKind::Silent);
    line.ports.delivery = allWaiting;
    line.open(1);
    board.emit("ab");
    line.loop.runFor(5ms);
    board.emit("cd");
    line.loop.runFor(1s);
    EXPECT_EQ(line.reads, (std::vector<std::string>{"ab", "cd"}));
}

TEST(VirtualPort, HandsOnTheRestOfAReadInsideAWaitForIt) {
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard1);
    line.ports.delivery = allWaiting;
    line.open(1);
    EventLoop::Duration waited{};
    line.port->received = [&](char c) {
        line.heard += c;
        if (c == 'O') {
            EventLoop::Duration began = line.loop.now();
            line.loop.runUntil([&] { return line.heard.ends_with('>'); });
            waited = line.loop.now() - began;
        }
    };
    line.port->write("Z3\r");
    line.loop.runFor(1s);
    EXPECT_EQ(line.heard, "\n\rOK\n\r>");
    EXPECT_EQ(waited.count(), 0);
}

TEST(VirtualPort, ThatIsClosedInAReadLosesTheRestOfIt) {
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard1);
    line.ports.delivery = allWaiting;
    line.open(1);
    line.port->received = [&](char c) {
        line.heard += c;
        if (c == 'O') {
            line.port->close();
        }
    };
    line.port->write("Z3\r");
    line.loop.runFor(1s);
    EXPECT_EQ(line.heard, "\n\rO");
    line.open(1);
    line.loop.runFor(1s);
    EXPECT_EQ(line.heard, "\n\rO");
}

TEST(VirtualPort, ThatKeepsItsInputHandsItOnUnlessTheNextOpeningClearsIt) {
    for (bool clear : {false, true}) {
        Line line;
        line.ports.place(1, sim::BoardKind::Silent).emit("late");
        line.ports.seat(1).keepsInputWhileClosed = true;
        line.loop.runFor(1s);
        line.open(1, {.clearInput = clear});
        EXPECT_EQ(line.heard, "");
        line.loop.runFor(1s);
        EXPECT_EQ(line.heard, clear ? "" : "late");
    }
}

TEST(VirtualPort, FailsToOpenAsToldByItsSeat) {
    Line line;
    line.ports.place(2, sim::BoardKind::LoadBoard1);
    line.ports.seat(3).busy = true;
    line.ports.seat(4).openError = 57;
    line.ports.seat(5).denied = true;
    EXPECT_EQ(errorOf([&] { line.open(1); }), 8002);
    EXPECT_EQ(errorOf([&] { line.open(3); }), 8005);
    EXPECT_EQ(errorOf([&] { line.open(4); }), 57);
    EXPECT_THROW(line.open(5), PortAccessError);
    EXPECT_EQ(errorOf([&] { line.port->write("x"); }), 8018);
    EXPECT_EQ(errorOf([&] { line.port->close(); }), 0);
    line.open(2);
    EXPECT_EQ(errorOf([&] { line.open(2); }), 8005);
    auto second = line.ports.create();
    EXPECT_EQ(errorOf([&] { second->open(2, {}); }), 8005);
    line.port->close();
    EXPECT_EQ(errorOf([&] { second->open(2, {}); }), 0);
}

TEST(VirtualPort, OfADeviceThatWentSwallowsAndFailsToClose) {
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard1);
    line.open(1);
    line.ports.seat(1).unplug();
    EXPECT_TRUE(line.port->isOpen());
    line.port->write("Z3\r");
    line.loop.runFor(1s);
    EXPECT_EQ(line.ports.sent.size(), 0u);
    EXPECT_EQ(errorOf([&] { line.port->close(); }), 8002);
    EXPECT_FALSE(line.port->isOpen());
    EXPECT_EQ(errorOf([&] { line.open(1); }), 8002);
    line.ports.seat(1).plug();
    EXPECT_EQ(errorOf([&] { line.open(1); }), 0);
}

TEST(VirtualPort, ClosingSendsWhatWasWrittenAndLosesWhatComesLater) {
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard1);
    line.open(1);
    line.port->write("Z3\r");
    line.port->close();
    ASSERT_EQ(line.ports.sent.size(), 1u);
    line.loop.runFor(2ms);
    line.open(1);
    line.loop.runFor(1s);
    // Three characters came while the port was closed.
    EXPECT_EQ(line.heard, "K\n\r>");
}

TEST(VirtualUsb, RefusesADeviceThatAPortHoldsAndHoldsItFromThePort) {
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard2);
    FtHandle handle = 0;
    line.open(1);
    EXPECT_EQ(line.usb.FT_OpenEx(1, ftOpenByLocation, handle), VirtualUsb::deviceNotOpened);
    line.port->close();
    EXPECT_EQ(line.usb.FT_OpenEx(1, ftOpenByLocation, handle), ftOk);
    EXPECT_EQ(errorOf([&] { line.open(1); }), 8005);
    EXPECT_EQ(line.usb.FT_Close(handle), ftOk);
    EXPECT_EQ(errorOf([&] { line.open(1); }), 0);
}

TEST(VirtualUsb, DoesNotDescribeADeviceThatAPortHolds) {
    Line line;
    line.ports.place(1, sim::BoardKind::LoadBoard2);
    std::uint32_t count = 0;
    FtDeviceDetail detail;
    EXPECT_EQ(line.usb.FT_CreateDeviceInfoList(count), ftOk);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(line.usb.FT_GetDeviceInfoDetail(0, detail), ftOk);
    EXPECT_EQ(detail.description, "LoadBoard");
    EXPECT_EQ(detail.location, 1u);
    line.open(1);
    EXPECT_EQ(line.usb.FT_GetDeviceInfoDetail(0, detail), ftOk);
    EXPECT_EQ(detail.description, "");
}

TEST(ScriptedDialogs, AnswerFromTheListAndElseOkNoAndCancelled) {
    ScriptedDialogs dialogs;
    EXPECT_EQ(dialogs.show({.text = "a"}), Answer::Ok);
    EXPECT_EQ(dialogs.show({.text = "b", .buttons = BoxButtons::YesNo}), Answer::No);
    dialogs.answers.push_back(Answer::Yes);
    EXPECT_EQ(dialogs.show({.text = "c"}), Answer::Ok);
    EXPECT_EQ(dialogs.show({.text = "d", .buttons = BoxButtons::YesNo}), Answer::Yes);
    FileRequest request{.title = "Load", .startName = "*.tc", .defaultExtension = "tc"};
    EXPECT_EQ(dialogs.chooseFile(request).name, "*.tc");
    dialogs.files = {"/bench/a.rc", std::nullopt};
    FileChoice choice = dialogs.chooseFile(request);
    EXPECT_EQ(choice.name, "/bench/a.rc");
    EXPECT_TRUE(choice.extensionDiffers);
    EXPECT_EQ(dialogs.chooseFile(request).name, "*.tc");
    EXPECT_EQ(dialogs.boxes.size(), 4u);
    EXPECT_EQ(dialogs.fileDialogs.size(), 3u);
}

} // namespace zor::testing
