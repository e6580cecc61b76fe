// SPDX-License-Identifier: MIT
#pragma once

#include "link/port_owner.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zor {

/// What is known of the link, under the names that the product's users know. Written by the channel, the
/// search and the data selector; read by everybody.
struct LinkVariables {
    /// The last characters received on the working port.
    std::string Last7;
    std::string Last15;
    std::string Last100;
    /// The prompts that end an exchange: line feed before carriage return, at both places.
    static constexpr std::string_view Last7OK = "\n\rOK\n\r>";
    static constexpr std::string_view Last7ERROR = "RROR\n\r>";
    /// Who works with the port over several exchanges.
    PortOwner port;
    /// 0 while the port is free, else the step of the sequence that owns it.
    [[nodiscard]] std::int32_t CommState() const { return port.step(); }
    /// The terminal line being typed.
    std::string Buf1;
    /// 0 none, 1 and 2 the board's generation, 40 the loader, 50 the packet monitor.
    std::int16_t LoadBoardRev = 0;
    /// Location of the generation 2 board's USB converter; 0 if there is none.
    std::int32_t UsbLocation = 0;
    /// The program's folder, and its first two characters, which mean a drive on some systems only.
    std::string CurrentPath;
    std::string CurrentDrive;
    /// Set while the program itself changes LoadboardList.
    bool ListChangeBlocked = false;
    /// Position of the chosen board's entry while in Data mode.
    std::int16_t LoadBoardIndex = -1;
};

} // namespace zor
