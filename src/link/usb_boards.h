// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event_loop.h"
#include "platform/usb_driver.h"

#include <array>
#include <cstdint>

namespace zor {

/// The USB converters that are LoadBoards, as the driver sees them: which one this program holds, and the
/// break that pulls it out of Data mode.
class UsbBoards {
  public:
    UsbBoards(UsbDriver& usbDriver, EventLoop& eventLoop)
        : driver(usbDriver)
        , loop(eventLoop) {}

    /// Refills the table with the locations of the devices named "LoadBoard". Only before the serial port is
    /// opened: an open device is not described.
    void GetUSBLocationsByDriver();

    /// The location of the board that this program's serial port holds: the device that refuses to be opened.
    /// 0 if none refused; of several the last.
    [[nodiscard]] std::int32_t GetThisUSBLocationByDriver();

    /// Holds the board's line low for 0.1 s while its serial port is closed. @return the driver's status, 0
    /// for success
    [[nodiscard]] std::int16_t IssueBreakByDriver(std::int32_t location);

    [[nodiscard]] std::int32_t UsbLocationCount() const { return count; }

  private:
    /// Steps between opening and closing. @return the first status that is not 0
    FtStatus holdLineLow(FtHandle handle);

    UsbDriver& driver;
    EventLoop& loop;
    std::array<std::int32_t, 17> UsbLocations{};
    std::int32_t count = 0;
};

} // namespace zor
