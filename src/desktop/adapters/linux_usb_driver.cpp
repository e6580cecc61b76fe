// SPDX-License-Identifier: MIT
#include "desktop/adapters/linux_usb_driver.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

namespace zor {

namespace {

// The driver's own status numbers.
constexpr FtStatus invalidHandle = 1;
constexpr FtStatus deviceNotFound = 2;
constexpr FtStatus deviceNotOpened = 3;
constexpr FtStatus invalidParameter = 6;

constexpr std::size_t descriptionLimit = 63;
/// Line 0 of the converter is its transmit line.
constexpr unsigned transmitLine = 0x01;

} // namespace

LinuxUsbDriver::~LinuxUsbDriver() {
    while (!opened.empty()) {
        FT_Close(opened.begin()->first);
    }
}

FtStatus LinuxUsbDriver::FT_CreateDeviceInfoList(std::uint32_t& count) {
    listed = devices.scan();
    std::erase_if(listed, [](const SerialDevice& device) { return device.location == 0; });
    count = static_cast<std::uint32_t>(listed.size());
    return ftOk;
}

FtStatus LinuxUsbDriver::FT_GetDeviceInfoDetail(std::uint32_t index, FtDeviceDetail& detail) {
    if (index >= listed.size()) {
        return deviceNotFound;
    }
    detail.location = listed[index].location;
    detail.description = listed[index].description.substr(0, descriptionLimit);
    return ftOk;
}

FtStatus LinuxUsbDriver::FT_OpenEx(std::uint32_t location, std::uint32_t flag, FtHandle& handle) {
    if (flag != ftOpenByLocation) {
        return invalidParameter;
    }
    auto matching = devices.scan();
    std::erase_if(matching, [location](const SerialDevice& device) {
        return device.location == 0 || device.location != location;
    });
    if (matching.empty()) {
        return deviceNotFound;
    }
    // A converter with several ports is one device: any of them held holds it.
    if (std::any_of(matching.begin(), matching.end(),
                    [this](const SerialDevice& device) { return devices.holds(device.path); })) {
        return deviceNotOpened;
    }
    int file = ::open(matching.front().path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) {
        return deviceNotOpened;
    }
    if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
        ::close(file);
        return deviceNotOpened;
    }
    handle = ++lastHandle;
    opened.emplace(handle, Opened{file, 0});
    return ftOk;
}

FtStatus LinuxUsbDriver::FT_SetBitMode(FtHandle handle, std::uint8_t mask, std::uint8_t mode) {
    auto device = opened.find(handle);
    if (device == opened.end()) {
        return invalidHandle;
    }
    device->second.outputs = mode == 0 ? std::uint8_t{0} : mask;
    if ((device->second.outputs & transmitLine) == 0) {
        // A released line goes high again. What has no line (a pseudo-terminal) refuses, which is no matter.
        ::ioctl(device->second.file, TIOCCBRK);
    }
    return ftOk;
}

FtStatus LinuxUsbDriver::FT_Write(FtHandle handle, std::string_view bytes) {
    auto device = opened.find(handle);
    if (device == opened.end()) {
        return invalidHandle;
    }
    if (!bytes.empty() && (device->second.outputs & transmitLine) != 0) {
        bool high = (static_cast<unsigned char>(bytes.back()) & transmitLine) != 0;
        ::ioctl(device->second.file, high ? TIOCCBRK : TIOCSBRK);
    }
    return ftOk;
}

FtStatus LinuxUsbDriver::FT_Close(FtHandle handle) {
    auto device = opened.find(handle);
    if (device == opened.end()) {
        return invalidHandle;
    }
    ::ioctl(device->second.file, TIOCCBRK);
    ::close(device->second.file);
    opened.erase(device);
    return ftOk;
}

} // namespace zor
