// SPDX-License-Identifier: MIT
#include "link/usb_boards.h"

#include <algorithm>
#include <chrono>

namespace zor {

namespace {

constexpr std::uint32_t devicesExamined = 15;
constexpr std::string_view boardName = "LoadBoard";
// Lines 0, 2, 3 and 4 of the converter are outputs while the break is on.
constexpr std::uint8_t breakOutputs = 0x1D;
constexpr std::uint8_t bitBang = 1;
constexpr std::uint8_t serialMode = 0;
constexpr std::chrono::milliseconds breakLength(100);

} // namespace

void UsbBoards::GetUSBLocationsByDriver() {
    count = 0;
    std::uint32_t devices = 0;
    if (driver.FT_CreateDeviceInfoList(devices) != ftOk) {
        return;
    }
    devices = std::min(devices, devicesExamined);
    for (std::uint32_t index = 0; index < devices; ++index) {
        FtDeviceDetail detail;
        if (driver.FT_GetDeviceInfoDetail(index, detail) == ftOk &&
            detail.description.compare(0, boardName.size(), boardName) == 0) {
            UsbLocations[static_cast<std::size_t>(count)] = static_cast<std::int32_t>(detail.location);
            ++count;
        }
    }
}

std::int32_t UsbBoards::GetThisUSBLocationByDriver() {
    std::int32_t held = 0;
    for (std::int32_t place = 0; place < count; ++place) {
        std::int32_t location = UsbLocations[static_cast<std::size_t>(place)];
        FtHandle handle = 0;
        if (driver.FT_OpenEx(static_cast<std::uint32_t>(location), ftOpenByLocation, handle) == ftOk) {
            driver.FT_Close(handle);
        } else {
            held = location;
        }
    }
    return held;
}

std::int16_t UsbBoards::IssueBreakByDriver(std::int32_t location) {
    FtHandle handle = 0;
    FtStatus status = driver.FT_OpenEx(static_cast<std::uint32_t>(location), ftOpenByLocation, handle);
    if (status != ftOk) {
        return static_cast<std::int16_t>(status);
    }
    try {
        status = holdLineLow(handle);
    } catch (const ActionDropped&) {
        driver.FT_Close(handle);
        throw;
    }
    // A device left open would keep the serial port from opening.
    FtStatus closing = driver.FT_Close(handle);
    return static_cast<std::int16_t>(status != ftOk ? status : closing);
}

FtStatus UsbBoards::holdLineLow(FtHandle handle) {
    FtStatus status = driver.FT_SetBitMode(handle, breakOutputs, bitBang);
    if (status != ftOk) {
        return status;
    }
    // 30 hexadecimal: the transmit line, bit 0, is low.
    status = driver.FT_Write(handle, "0");
    if (status != ftOk) {
        return status;
    }
    bool over = false;
    Timer timer(loop, [&over] { over = true; });
    timer.start(breakLength);
    loop.runUntil([&over] { return over; });
    timer.stop();
    status = driver.FT_SetBitMode(handle, 0, bitBang);
    if (status != ftOk) {
        return status;
    }
    return driver.FT_SetBitMode(handle, 0, serialMode);
}

} // namespace zor
