// SPDX-License-Identifier: MIT
#include "link/board_name.h"

#include "link/connect.h"
#include "support/numbers.h"

namespace zor {

namespace {

/// Behind such a device is a program. Its number and its location mean nothing the next day.
constexpr const char* pseudoTerminals = "/dev/pts/";

/// Bus and hub ports in eight digits, as USB tools write it.
constexpr int locationDigits = 8;

} // namespace

std::string boardName(const Bench& bench) {
    int port = bench.connect->portNumber();
    std::string path = bench.platform.ports.devicePath(port);
    std::string name = "generation " + std::to_string(bench.link.LoadBoardRev);
    if (path.starts_with(pseudoTerminals)) {
        return name + ", simulated board";
    }
    name += ", port " + std::to_string(port);
    if (!path.empty()) {
        name += ", " + path;
    }
    if (bench.link.UsbLocation != 0) {
        name +=
            ", USB location 0x" + hexText(static_cast<std::uint32_t>(bench.link.UsbLocation), locationDigits);
    }
    return name;
}

} // namespace zor
