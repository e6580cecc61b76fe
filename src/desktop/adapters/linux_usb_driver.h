// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/adapters/serial_devices.h"
#include "platform/usb_driver.h"

#include <map>

namespace zor {

/// The USB converter driver's operations by means of the kernel's own: converters are found by what the
/// kernel tells of its serial devices, and driving the transmit line low is a serial break.
class LinuxUsbDriver : public UsbDriver {
  public:
    explicit LinuxUsbDriver(const SerialDevices& serialDevices)
        : devices(serialDevices) {}
    ~LinuxUsbDriver() override;

    FtStatus FT_CreateDeviceInfoList(std::uint32_t& count) override;
    FtStatus FT_GetDeviceInfoDetail(std::uint32_t index, FtDeviceDetail& detail) override;
    FtStatus FT_OpenEx(std::uint32_t location, std::uint32_t flag, FtHandle& handle) override;
    FtStatus FT_SetBitMode(FtHandle handle, std::uint8_t mask, std::uint8_t mode) override;
    FtStatus FT_Write(FtHandle handle, std::string_view bytes) override;
    FtStatus FT_Close(FtHandle handle) override;

  private:
    struct Opened {
        int file;
        /// Lines that are driven by FT_Write; none in serial mode.
        std::uint8_t outputs;
    };

    const SerialDevices& devices;
    std::vector<SerialDevice> listed;
    std::map<FtHandle, Opened> opened;
    FtHandle lastHandle = 0;
};

} // namespace zor
