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
        };
        port->open(number, settings);
    }
    bool acted = false;
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
