// SPDX-License-Identifier: MIT
#include "transcript_runner/board_checks.h"

#include "simulator/loader_firmware.h"
#include "support/numbers.h"
#include "transcript/checks.h"

#include <limits>

namespace zor::testing {

using transcript::expectText;

void expectEeprom(World& world, const Arguments& arguments) {
    auto seat = world.machine.ports.seats().find(arguments.integer(0, 0, 32767));
    sim::SerialEeprom* chip =
        seat == world.machine.ports.seats().end() ? nullptr : seat->second->board().circuits().eeprom();
    if (chip == nullptr) {
        throw Failure("there is no EEPROM on port " + arguments.text(0));
    }
    std::vector<std::uint8_t> expected = arguments.hexBytes(2);
    int last = static_cast<int>(sim::SerialEeprom::byteCount - expected.size());
    auto address = static_cast<std::size_t>(arguments.integer(1, 0, last));
    std::string found;
    std::string wanted;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        found += (i == 0 ? "" : " ") + hexText(chip->bytes()[address + i], 2);
        wanted += (i == 0 ? "" : " ") + hexText(expected[i], 2);
    }
    expectText("EEPROM from " + arguments.text(1) + " on", wanted, found);
}

void expectImage(World& world, const Arguments& arguments) {
    VirtualSeat* seat = world.machine.ports.find(arguments.integer(0, 0, 32767));
    const sim::LoaderFirmware* loader = seat == nullptr ? nullptr : seat->board().loader();
    if (loader == nullptr) {
        throw Failure("there is no loader on port " + arguments.text(0));
    }
    auto address = static_cast<std::uint32_t>(arguments.integer(1, 0, std::numeric_limits<int>::max()));
    std::string found;
    std::size_t count = (arguments.text(2).size() + 1) / 3;
    for (std::size_t i = 0; i < count; ++i, ++address) {
        auto byte = loader->image().bytes().find(address);
        found += found.empty() ? "" : " ";
        found += byte == loader->image().bytes().end() ? "--" : hexText(byte->second, 2);
    }
    expectText("the loader's image from " + arguments.text(1) + " on", arguments.text(2), found);
}

} // namespace zor::testing
