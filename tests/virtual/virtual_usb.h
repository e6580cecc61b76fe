// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event_loop.h"
#include "platform/usb_driver.h"
#include "virtual/virtual_ports.h"

#include <map>
#include <optional>
#include <vector>

namespace zor::testing {

/// The USB driver of the virtual machine. A port on which a generation 2 board sits is a converter named
/// "LoadBoard" at a location equal to the port's number, unless it was described otherwise.
class VirtualUsb : public UsbDriver {
  public:
    static constexpr FtStatus deviceNotFound = 2;
    static constexpr FtStatus deviceNotOpened = 3;

    VirtualUsb(EventLoop& eventLoop, VirtualPorts& machinePorts)
        : loop(eventLoop)
        , ports(machinePorts) {}

    /// The port is a converter with this description and location.
    void describe(int port, std::string description, std::uint32_t location);
    /// That call on that port gives that status; 0 ends it.
    /// @return false if the driver has no such call
    bool fail(int port, const std::string& call, FtStatus status);

    FtStatus FT_CreateDeviceInfoList(std::uint32_t& count) override;
    FtStatus FT_GetDeviceInfoDetail(std::uint32_t index, FtDeviceDetail& detail) override;
    FtStatus FT_OpenEx(std::uint32_t location, std::uint32_t flag, FtHandle& handle) override;
    FtStatus FT_SetBitMode(FtHandle handle, std::uint8_t mask, std::uint8_t mode) override;
    FtStatus FT_Write(FtHandle handle, std::string_view bytes) override;
    FtStatus FT_Close(FtHandle handle) override;

    /// Devices that are open by the driver.
    [[nodiscard]] std::size_t openDevices() const { return pins.size(); }

  private:
    /// What an opened device does with its lines.
    struct Pins {
        std::uint8_t outputs = 0;
        std::uint8_t mode = 0;
        std::optional<EventLoop::Duration> lowSince;
    };

    [[nodiscard]] std::optional<FtDeviceDetail> detailOf(int port) const;
    [[nodiscard]] FtStatus failure(int port, const std::string& call) const;
    void endLow(int port, Pins& lines);

    EventLoop& loop;
    VirtualPorts& ports;
    std::map<int, FtDeviceDetail> described;
    std::map<std::pair<int, std::string>, FtStatus> failures;
    /// The ports that the last look at the devices found.
    std::vector<int> listed;
    /// By port number, which is the handle too.
    std::map<int, Pins> pins;
};

} // namespace zor::testing
