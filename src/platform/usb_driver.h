// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zor {

/// Result of a driver call; 0 is success.
using FtStatus = std::uint32_t;
using FtHandle = std::uintptr_t;

inline constexpr FtStatus ftOk = 0;
inline constexpr std::uint32_t ftOpenByLocation = 4;

struct FtDeviceDetail {
    std::uint32_t location = 0;
    /// At most 63 characters: the driver's buffer is 64.
    std::string description;
};

/// The USB converter driver under its own operations' names, so far as the product calls it. An adapter for a
/// system without that driver gives the same answers by its own means.
class UsbDriver {
  public:
    virtual ~UsbDriver() = default;

    /// Looks at the devices afresh and counts them.
    virtual FtStatus FT_CreateDeviceInfoList(std::uint32_t& count) = 0;
    virtual FtStatus FT_GetDeviceInfoDetail(std::uint32_t index, FtDeviceDetail& detail) = 0;
    /// Refuses a device that a serial port of this program holds.
    /// @param flag  ftOpenByLocation
    virtual FtStatus FT_OpenEx(std::uint32_t location, std::uint32_t flag, FtHandle& handle) = 0;
    /// @param mask  lines that are outputs
    /// @param mode  0 serial, 1 asynchronous bit-bang
    virtual FtStatus FT_SetBitMode(FtHandle handle, std::uint8_t mask, std::uint8_t mode) = 0;
    virtual FtStatus FT_Write(FtHandle handle, std::string_view bytes) = 0;
    virtual FtStatus FT_Close(FtHandle handle) = 0;
};

} // namespace zor
