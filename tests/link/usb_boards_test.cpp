// SPDX-License-Identifier: MIT
#include "link/usb_boards.h"

#include "virtual/virtual_machine.h"

#include <gtest/gtest.h>

#include <string>

namespace zor {

namespace {

using zor::testing::VirtualMachine;

/// A driver that keeps the calls as they come, in front of the machine's own.
class RecordingDriver : public UsbDriver {
  public:
    explicit RecordingDriver(UsbDriver& realDriver)
        : driver(realDriver) {}

    FtStatus FT_CreateDeviceInfoList(std::uint32_t& count) override {
        log += "list;";
        return driver.FT_CreateDeviceInfoList(count);
    }
    FtStatus FT_GetDeviceInfoDetail(std::uint32_t index, FtDeviceDetail& detail) override {
        log += "detail " + std::to_string(index) + ";";
        return driver.FT_GetDeviceInfoDetail(index, detail);
    }
    FtStatus FT_OpenEx(std::uint32_t location, std::uint32_t flag, FtHandle& handle) override {
        log += "open " + std::to_string(location) + " " + std::to_string(flag) + ";";
        return driver.FT_OpenEx(location, flag, handle);
    }
    FtStatus FT_SetBitMode(FtHandle handle, std::uint8_t mask, std::uint8_t mode) override {
        log += "mode " + std::to_string(mask) + " " + std::to_string(mode) + ";";
        return driver.FT_SetBitMode(handle, mask, mode);
    }
    FtStatus FT_Write(FtHandle handle, std::string_view bytes) override {
        log += "write " + std::string(bytes) + ";";
        return driver.FT_Write(handle, bytes);
    }
    FtStatus FT_Close(FtHandle handle) override {
        log += "close;";
        return driver.FT_Close(handle);
    }

    std::string log;

  private:
    UsbDriver& driver;
};

struct Converters : VirtualMachine {
    void place(int port, const char* description, std::uint32_t location) {
        ports.place(port, sim::BoardKind::LoadBoard2);
        usb.describe(port, description, location);
    }

    RecordingDriver driver{usb};
    UsbBoards boards{driver, loop};
};

} // namespace

TEST(UsbBoards, StoreTheConvertersWhoseDescriptionBeginsWithLoadBoard) {
    Converters machine;
    machine.place(1, "LoadBoard", 11);
    machine.place(2, "LoadBoard 2.3 A", 12);
    machine.place(3, "LoadBoar", 13);
    machine.place(4, "My LoadBoard", 14);
    machine.place(5, "loadboard", 15);
    machine.boards.GetUSBLocationsByDriver();
    EXPECT_EQ(machine.boards.UsbLocationCount(), 2);
    EXPECT_EQ(machine.driver.log, "list;detail 0;detail 1;detail 2;detail 3;detail 4;");
}

TEST(UsbBoards, OnlyTheFirstFifteenDevicesAreExamined) {
    Converters machine;
    for (int port = 1; port <= 20; ++port) {
        machine.place(port, "LoadBoard", static_cast<std::uint32_t>(100 + port));
    }
    machine.boards.GetUSBLocationsByDriver();
    EXPECT_EQ(machine.boards.UsbLocationCount(), 15);
    EXPECT_EQ(machine.driver.log.find("detail 15"), std::string::npos);
}

TEST(UsbBoards, ADeviceWithoutDetailsIsPassedOver) {
    Converters machine;
    machine.place(1, "LoadBoard", 11);
    machine.place(2, "LoadBoard", 12);
    machine.usb.fail(1, "FT_GetDeviceInfoDetail", 4);
    machine.boards.GetUSBLocationsByDriver();
    EXPECT_EQ(machine.boards.UsbLocationCount(), 1);
}

TEST(UsbBoards, TheTableIsFilledAfresh) {
    Converters machine;
    machine.place(1, "LoadBoard", 11);
    machine.boards.GetUSBLocationsByDriver();
    machine.boards.GetUSBLocationsByDriver();
    EXPECT_EQ(machine.boards.UsbLocationCount(), 1);
    machine.ports.seat(1).unplug();
    machine.boards.GetUSBLocationsByDriver();
    EXPECT_EQ(machine.boards.UsbLocationCount(), 0);
}

TEST(UsbBoards, TheDeviceThatRefusesIsTheOneThatThisProgramHolds) {
    Converters machine;
    machine.place(1, "LoadBoard", 11);
    machine.place(2, "LoadBoard", 12);
    machine.place(3, "LoadBoard", 13);
    machine.boards.GetUSBLocationsByDriver();
    EXPECT_EQ(machine.boards.GetThisUSBLocationByDriver(), 0);
    auto port = machine.ports.create();
    port->open(2, {});
    machine.driver.log.clear();
    EXPECT_EQ(machine.boards.GetThisUSBLocationByDriver(), 12);
    EXPECT_EQ(machine.driver.log, "open 11 4;close;open 12 4;open 13 4;close;");
    EXPECT_EQ(machine.usb.openDevices(), 0u);
}

TEST(UsbBoards, OfTwoThatRefuseTheLastWins) {
    Converters machine;
    machine.place(1, "LoadBoard", 11);
    machine.place(2, "LoadBoard", 12);
    machine.place(3, "LoadBoard", 13);
    machine.boards.GetUSBLocationsByDriver();
    auto first = machine.ports.create();
    auto second = machine.ports.create();
    first->open(1, {});
    second->open(2, {});
    EXPECT_EQ(machine.boards.GetThisUSBLocationByDriver(), 12);
}

TEST(UsbBoards, TheBreakHoldsTheLineLowForATenthOfASecond) {
    Converters machine;
    machine.place(1, "LoadBoard", 11);
    auto before = machine.loop.now();
    EXPECT_EQ(machine.boards.IssueBreakByDriver(11), 0);
    EXPECT_EQ(machine.driver.log, "open 11 4;mode 29 1;write 0;mode 0 1;mode 0 0;close;");
    EXPECT_EQ(machine.loop.now() - before, std::chrono::milliseconds(100));
    EXPECT_EQ(machine.usb.openDevices(), 0u);
}

TEST(UsbBoards, TheBreakPullsABoardOutOfDataMode) {
    Converters machine;
    machine.place(1, "LoadBoard", 11);
    sim::Board& board = machine.ports.seat(1).board();
    for (char c : std::string("X2\r")) {
        board.receive(c);
    }
    EXPECT_EQ(board.dataSelector(), sim::DataSelector::dataMode);
    EXPECT_EQ(machine.boards.IssueBreakByDriver(11), 0);
    EXPECT_EQ(board.dataSelector(), sim::DataSelector::internal);
}

TEST(UsbBoards, TheInterfaceRunsDuringTheBreak) {
    Converters machine;
    machine.place(1, "LoadBoard", 11);
    int ticks = 0;
    Timer timer(machine.loop, [&] { ++ticks; });
    timer.start(std::chrono::milliseconds(30));
    EXPECT_EQ(machine.boards.IssueBreakByDriver(11), 0);
    EXPECT_EQ(ticks, 3);
}

TEST(UsbBoards, EachStepOfTheBreakThatFailsGivesItsStatusAndClosesTheDevice) {
    struct Row {
        const char* call;
        FtStatus status;
        const char* calls;
    };
    // clang-format off
    constexpr Row rows[] = {
        {"FT_OpenEx",     3, "open 11 4;"},
        {"FT_SetBitMode", 4, "open 11 4;mode 29 1;close;"},
        {"FT_Write",      5, "open 11 4;mode 29 1;write 0;close;"},
        {"FT_Close",      6, "open 11 4;mode 29 1;write 0;mode 0 1;mode 0 0;close;"},
    };
    // clang-format on
    for (const Row& row : rows) {
        Converters machine;
        machine.place(1, "LoadBoard", 11);
        machine.usb.fail(1, row.call, row.status);
        EXPECT_EQ(machine.boards.IssueBreakByDriver(11), static_cast<std::int16_t>(row.status)) << row.call;
        EXPECT_EQ(machine.driver.log, row.calls);
        EXPECT_EQ(machine.usb.openDevices(), 0u) << row.call;
    }
}

TEST(UsbBoards, TheBreakOfAnUnknownLocationGivesTheDriversStatus) {
    Converters machine;
    EXPECT_EQ(machine.boards.IssueBreakByDriver(11), 2);
}

TEST(UsbBoards, ABreakInWhichTheProgramIsLeftClosesTheDevice) {
    Converters machine;
    machine.place(1, "LoadBoard", 11);
    machine.loop.startTimer(std::chrono::milliseconds(40), EventLoop::Repeat::Once,
                            [&] { machine.loop.leave(); });
    EXPECT_THROW((void)machine.boards.IssueBreakByDriver(11), ActionDropped);
    EXPECT_EQ(machine.usb.openDevices(), 0u);
}

} // namespace zor
