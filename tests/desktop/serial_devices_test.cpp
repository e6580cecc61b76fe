// SPDX-License-Identifier: MIT
#include "desktop/adapters/linux_usb_driver.h"
#include "desktop/adapters/serial_devices.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <fstream>

namespace zor {

namespace fs = std::filesystem;

namespace {

/// A machine made of folders: device files and what the kernel tells of them.
class Machine : public testing::Test {
  protected:
    void put(const fs::path& file, const std::string& line) {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << line << '\n';
    }

    void addBuiltIn(const std::string& name, const std::string& type) {
        put(root / "dev" / name, "");
        put(root / "class" / name / "type", type);
        fs::create_directories(root / "class" / name / "device");
    }

    /// @param port  port path, as "1-2.3" on bus 1
    void addUsb(const std::string& name, const std::string& bus, const std::string& devpath,
                const std::string& product) {
        fs::path device = root / "devices" / (bus + "-" + devpath);
        put(device / "busnum", bus);
        put(device / "devpath", devpath);
        put(device / "product", product);
        fs::path interface = device / "1.0" / name;
        fs::create_directories(interface);
        put(root / "dev" / name, "");
        fs::create_directories(root / "class" / name);
        fs::create_symlink(interface, root / "class" / name / "device");
    }

    [[nodiscard]] SerialDevices devices() const { return SerialDevices(root / "dev", root / "class"); }

    QTemporaryDir folder;
    fs::path root = folder.path().toStdString();
};

std::vector<std::string> names(const SerialDevices& devices) {
    std::vector<std::string> found;
    for (const auto& device : devices.scan()) {
        found.push_back(fs::path(device.path).filename().string());
    }
    return found;
}

} // namespace

TEST_F(Machine, UsbAdaptersComeFirstAndInTheOrderOfTheirNumbers) {
    addBuiltIn("ttyS0", "4");
    addUsb("ttyACM0", "1", "4", "Modem");
    addUsb("ttyUSB10", "1", "3", "Converter");
    addUsb("ttyUSB9", "1", "2", "Converter");
    EXPECT_EQ(names(devices()), (std::vector<std::string>{"ttyUSB9", "ttyUSB10", "ttyACM0", "ttyS0"}));
}

TEST_F(Machine, APortWithoutAChipBehindItIsNotNumbered) {
    addBuiltIn("ttyS0", "0");
    addBuiltIn("ttyS1", "4");
    EXPECT_EQ(names(devices()), std::vector<std::string>{"ttyS1"});
}

TEST_F(Machine, ADeviceAddedByHandIsTheFirstPort) {
    addUsb("ttyUSB0", "1", "2", "Converter");
    SerialDevices all = devices();
    all.addDevice("/dev/pts/7", "LoadBoard");
    EXPECT_EQ(all.path(1), "/dev/pts/7");
    EXPECT_EQ(all.path(2), (root / "dev/ttyUSB0").string());
    EXPECT_EQ(all.path(3), "");
    EXPECT_EQ(all.path(0), "");
}

TEST_F(Machine, APreferredDeviceIsTheFirstPortUnderWhateverName) {
    addUsb("ttyUSB0", "1", "2", "Converter");
    addUsb("ttyUSB1", "1", "3", "Converter");
    fs::create_symlink(root / "dev/ttyUSB1", root / "dev/by-id");
    SerialDevices all = devices();
    all.putFirst(root / "dev/by-id");
    EXPECT_EQ(names(all), (std::vector<std::string>{"ttyUSB1", "ttyUSB0"}));
    EXPECT_EQ(all.path(1), (root / "dev/ttyUSB1").string());
    all.putFirst("/dev/somewhere");
    EXPECT_EQ(names(all), (std::vector<std::string>{"somewhere", "ttyUSB0", "ttyUSB1"}));
}

TEST_F(Machine, WhatWasAddedMayMoveBeforeItIsNumberedAgain) {
    SerialDevices all = devices();
    all.addDevice("/dev/pts/7", "LoadBoard");
    all.beforeNumbering = [&] { all.moveDevice("/dev/pts/7", "/dev/pts/8"); };
    EXPECT_EQ(all.path(1), "/dev/pts/7");
    all.renumber();
    EXPECT_EQ(all.path(1), "/dev/pts/8");
}

TEST_F(Machine, ANumberMeansTheSameDeviceUntilTheNextNumbering) {
    addUsb("ttyUSB0", "1", "2", "Converter");
    addUsb("ttyUSB1", "1", "3", "Converter");
    SerialDevices all = devices();
    all.renumber();
    EXPECT_EQ(all.path(2), (root / "dev/ttyUSB1").string());
    fs::remove_all(root / "class/ttyUSB0");
    EXPECT_EQ(all.path(2), (root / "dev/ttyUSB1").string());
    all.renumber();
    EXPECT_EQ(all.path(1), (root / "dev/ttyUSB1").string());
    EXPECT_EQ(all.path(2), "");
}

TEST_F(Machine, AUsbDeviceIsDescribedAndPlaced) {
    addUsb("ttyUSB0", "3", "2.1.4", "LoadBoard 2.0");
    auto found = devices().scan();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].description, "LoadBoard 2.0");
    EXPECT_EQ(found[0].location, 0x03000214U);
}

TEST_F(Machine, TheDriverListsOnlyUsbDevicesAndRefusesTheHeldOne) {
    addBuiltIn("ttyS0", "4");
    addUsb("ttyUSB0", "1", "2", "LoadBoard");
    addUsb("ttyUSB1", "1", "3", std::string(80, 'x'));
    SerialDevices all = devices();
    all.hold((root / "dev/ttyUSB0").string());
    LinuxUsbDriver driver(all);

    std::uint32_t count = 0;
    EXPECT_EQ(driver.FT_CreateDeviceInfoList(count), ftOk);
    EXPECT_EQ(count, 2U);
    FtDeviceDetail detail;
    EXPECT_EQ(driver.FT_GetDeviceInfoDetail(0, detail), ftOk);
    EXPECT_EQ(detail.description, "LoadBoard");
    EXPECT_EQ(detail.location, 0x01000002U);
    EXPECT_EQ(driver.FT_GetDeviceInfoDetail(1, detail), ftOk);
    EXPECT_EQ(detail.description, std::string(63, 'x'));
    EXPECT_NE(driver.FT_GetDeviceInfoDetail(2, detail), ftOk);

    FtHandle handle = 0;
    EXPECT_NE(driver.FT_OpenEx(0x01000002U, ftOpenByLocation, handle), ftOk);
    EXPECT_EQ(driver.FT_OpenEx(0x01000003U, ftOpenByLocation, handle), ftOk);
    EXPECT_EQ(driver.FT_SetBitMode(handle, 0x1D, 1), ftOk);
    EXPECT_EQ(driver.FT_Write(handle, "0"), ftOk);
    EXPECT_EQ(driver.FT_SetBitMode(handle, 0, 1), ftOk);
    EXPECT_EQ(driver.FT_SetBitMode(handle, 0, 0), ftOk);
    EXPECT_EQ(driver.FT_Close(handle), ftOk);
    EXPECT_NE(driver.FT_Close(handle), ftOk);
    EXPECT_NE(driver.FT_OpenEx(0x09000001U, ftOpenByLocation, handle), ftOk);

    all.release((root / "dev/ttyUSB0").string());
    EXPECT_EQ(driver.FT_OpenEx(0x01000002U, ftOpenByLocation, handle), ftOk);
}

} // namespace zor
